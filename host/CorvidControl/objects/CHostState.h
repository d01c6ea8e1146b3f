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
    /// No project, all flags off. Both references must outlive it.
    CHostState(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn);

    /// An empty name closes the project.
    void SetProject(const QString& strName);
    QString GetProject() const; ///< empty when none is open

    /// Chief-Member mode: the panel draws Chief marks.
    void SetChiefMode(bool bOn);

    /// As set last.
    bool IsChiefMode() const
    {
        return bChiefMode;
    }

    /// Every command but folding and selecting is refused. So is the last step of one that blocks meanwhile.
    void SetLocked(bool bNow);

    /// As set last.
    bool IsLocked() const
    {
        return bLocked;
    }

    /// Scans are refused.
    void SetRefreshBlocked(bool bNow);

    /// As set last.
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
