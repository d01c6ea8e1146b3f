#include "CSlowRuntimeControl.h"

#include "interfaces/control/CorvidControl.h"

using Clock = std::chrono::steady_clock;

CSlowRuntimeControl::CSlowRuntimeControl() : pInner(g_pRuntimeControl)
{
    g_pRuntimeControl = this;
}

CSlowRuntimeControl::~CSlowRuntimeControl()
{
    g_pRuntimeControl = pInner;
}

void CSlowRuntimeControl::Attach(CObserver* pObserver)
{
    pInner->Attach(pObserver);
}

void CSlowRuntimeControl::Detach(CObserver* pObserver)
{
    pInner->Detach(pObserver);
}

void CSlowRuntimeControl::PostMessage(qint32 nMessage)
{
    pInner->PostMessage(nMessage);
}

bool CSlowRuntimeControl::IsSimulatorPane()
{
    return pInner->IsSimulatorPane();
}

void CSlowRuntimeControl::SetSimulatorPane(bool bSimulator)
{
    pInner->SetSimulatorPane(bSimulator);
}

bool CSlowRuntimeControl::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    return pInner->SetSelectedNodes(vecId);
}

std::vector<QUuid> CSlowRuntimeControl::GetSelectedNodes(bool bSimulator)
{
    return pInner->GetSelectedNodes(bSimulator);
}

std::vector<QUuid> CSlowRuntimeControl::GetSelectedProcessors()
{
    return pInner->GetSelectedProcessors();
}

bool CSlowRuntimeControl::IsDeleteBlocked(QUuid idNode)
{
    return pInner->IsDeleteBlocked(idNode);
}

// By the clock and not by a sleep, which takes longer than asked for.
bool CSlowRuntimeControl::IsNodeInUse(QUuid idNode)
{
    const Clock::time_point timeEnd = Clock::now() + timeInUse;
    ++nCalls;
    const bool bInUse = pInner->IsNodeInUse(idNode);
    while (Clock::now() < timeEnd) { }
    return bInUse;
}

void CSlowRuntimeControl::SetBusy(bool bBusy)
{
    pInner->SetBusy(bBusy);
}
