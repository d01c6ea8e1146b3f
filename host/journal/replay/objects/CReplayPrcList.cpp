#include "journal/replay/objects/CReplayPrcList.h"

CReplayPrcList::CReplayPrcList(IReplayAnswers& answers) : caller(answers, "PrcListControl") { }

void CReplayPrcList::Attach(CObserver* pObserver)
{
    caller.Attach(pObserver);
}

void CReplayPrcList::Detach(CObserver* pObserver)
{
    caller.Detach(pObserver);
}

qint32 CReplayPrcList::ExportList(QString strPath, qint32 nOption)
{
    return caller.Call("ExportList", strPath, nOption).value.toInt();
}

qint32 CReplayPrcList::ImportList(QString strPath)
{
    return caller.Call("ImportList", strPath).value.toInt();
}

void CReplayPrcList::GetDiscoveredTree(SProcessorAllNode& node)
{
    ReadTree("GetDiscoveredTree", node);
}

void CReplayPrcList::GetSimulatorTree(SProcessorAllNode& node)
{
    ReadTree("GetSimulatorTree", node);
}

void CReplayPrcList::AddGroup(SProcessorGroupNode node, bool bEmpty)
{
    caller.Call("AddGroup", node, bEmpty);
}

void CReplayPrcList::DeleteGroup(QUuid idGroup, bool bWithProcessors)
{
    caller.Call("DeleteGroup", idGroup, bWithProcessors);
}

void CReplayPrcList::DeleteProcessor(QUuid idProcessor, bool bOption)
{
    caller.Call("DeleteProcessor", idProcessor, bOption);
}

void CReplayPrcList::MoveProcessor(QUuid idProcessor, QUuid idGroup)
{
    caller.Call("MoveProcessor", idProcessor, idGroup);
}

void CReplayPrcList::RenameGroup(QUuid idGroup, QString strName)
{
    caller.Call("RenameGroup", idGroup, strName);
}

bool CReplayPrcList::IsNodeActive(QUuid idNode)
{
    return caller.Call("IsNodeActive", idNode).value.toBool();
}

void CReplayPrcList::SetExpanded(QUuid idNode, bool bExpanded)
{
    caller.Call("SetExpanded", idNode, bExpanded);
}

qint32 CReplayPrcList::GetSimulatorCount()
{
    return caller.Call("GetSimulatorCount").value.toInt();
}

qint32 CReplayPrcList::GetNextGroupIndex()
{
    return caller.Call("GetNextGroupIndex").value.toInt();
}

void CReplayPrcList::GetProcessorIPs(std::vector<uint>& vecIP)
{
    vecIP = ReplayValue::ReadAddresses(caller.Call("GetProcessorIPs").value);
}

qint32 CReplayPrcList::GetNodeType(QUuid idNode)
{
    return caller.Call("GetNodeType", idNode).value.toInt();
}

void CReplayPrcList::ReadTree(const char* szOperation, SProcessorAllNode& node) const
{
    const SReplayAnswer answer = caller.Call(szOperation);
    if (answer.pTree) {
        node = *answer.pTree;
    }
}
