#include "delegate/RowText.h"

#include "delegate/CProcessorTreeDelegate.h"
#include "nodes/SProcessorNode.h"

#include <QHostAddress>

namespace {

QString Address(const SProcessorNode& node)
{
    return CProcessorTreeDelegate::tr("IP: %1").arg(QHostAddress(node.nIP).toString());
}

QStringList OfflineLines(const SProcessorNode& node)
{
    return { CProcessorTreeDelegate::tr("Type: --"), Address(node), CProcessorTreeDelegate::tr("Project: --"),
             CProcessorTreeDelegate::tr("UID: --") };
}

} // namespace

QString RowText::All(int nProcessors)
{
    return CProcessorTreeDelegate::tr("All processors(%1)").arg(nProcessors);
}

QString RowText::Project(const SProcessorNode& node)
{
    return node.strProject.isEmpty() ? QStringLiteral("--") : node.strProject;
}

QString RowText::Uid(const SProcessorNode& node)
{
    return node.idNode.toString(QUuid::WithoutBraces);
}

QStringList RowText::OnlineLines(const SProcessorNode& node, const QString& strProject, const QString& strId)
{
    return { CProcessorTreeDelegate::tr("Type: ") + node.strType, Address(node),
             CProcessorTreeDelegate::tr("Project: ") + strProject, CProcessorTreeDelegate::tr("UID: ") + strId };
}

QStringList RowText::InfoLines(const SProcessorNode& node)
{
    return node.bOnline ? OnlineLines(node, Project(node), Uid(node)) : OfflineLines(node);
}
