#include "journal/CPrcListJournal.h"

#include "journal/CSlowCall.h"
#include "journal/recording/CRecordedCall.h"
#include "nodes/SProcessorAllNode.h"

namespace {

// What is answered for the library when it throws: the list, or the file, is as it was.
constexpr qint32 nNotReplaced = 3;
constexpr qint32 nLeftAlone = 2;

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
    CRecordedCall call(writer, RecordCommand, "Attach");
    call.Carry([&] { inner.Attach(pObserver); });
}

void CPrcListJournal::Detach(CObserver* pObserver)
{
    writer.Command("Detach");
    CRecordedCall call(writer, RecordCommand, "Detach");
    call.Carry([&] { inner.Detach(pObserver); });
}

qint32 CPrcListJournal::ExportList(QString strPath, qint32 nOption)
{
    writer.Command("ExportList", strPath, nOption);
    CRecordedCall call(writer, RecordCommand, "ExportList", SPrivateText(strPath, PrivatePath), nOption);
    call.Announce();
    const qint32 result = call.Ask(nLeftAlone, [&] { return inner.ExportList(strPath, nOption); });
    call.SetResult(result);
    writer.Returned("ExportList", result);
    return result;
}

qint32 CPrcListJournal::ImportList(QString strPath)
{
    writer.Command("ImportList", strPath);
    CRecordedCall call(writer, RecordCommand, "ImportList", SPrivateText(strPath, PrivatePath));
    call.Announce();
    const qint32 result = call.Ask(nNotReplaced, [&] { return inner.ImportList(strPath); });
    call.SetResult(result);
    writer.Returned("ImportList", result);
    return result;
}

void CPrcListJournal::GetDiscoveredTree(SProcessorAllNode& node)
{
    CRecordedCall call(writer, RecordRead, "GetDiscoveredTree");
    call.Fill(node, [&](auto& filled) { inner.GetDiscoveredTree(filled); });
    call.SetResult(node);
    writer.Read("GetDiscoveredTree", GetSize(node));
}

void CPrcListJournal::GetSimulatorTree(SProcessorAllNode& node)
{
    CRecordedCall call(writer, RecordRead, "GetSimulatorTree");
    call.Fill(node, [&](auto& filled) { inner.GetSimulatorTree(filled); });
    call.SetResult(node);
    writer.Read("GetSimulatorTree", GetSize(node));
}

void CPrcListJournal::AddGroup(SProcessorGroupNode node, bool bEmpty)
{
    writer.Command("AddGroup", node.strName, bEmpty);
    CRecordedCall call(writer, RecordCommand, "AddGroup", node, bEmpty);
    call.Carry([&] { inner.AddGroup(node, bEmpty); });
}

void CPrcListJournal::DeleteGroup(QUuid idGroup, bool bWithProcessors)
{
    writer.Command("DeleteGroup", idGroup, bWithProcessors);
    const CSlowCall job(writer, jobs, "DeleteGroup", QStringLiteral("Deleting ") + CCallWriter::GetText(idGroup));
    CRecordedCall call(writer, RecordCommand, "DeleteGroup", idGroup, bWithProcessors);
    call.Announce();
    call.Carry([&] { inner.DeleteGroup(idGroup, bWithProcessors); });
}

void CPrcListJournal::DeleteProcessor(QUuid idProcessor, bool bOption)
{
    writer.Command("DeleteProcessor", idProcessor, bOption);
    const CSlowCall job(writer, jobs, "DeleteProcessor", QStringLiteral("Deleting ") + CCallWriter::GetText(idProcessor));
    CRecordedCall call(writer, RecordCommand, "DeleteProcessor", idProcessor, bOption);
    call.Announce();
    call.Carry([&] { inner.DeleteProcessor(idProcessor, bOption); });
}

void CPrcListJournal::MoveProcessor(QUuid idProcessor, QUuid idGroup)
{
    writer.Command("MoveProcessor", idProcessor, idGroup);
    CRecordedCall call(writer, RecordCommand, "MoveProcessor", idProcessor, idGroup);
    call.Carry([&] { inner.MoveProcessor(idProcessor, idGroup); });
}

void CPrcListJournal::RenameGroup(QUuid idGroup, QString strName)
{
    writer.Command("RenameGroup", idGroup, strName);
    CRecordedCall call(writer, RecordCommand, "RenameGroup", idGroup, SPrivateText(strName));
    call.Carry([&] { inner.RenameGroup(idGroup, strName); });
}

bool CPrcListJournal::IsNodeActive(QUuid idNode)
{
    CRecordedCall call(writer, RecordRead, "IsNodeActive", idNode);
    const bool result = call.Ask(false, [&] { return inner.IsNodeActive(idNode); });
    call.SetResult(result);
    writer.Read("IsNodeActive", result, idNode);
    return result;
}

void CPrcListJournal::SetExpanded(QUuid idNode, bool bExpanded)
{
    writer.Command("SetExpanded", idNode, bExpanded);
    CRecordedCall call(writer, RecordCommand, "SetExpanded", idNode, bExpanded);
    call.Carry([&] { inner.SetExpanded(idNode, bExpanded); });
}

qint32 CPrcListJournal::GetSimulatorCount()
{
    CRecordedCall call(writer, RecordRead, "GetSimulatorCount");
    const qint32 result = call.Ask(0, [&] { return inner.GetSimulatorCount(); });
    call.SetResult(result);
    writer.Read("GetSimulatorCount", result);
    return result;
}

qint32 CPrcListJournal::GetNextGroupIndex()
{
    CRecordedCall call(writer, RecordRead, "GetNextGroupIndex");
    const qint32 result = call.Ask(1, [&] { return inner.GetNextGroupIndex(); });
    call.SetResult(result);
    writer.Read("GetNextGroupIndex", result);
    return result;
}

void CPrcListJournal::GetProcessorIPs(std::vector<uint>& vecIP)
{
    CRecordedCall call(writer, RecordRead, "GetProcessorIPs");
    call.Fill(vecIP, [&](auto& filled) { inner.GetProcessorIPs(filled); });
    call.SetResult(SAddresses{ vecIP });
    writer.Read("GetProcessorIPs", static_cast<int>(vecIP.size()));
}

qint32 CPrcListJournal::GetNodeType(QUuid idNode)
{
    CRecordedCall call(writer, RecordRead, "GetNodeType", idNode);
    const qint32 result = call.Ask(0, [&] { return inner.GetNodeType(idNode); });
    call.SetResult(result);
    writer.Read("GetNodeType", result, idNode);
    return result;
}
