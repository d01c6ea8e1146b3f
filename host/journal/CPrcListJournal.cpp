#include "journal/CPrcListJournal.h"

#include "journal/CSlowCall.h"
#include "nodes/SProcessorAllNode.h"

namespace {

/// "8 groups, 60 processors"
QString GetSize(const SProcessorAllNode& node)
{
    int nProcessors = node.listProcessor.size();
    for (const SProcessorGroupNode& group : node.listGroup) {
        nProcessors += group.listProcessor.size();
    }
    return QStringLiteral("%1 groups, %2 processors").arg(node.listGroup.size()).arg(nProcessors);
}

} // namespace

CPrcListJournal::CPrcListJournal(IPrcListControl& innerIn, CCallLog& journal, CJobs& jobsIn)
    : inner(innerIn), writer(journal, "PrcListControl"), jobs(jobsIn)
{ }

void CPrcListJournal::Attach(CObserver* pObserver)
{
    writer.Command("Attach");
    inner.Attach(pObserver);
}

void CPrcListJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    inner.Detach(pObserver);
}

qint32 CPrcListJournal::ExportList(QString strPath, qint32 nOption)
{
    writer.Command("ExportList", strPath, nOption);
    const qint32 result = inner.ExportList(strPath, nOption);
    writer.Returned("ExportList", result);
    return result;
}

qint32 CPrcListJournal::ImportList(QString strPath)
{
    writer.Command("ImportList", strPath);
    const qint32 result = inner.ImportList(strPath);
    writer.Returned("ImportList", result);
    return result;
}

void CPrcListJournal::GetDiscoveredTree(SProcessorAllNode& node)
{
    inner.GetDiscoveredTree(node);
    writer.Read("GetDiscoveredTree", GetSize(node));
}

void CPrcListJournal::GetSimulatorTree(SProcessorAllNode& node)
{
    inner.GetSimulatorTree(node);
    writer.Read("GetSimulatorTree", GetSize(node));
}

void CPrcListJournal::AddGroup(SProcessorGroupNode node, bool bEmpty)
{
    writer.Command("AddGroup", node.strName, bEmpty);
    inner.AddGroup(node, bEmpty);
}

void CPrcListJournal::DeleteGroup(QUuid idGroup, bool bWithProcessors)
{
    writer.Command("DeleteGroup", idGroup, bWithProcessors);
    const CSlowCall call(writer, jobs, "DeleteGroup", QStringLiteral("Deleting ") + CCallWriter::GetText(idGroup));
    inner.DeleteGroup(idGroup, bWithProcessors);
}

void CPrcListJournal::DeleteProcessor(QUuid idProcessor, bool bOption)
{
    writer.Command("DeleteProcessor", idProcessor, bOption);
    const CSlowCall call(writer, jobs, "DeleteProcessor", QStringLiteral("Deleting ") + CCallWriter::GetText(idProcessor));
    inner.DeleteProcessor(idProcessor, bOption);
}

void CPrcListJournal::MoveProcessor(QUuid idProcessor, QUuid idGroup)
{
    writer.Command("MoveProcessor", idProcessor, idGroup);
    inner.MoveProcessor(idProcessor, idGroup);
}

void CPrcListJournal::RenameGroup(QUuid idGroup, QString strName)
{
    writer.Command("RenameGroup", idGroup, strName);
    inner.RenameGroup(idGroup, strName);
}

bool CPrcListJournal::IsNodeActive(QUuid idNode)
{
    const bool result = inner.IsNodeActive(idNode);
    writer.Read("IsNodeActive", result, idNode);
    return result;
}

void CPrcListJournal::SetExpanded(QUuid idNode, bool bExpanded)
{
    writer.Command("SetExpanded", idNode, bExpanded);
    inner.SetExpanded(idNode, bExpanded);
}

qint32 CPrcListJournal::GetSimulatorCount()
{
    const qint32 result = inner.GetSimulatorCount();
    writer.Read("GetSimulatorCount", result);
    return result;
}

qint32 CPrcListJournal::GetNextGroupIndex()
{
    const qint32 result = inner.GetNextGroupIndex();
    writer.Read("GetNextGroupIndex", result);
    return result;
}

void CPrcListJournal::GetProcessorIPs(std::vector<uint>& vecIP)
{
    inner.GetProcessorIPs(vecIP);
    writer.Read("GetProcessorIPs", static_cast<int>(vecIP.size()));
}

qint32 CPrcListJournal::GetNodeType(QUuid idNode)
{
    const qint32 result = inner.GetNodeType(idNode);
    writer.Read("GetNodeType", result, idNode);
    return result;
}
