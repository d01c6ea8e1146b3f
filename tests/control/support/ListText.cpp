#include "ListText.h"

#include "nodes/SProcessorAllNode.h"

#include <QHostAddress>
#include <QStringList>

#include <algorithm>

namespace {

enum EnDetail
{
    Plain,
    Exact,
    Whole
};

QString GetChiefName(const SProcessorGroupNode& group)
{
    for (const SProcessorNode& processor : group.listProcessor) {
        if (processor.idNode == group.idChief) {
            return QStringLiteral(" led by ") + processor.strName;
        }
    }
    return group.idChief.isNull() ? QString() : QStringLiteral(" led by nobody that is there");
}

QString GetNumbers(const QSet<int>& setNumber)
{
    QList<int> listNumber = setNumber.values();
    std::sort(listNumber.begin(), listNumber.end());
    QString strNumbers;
    for (const int nNumber : std::as_const(listNumber)) {
        strNumbers += QStringLiteral(" %1").arg(nNumber);
    }
    return strNumbers;
}

QString GetRecorded(const SProcessorNode& processor)
{
    return QStringLiteral(" %1 type %2 %3 ports %4 %5 of %6")
        .arg(processor.idNode.toString(), QString::number(processor.nModel), processor.strType, QString::number(processor.nPortA),
             QString::number(processor.nPortB), processor.idAux.toString());
}

QString GetFolded(const SNode& node)
{
    return node.bExpanded ? QString() : QStringLiteral(" folded");
}

QString GetReported(const SProcessorNode& processor)
{
    return QStringLiteral(" %1 role %2 runs \"%3\"")
        .arg(processor.bOnline ? QStringLiteral("online") : QStringLiteral("offline"), QString::number(processor.nFailover),
             processor.strProject);
}

QString GetLine(const SProcessorNode& processor, EnDetail detail)
{
    return processor.strName + QLatin1Char(' ') + QHostAddress(processor.nIP).toString()
        + (processor.nChief == 1 ? QStringLiteral(" Chief") : QString()) + (detail >= Exact ? GetRecorded(processor) : QString())
        + (detail >= Whole ? GetReported(processor) + GetFolded(processor) : QString());
}

QString GetGroupLine(const SProcessorGroupNode& group, EnDetail detail)
{
    return group.strName + GetChiefName(group)
        + (detail >= Exact ? QLatin1Char(' ') + group.idNode.toString() + GetNumbers(group.setAux) : QString())
        + (detail >= Whole ? GetFolded(group) : QString());
}

QString BuildText(const SProcessorAllNode& node, EnDetail detail)
{
    QStringList listLine{ node.strName + (detail >= Whole ? GetFolded(node) : QString()) };
    for (const SProcessorGroupNode& group : node.listGroup) {
        listLine.append(QStringLiteral("  ") + GetGroupLine(group, detail));
        for (const SProcessorNode& processor : group.listProcessor) {
            listLine.append(QStringLiteral("    ") + GetLine(processor, detail));
        }
    }
    for (const SProcessorNode& processor : node.listProcessor) {
        listLine.append(QStringLiteral("  ") + GetLine(processor, detail));
    }
    return listLine.join(QLatin1Char('\n'));
}

} // namespace

QString ListText::Build(const SProcessorAllNode& node)
{
    return BuildText(node, Plain);
}

QString ListText::BuildExact(const SProcessorAllNode& node)
{
    return BuildText(node, Exact);
}

QString ListText::BuildWhole(const SProcessorAllNode& node)
{
    return BuildText(node, Whole);
}
