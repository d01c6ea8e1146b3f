#include "variants/CForward.h"

#include <utility>

void CForward::Take()
{
    pConfig = std::exchange(g_pConfigControl, this);
    pPrcBasic = std::exchange(g_pPrcBasicControl, this);
    pPrcList = std::exchange(g_pPrcListControl, this);
    pPrcRuntime = std::exchange(g_pPrcRuntimeControl, this);
    pPreference = std::exchange(g_pPreferenceControl, this);
    pProjectManage = std::exchange(g_pProjectManageControl, this);
    pProtocal = std::exchange(g_pProtocalControl, this);
    pRuntime = std::exchange(g_pRuntimeControl, this);
}

void CForward::Attach(CObserver* pObserver)
{
    pPrcBasic->Attach(pObserver);
    pPrcList->Attach(pObserver);
    pPrcRuntime->Attach(pObserver);
    pPreference->Attach(pObserver);
    pProjectManage->Attach(pObserver);
    pProtocal->Attach(pObserver);
    pRuntime->Attach(pObserver);
}

void CForward::Detach(CObserver* pObserver)
{
    pPrcBasic->Detach(pObserver);
    pPrcList->Detach(pObserver);
    pPrcRuntime->Detach(pObserver);
    pPreference->Detach(pObserver);
    pProjectManage->Detach(pObserver);
    pProtocal->Detach(pObserver);
    pRuntime->Detach(pObserver);
}

void CForward::GetReservedIPs(QList<uint>& listIP)
{
    pConfig->GetReservedIPs(listIP);
}

QString CForward::GetListFilePath()
{
    return pConfig->GetListFilePath();
}

void CForward::RefreshProcessors()
{
    pPrcBasic->RefreshProcessors();
}

void CForward::AddSimulators(SSimulatorRequest request)
{
    pPrcBasic->AddSimulators(request);
}

void CForward::AddProcessor(quint32 nIP)
{
    pPrcBasic->AddProcessor(nIP);
}

void CForward::RenameProcessor(QUuid idProcessor, QString strName)
{
    pPrcBasic->RenameProcessor(idProcessor, strName);
}

QString CForward::GetTypeName(qint32 nType)
{
    return pPrcBasic->GetTypeName(nType);
}

SLocalAddress CForward::GetLocalAddress()
{
    return pPrcBasic->GetLocalAddress();
}

bool CForward::IsListLocked()
{
    return pPrcBasic->IsListLocked();
}

bool CForward::IsRefreshBlocked()
{
    return pPrcBasic->IsRefreshBlocked();
}

qint32 CForward::ExportList(QString strPath, qint32 nOption)
{
    return pPrcList->ExportList(strPath, nOption);
}

qint32 CForward::ImportList(QString strPath)
{
    return pPrcList->ImportList(strPath);
}

void CForward::GetDiscoveredTree(SProcessorAllNode& node)
{
    pPrcList->GetDiscoveredTree(node);
}

void CForward::GetSimulatorTree(SProcessorAllNode& node)
{
    pPrcList->GetSimulatorTree(node);
}

void CForward::AddGroup(SProcessorGroupNode node, bool bEmpty)
{
    pPrcList->AddGroup(node, bEmpty);
}

void CForward::DeleteGroup(QUuid idGroup, bool bWithProcessors)
{
    pPrcList->DeleteGroup(idGroup, bWithProcessors);
}

void CForward::DeleteProcessor(QUuid idProcessor, bool bOption)
{
    pPrcList->DeleteProcessor(idProcessor, bOption);
}

void CForward::MoveProcessor(QUuid idProcessor, QUuid idGroup)
{
    pPrcList->MoveProcessor(idProcessor, idGroup);
}

void CForward::RenameGroup(QUuid idGroup, QString strName)
{
    pPrcList->RenameGroup(idGroup, strName);
}

bool CForward::IsNodeActive(QUuid idNode)
{
    return pPrcList->IsNodeActive(idNode);
}

void CForward::SetExpanded(QUuid idNode, bool bExpanded)
{
    pPrcList->SetExpanded(idNode, bExpanded);
}

qint32 CForward::GetSimulatorCount()
{
    return pPrcList->GetSimulatorCount();
}

qint32 CForward::GetNextGroupIndex()
{
    return pPrcList->GetNextGroupIndex();
}

void CForward::GetProcessorIPs(std::vector<uint>& vecIP)
{
    pPrcList->GetProcessorIPs(vecIP);
}

qint32 CForward::GetNodeType(QUuid idNode)
{
    return pPrcList->GetNodeType(idNode);
}

bool CForward::IsChiefMode()
{
    return pPreference->IsChiefMode();
}

void CForward::GetProjectInfo(SProjectInfo& info)
{
    pProjectManage->GetProjectInfo(info);
}

void CForward::PostMessage(qint32 nMessage)
{
    pRuntime->PostMessage(nMessage);
}

bool CForward::IsSimulatorPane()
{
    return pRuntime->IsSimulatorPane();
}

void CForward::SetSimulatorPane(bool bSimulator)
{
    pRuntime->SetSimulatorPane(bSimulator);
}

bool CForward::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    return pRuntime->SetSelectedNodes(vecId);
}

std::vector<QUuid> CForward::GetSelectedNodes(bool bSimulator)
{
    return pRuntime->GetSelectedNodes(bSimulator);
}

std::vector<QUuid> CForward::GetSelectedProcessors()
{
    return pRuntime->GetSelectedProcessors();
}

bool CForward::IsDeleteBlocked(QUuid idNode)
{
    return pRuntime->IsDeleteBlocked(idNode);
}

bool CForward::IsNodeInUse(QUuid idNode)
{
    return pRuntime->IsNodeInUse(idNode);
}

void CForward::SetBusy(bool bBusy)
{
    pRuntime->SetBusy(bBusy);
}
