#include "data/CProcessorTreeThread.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QThread>

namespace {

constexpr unsigned nMaxMessage = 59;
constexpr int nToolBarMessage = 59;

/// Bit n stands for message n.
constexpr quint64 nQueueSet = 0x86000010000C682;  // 1, 7, 9, 10, 14, 15, 32, 53, 54, 59
constexpr quint64 nRefreshSet = 0x6000010000C682; // the same without 59

/// Pause between two messages of a burst, in milliseconds.
constexpr unsigned long nPacingMs = 10;

bool IsIn(quint64 nSet, int nMessage)
{
    return static_cast<unsigned>(nMessage) <= nMaxMessage && ((nSet >> nMessage) & 1U) != 0;
}

bool IsWanted(int nMessage)
{
    return IsIn(nQueueSet, nMessage); // 0 is in no set
}

template <typename Call> void ForEachSubject(Call fnCall)
{
    fnCall(g_pPrcBasicControl);
    fnCall(g_pPrcListControl);
    fnCall(g_pRuntimeControl);
    fnCall(g_pPrcRuntimeControl);
    fnCall(g_pProjectManageControl);
    fnCall(g_pProtocalControl);
    fnCall(g_pPreferenceControl);
}

} // namespace

CProcessorTreeThread::CProcessorTreeThread(QObject* parent) : CBaseThread(parent)
{
    Q_ASSERT(GuiThread::IsCurrent() && !parent);
    ForEachSubject([this](auto* pSubject) { pSubject->Attach(this); });
}

CProcessorTreeThread::~CProcessorTreeThread()
{
    Q_ASSERT(QThread::currentThread() == thread() || !thread() || !thread()->isRunning());
    ForEachSubject([this](auto* pSubject) { pSubject->Detach(this); });
}

void CProcessorTreeThread::Notify(int nMessage)
{
    if (!IsWanted(nMessage)) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(mutexQueue);
        listMessage.append(nMessage);
    }
    ActivateThread();
}

void CProcessorTreeThread::ThreadStart()
{
    Q_ASSERT(QThread::currentThread() == thread());
    while (!bExit) {
        if (bIdle) {
            std::unique_lock<std::mutex> lock(mutexWake);
            condWake.wait(lock); // without a predicate: a wake-up without work is harmless
            continue;
        }
        Deal(GetFrontType());
        if (RemoveFront() > 0) {
            QThread::msleep(nPacingMs);
            continue;
        }
        bIdle = true;
    }
    ThreadFinished();
}

void CProcessorTreeThread::Deal(int nMessage)
{
    if (nMessage == nToolBarMessage) {
        emit UpdateToolBar();
    } else if (IsIn(nRefreshSet, nMessage)) {
        g_pProcessorTreeData->Refresh();
    }
}
