#include "CorvidControl/faults/CarriedValues.h"

#include "nodes/SProcessorGroupNode.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

constexpr int nFalseNumber = -1; // in no set of a group

/// One value that can flicker.
struct SCarriedValue
{
    const char* szName;
    void (*flipProcessor)(SProcessorNode& processor);
    void (*flipGroup)(SProcessorGroupNode& group); ///< null for what no group has
};

void FlipExpanded(SNode& node)
{
    node.bExpanded = !node.bExpanded;
}

void FlipName(SNode& node)
{
    node.strName += QLatin1Char('*');
}

void FlipOwnValues(SProcessorNode& processor)
{
    processor.idAux = QUuid::createUuidV5(processor.idAux, QByteArrayLiteral("flicker"));
    ++processor.nPortA;
    ++processor.nPortB;
}

void FlipRole(SProcessorNode& processor)
{
    constexpr qint32 nPrimary = 1;
    constexpr qint32 nBackup = 2;
    processor.nFailover = processor.nFailover == nPrimary ? nBackup : nPrimary;
}

constexpr SCarriedValue arrValue[] = {
    { "aux", FlipOwnValues, [](SProcessorGroupNode& group) { group.setAux.insert(nFalseNumber); } },
    { "expanded", [](SProcessorNode& processor) { FlipExpanded(processor); },
      [](SProcessorGroupNode& group) { FlipExpanded(group); } },
    { "name", [](SProcessorNode& processor) { FlipName(processor); }, [](SProcessorGroupNode& group) { FlipName(group); } },
    { "online", [](SProcessorNode& processor) { processor.bOnline = !processor.bOnline; }, nullptr },
    { "role", FlipRole, nullptr },
};

bool IsMeant(const SCarriedValue& value, const QString& strName)
{
    return strName.isEmpty() || strName == QLatin1String(value.szName);
}

} // namespace

QStringList CarriedValues::GetNames()
{
    QStringList listName;
    for (const SCarriedValue& value : arrValue) {
        listName.append(QLatin1String(value.szName));
    }
    return listName;
}

bool CarriedValues::IsOfGroup(const QString& strName)
{
    return std::any_of(std::begin(arrValue), std::end(arrValue),
                       [&](const SCarriedValue& value) { return value.flipGroup && IsMeant(value, strName); });
}

void CarriedValues::Flip(SProcessorNode& processor, const QString& strName)
{
    for (const SCarriedValue& value : arrValue) {
        if (IsMeant(value, strName)) {
            value.flipProcessor(processor);
        }
    }
}

void CarriedValues::Flip(SProcessorGroupNode& group, const QString& strName)
{
    for (const SCarriedValue& value : arrValue) {
        if (value.flipGroup && IsMeant(value, strName)) {
            value.flipGroup(group);
        }
    }
}
