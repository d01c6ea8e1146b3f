#include "tsan/TsanAccess.h"
#include "tsan/TsanOrder.h"

#include <QByteArray>
#include <QMap>
#include <QString>

using TsanQt::IsOurs;
using TsanQt::Original;
using TsanQt::PutIn;
using TsanQt::Read;
using TsanQt::TakeIn;
using TsanQt::Write;

namespace {

/// The characters behind a string or an array of bytes: its only member. Their count of owners stands first.
template <class Value> const void* Characters(const Value& value)
{
    return *reinterpret_cast<void* const*>(&value);
}

/// The pointer of one is read, that of the other written; the characters behind that one lose an owner.
template <class Value> void Assign(const Value& value, const Value& valueNew)
{
    Read(&valueNew, sizeof(valueNew));
    PutIn(Characters(value));
    Write(&value, sizeof(value));
}

/// A map of one owner changes. Its nodes hang on the header, through which each search goes.
void WriteMap(const QMapDataBase* pMap)
{
    TakeIn(&pMap->ref);
    Write(&pMap->size, sizeof(pMap->size));
    Write(&pMap->header, sizeof(pMap->header));
}

} // namespace

QString& QString::operator=(const QString& other) noexcept
{
    static const auto fnOriginal = Original<QString& (*)(QString*, const QString&)>("_ZN7QStringaSERKS_");
    if (IsOurs(PTV_CALLER)) {
        Assign(*this, other);
    }
    return fnOriginal(this, other);
}

QByteArray& QByteArray::operator=(const QByteArray& other) noexcept
{
    static const auto fnOriginal = Original<QByteArray& (*)(QByteArray*, const QByteArray&)>("_ZN10QByteArrayaSERKS_");
    if (IsOurs(PTV_CALLER)) {
        Assign(*this, other);
    }
    return fnOriginal(this, other);
}

QMapNodeBase* QMapDataBase::createNode(int nSize, int alignment, QMapNodeBase* parent, bool left)
{
    static const auto fnOriginal = Original<QMapNodeBase* (*)(QMapDataBase*, int, int, QMapNodeBase*, bool)>(
        "_ZN12QMapDataBase10createNodeEiiP12QMapNodeBaseb");
    if (IsOurs(PTV_CALLER)) {
        WriteMap(this);
    }
    return fnOriginal(this, nSize, alignment, parent, left);
}

void QMapDataBase::freeNodeAndRebalance(QMapNodeBase* z)
{
    static const auto fnOriginal
        = Original<void (*)(QMapDataBase*, QMapNodeBase*)>("_ZN12QMapDataBase20freeNodeAndRebalanceEP12QMapNodeBase");
    if (IsOurs(PTV_CALLER)) {
        WriteMap(this);
    }
    fnOriginal(this, z);
}
