#include "tsan/TsanOrder.h"

#include <QFutureInterface>

#include <cstring>

using TsanQt::Original;
using TsanQt::PutIn;
using TsanQt::TakeIn;

namespace {

/// What all copies of a future share, its private object: the member behind the table of its virtual
/// operations.
const void* Shared(const QFutureInterfaceBase* pFuture)
{
    const void* pShared = nullptr;
    std::memcpy(&pShared, reinterpret_cast<const char*>(pFuture) + sizeof(void*), sizeof(pShared));
    return pShared;
}

} // namespace

void QFutureInterfaceBase::reportFinished()
{
    static const auto fnOriginal = Original<void (*)(QFutureInterfaceBase*)>("_ZN20QFutureInterfaceBase14reportFinishedEv");
    PutIn(Shared(this));
    fnOriginal(this);
}

void QFutureInterfaceBase::reportResultsReady(int beginIndex, int endIndex)
{
    static const auto fnOriginal
        = Original<void (*)(QFutureInterfaceBase*, int, int)>("_ZN20QFutureInterfaceBase18reportResultsReadyEii");
    PutIn(Shared(this));
    fnOriginal(this, beginIndex, endIndex);
}

void QFutureInterfaceBase::waitForFinished()
{
    static const auto fnOriginal = Original<void (*)(QFutureInterfaceBase*)>("_ZN20QFutureInterfaceBase15waitForFinishedEv");
    fnOriginal(this);
    TakeIn(Shared(this));
}

void QFutureInterfaceBase::waitForResult(int resultIndex)
{
    static const auto fnOriginal = Original<void (*)(QFutureInterfaceBase*, int)>("_ZN20QFutureInterfaceBase13waitForResultEi");
    fnOriginal(this, resultIndex);
    TakeIn(Shared(this));
}
