#include "tsan/TsanAccess.h"
#include "tsan/TsanOrder.h"

#include <QList>

using TsanQt::IsOurs;
using TsanQt::Original;
using TsanQt::Read;
using TsanQt::TakeIn;
using TsanQt::Write;

namespace {

using Block = QListData::Data;

void ReadSize(const Block* pBlock)
{
    Read(&pBlock->alloc, sizeof(pBlock->alloc) + sizeof(pBlock->begin) + sizeof(pBlock->end));
}

/// Qt changes a block that has but one owner. The former owners let go of it in code that the sanitizer sees; that
/// Qt looks at the count without ordering itself behind them is all right with the processor.
void WriteSize(const Block* pBlock)
{
    if (pBlock != &QListData::shared_null) {
        TakeIn(&pBlock->ref);
        Write(&pBlock->alloc, sizeof(pBlock->alloc) + sizeof(pBlock->begin) + sizeof(pBlock->end));
    }
}

void WriteElements(const Block* pBlock)
{
    if (pBlock->end > pBlock->begin) {
        Write(pBlock->array + pBlock->begin, sizeof(void*) * static_cast<std::size_t>(pBlock->end - pBlock->begin));
    }
}

/// What one call does to the list's pointer and to the block behind it.
class CListCall
{
public:
    CListCall(const QListData* pListIn, const void* pCaller) : pList(IsOurs(pCaller) ? pListIn : nullptr), pBefore(pListIn->d)
    {
        if (pList) {
            Read(&pList->d, sizeof(pList->d));
        }
    }

    ~CListCall()
    {
        if (pList && pList->d != pBefore) {
            Write(&pList->d, sizeof(pList->d));
        }
    }

    CListCall(const CListCall&) = delete;
    CListCall& operator=(const CListCall&) = delete;

    const CListCall& Resizes() const
    {
        if (pList) {
            WriteSize(pBefore);
        }
        return *this;
    }

    const CListCall& Moves() const
    {
        if (pList) {
            WriteElements(pBefore);
        }
        return *this;
    }

    void Copies() const
    {
        if (pList) {
            ReadSize(pBefore);
        }
    }

private:
    const QListData* pList; ///< null for a list that is not ours
    const Block* pBefore;
};

} // namespace

QListData::Data* QListData::detach(int alloc)
{
    static const auto fnOriginal = Original<Data* (*)(QListData*, int)>("_ZN9QListData6detachEi");
    const CListCall call(this, PTV_CALLER);
    call.Copies();
    return fnOriginal(this, alloc);
}

QListData::Data* QListData::detach_grow(int* i, int n)
{
    static const auto fnOriginal = Original<Data* (*)(QListData*, int*, int)>("_ZN9QListData11detach_growEPii");
    const CListCall call(this, PTV_CALLER);
    call.Copies();
    return fnOriginal(this, i, n);
}

void QListData::realloc(int alloc)
{
    static const auto fnOriginal = Original<void (*)(QListData*, int)>("_ZN9QListData7reallocEi");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    fnOriginal(this, alloc);
}

void QListData::realloc_grow(int growth)
{
    static const auto fnOriginal = Original<void (*)(QListData*, int)>("_ZN9QListData12realloc_growEi");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    fnOriginal(this, growth);
}

void QListData::dispose(Data* d)
{
    static const auto fnOriginal = Original<void (*)(Data*)>("_ZN9QListData7disposeEPNS_4DataE");
    if (IsOurs(PTV_CALLER)) {
        WriteSize(d);
        WriteElements(d);
    }
    fnOriginal(d);
}

void** QListData::erase(void** xi)
{
    static const auto fnOriginal = Original<void** (*)(QListData*, void**)>("_ZN9QListData5eraseEPPv");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    return fnOriginal(this, xi);
}

void** QListData::append(int n)
{
    static const auto fnOriginal = Original<void** (*)(QListData*, int)>("_ZN9QListData6appendEi");
    const CListCall call(this, PTV_CALLER);
    call.Resizes();
    return fnOriginal(this, n);
}

void** QListData::append()
{
    static const auto fnOriginal = Original<void** (*)(QListData*)>("_ZN9QListData6appendEv");
    const CListCall call(this, PTV_CALLER);
    call.Resizes();
    return fnOriginal(this);
}

void** QListData::append(const QListData& l)
{
    static const auto fnOriginal = Original<void** (*)(QListData*, const QListData&)>("_ZN9QListData6appendERKS_");
    const CListCall other(&l, PTV_CALLER);
    other.Copies();
    const CListCall call(this, PTV_CALLER);
    call.Resizes();
    return fnOriginal(this, l);
}

void** QListData::prepend()
{
    static const auto fnOriginal = Original<void** (*)(QListData*)>("_ZN9QListData7prependEv");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    return fnOriginal(this);
}

void** QListData::insert(int i)
{
    static const auto fnOriginal = Original<void** (*)(QListData*, int)>("_ZN9QListData6insertEi");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    return fnOriginal(this, i);
}

void QListData::remove(int i)
{
    static const auto fnOriginal = Original<void (*)(QListData*, int)>("_ZN9QListData6removeEi");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    fnOriginal(this, i);
}

void QListData::remove(int i, int n)
{
    static const auto fnOriginal = Original<void (*)(QListData*, int, int)>("_ZN9QListData6removeEii");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    fnOriginal(this, i, n);
}

void QListData::move(int from, int to)
{
    static const auto fnOriginal = Original<void (*)(QListData*, int, int)>("_ZN9QListData4moveEii");
    const CListCall call(this, PTV_CALLER);
    call.Resizes().Moves();
    fnOriginal(this, from, to);
}
