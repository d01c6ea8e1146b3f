#pragma once

#include "CorvidControl/messages/EnMessageSender.h"

#include <QString>

#include <atomic>
#include <mutex>

class CHostEvents;
class CMessageDispatcher;

/// What the host around the list is doing: its project, its modes, its locks. Each change is followed by
/// a message and by CHostEvents::StateChanged. All operations may be called on any thread; those on
/// flags never wait.
class CHostState
{
public:
    CHostState(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn);

    void SetProject(const QString& strName); ///< empty closes the project
    QString GetProject() const;

    void SetChiefMode(bool bOn);
    bool IsChiefMode() const
    {
        return bChiefMode;
    }
    void SetLocked(bool bNow);
    bool IsLocked() const
    {
        return bLocked;
    }
    void SetRefreshBlocked(bool bNow);
    bool IsRefreshBlocked() const
    {
        return bRefreshBlocked;
    }

private:
    void SetFlag(std::atomic<bool>& bFlag, bool bNow, EnMessageSender sender, int nMessage);

    CMessageDispatcher& dispatcher;
    CHostEvents& events;

    std::atomic<bool> bChiefMode{ false };
    std::atomic<bool> bLocked{ false };
    std::atomic<bool> bRefreshBlocked{ false };

    mutable std::mutex mutex; ///< guards strProject
    QString strProject;
};
