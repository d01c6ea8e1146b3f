#include "CorvidControl/objects/CHostState.h"

#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CHostEvents.h"

CHostState::CHostState(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn) : dispatcher(dispatcherIn), events(eventsIn) { }

void CHostState::SetProject(const QString& strName)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (strProject == strName) {
            return;
        }
        strProject = strName;
    }
    dispatcher.Post(SenderProjectManage, MessageProjectChanged);
    emit events.StateChanged();
}

QString CHostState::GetProject() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return strProject;
}

void CHostState::SetChiefMode(bool bOn)
{
    SetFlag(bChiefMode, bOn, SenderPreference, MessageChiefChanged);
}

void CHostState::SetLocked(bool bNow)
{
    SetFlag(bLocked, bNow, SenderPrcBasic, MessageCommandsChanged);
}

void CHostState::SetRefreshBlocked(bool bNow)
{
    SetFlag(bRefreshBlocked, bNow, SenderPrcBasic, MessageCommandsChanged);
}

void CHostState::SetFlag(std::atomic<bool>& bFlag, bool bNow, EnMessageSender sender, int nMessage)
{
    if (bFlag.exchange(bNow) == bNow) {
        return;
    }
    dispatcher.Post(sender, nMessage);
    emit events.StateChanged();
}
