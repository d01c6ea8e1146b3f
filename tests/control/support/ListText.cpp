#include "ListText.h"

#include "nodes/SProcessorAllNode.h"

#include <QHostAddress>
#include <QStringList>

namespace {

QString GetChiefName(const SProcessorGroupNode& group)
{
    for (const SProcessorNode& processor : group.listProcessor) {
        if (processor.idNode == group.idChief) {
            return QStringLiteral(" led by ") + processor.strName;
        }
    }
    return group.idChief.isNull() ? QString() : QStringLiteral(" led by nobody that is there");
}

QString GetLine(const SProcessorNode& processor, bool bExact)
{
    return processor.strName + QLatin1Char(' ') + QHostAddress(processor.nIP).toString()
        + (processor.nChief == 1 ? QStringLiteral(" Chief") : QString())
        + (bExact ? QLatin1Char(' ') + processor.idNode.toString() + processor.strType : QString());
}

QString BuildText(const SProcessorAllNode& node, bool bExact)
{
    QStringList listLine{ node.strName };
    for (const SProcessorGroupNode& group : node.listGroup) {
        listLine.append(QStringLiteral("  ") + group.strName + GetChiefName(group)
                        + (bExact ? group.idNode.toString() : QString()));
        for (const SProcessorNode& processor : group.listProcessor) {
            listLine.append(QStringLiteral("    ") + GetLine(processor, bExact));
        }
    }
    for (const SProcessorNode& processor : node.listProcessor) {
        listLine.append(QStringLiteral("  ") + GetLine(processor, bExact));
    }
    return listLine.join(QLatin1Char('\n'));
}

} // namespace

QString ListText::Build(const SProcessorAllNode& node)
{
    return BuildText(node, false);
}

QString ListText::BuildExact(const SProcessorAllNode& node)
{
    return BuildText(node, true);
}
