#include "CorvidControl/messages/CUserActivity.h"

#include "CorvidControl/messages/EnControlMessage.h"
#include "interfaces/control/CorvidControl.h"

#include <algorithm>

void CUserActivity::SetEditing(bool bOn)
{
    bEditing = bOn;
}

bool CUserActivity::IsEditing() const
{
    return bEditing;
}

void CUserActivity::SetActing(bool bOn)
{
    bActing = bOn;
}

void CUserActivity::NoteInput(Time timeNow)
{
    timeLastInput = timeNow;
}

CUserActivity::Time CUserActivity::GetRelease(int nMessage, Time timeSince) const
{
    if (bEditing && MakesRead(nMessage)) {
        return timeSince + timeEditing;
    }
    if (nMessage != MessageDevicesChanged) {
        return timeSince;
    }
    return bActing ? timeSince + timeActing : std::min(timeSince + timeActing, std::max(timeSince, timeLastInput + timeInput));
}

bool CUserActivity::MakesRead(int nMessage)
{
    switch (nMessage) {
    case MessageListChanged:
    case MessageDevicesChanged:
    case MessageSelectionChanged:
    case MessageProjectChanged:
    case MessageDeleteFinished:
    case MessageSelectionRefused:
    case MessageChiefChanged:
    case MessageCommandsChanged:
    case MessageCommandRefused:
        return true;
    default:
        return false;
    }
}
