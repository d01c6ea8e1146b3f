#include "CMessageRecorder.h"

#include "CorvidControl/messages/EnControlMessage.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <chrono>

void CMessageRecorder::AttachAll()
{
    g_pPrcBasicControl->Attach(this);
    g_pPrcListControl->Attach(this);
    g_pRuntimeControl->Attach(this);
    g_pPrcRuntimeControl->Attach(this);
    g_pProjectManageControl->Attach(this);
    g_pProtocalControl->Attach(this);
    g_pPreferenceControl->Attach(this);
}

void CMessageRecorder::DetachAll()
{
    g_pPrcBasicControl->Detach(this);
    g_pPrcListControl->Detach(this);
    g_pRuntimeControl->Detach(this);
    g_pPrcRuntimeControl->Detach(this);
    g_pProjectManageControl->Detach(this);
    g_pProtocalControl->Detach(this);
    g_pPreferenceControl->Detach(this);
}

void CMessageRecorder::Notify(int nMessage)
{
    if (onNotify) {
        onNotify(nMessage);
    }
    const std::lock_guard<std::mutex> lock(mutex);
    vecMessage.append(nMessage);
    idThread = std::this_thread::get_id();
    condCome.notify_all();
}

bool CMessageRecorder::Await(int nMessage)
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto timeEnd = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    return condCome.wait_until(lock, timeEnd, [&] { return vecMessage.contains(nMessage); });
}

void CMessageRecorder::Clear()
{
    g_pRuntimeControl->PostMessage(nMark);
    Await(nMark);
    const std::lock_guard<std::mutex> lock(mutex);
    vecMessage.clear();
}

QVector<int> CMessageRecorder::GetMessages()
{
    const std::lock_guard<std::mutex> lock(mutex);
    QVector<int> vecHeard;
    for (const int nMessage : std::as_const(vecMessage)) {
        if (nMessage != MessageSettled && nMessage != nMark) {
            vecHeard.append(nMessage);
        }
    }
    return vecHeard;
}

QVector<int> CMessageRecorder::GetAllMessages()
{
    g_pRuntimeControl->PostMessage(nMark);
    Await(nMark);
    return GetMessages();
}

std::thread::id CMessageRecorder::GetThread()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return idThread;
}
