#pragma once

#include "CorvidControl/file/SListEdition.h"
#include "CorvidControl/list/CNodeTree.h"
#include "CorvidControl/list/CSelection.h"
#include "CorvidControl/list/SListLimits.h"
#include "CorvidControl/messages/EnMessageSender.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

class CHostEvents;
class CHostState;
class CMessageDispatcher;

/// The list: both panes with their selections, and the rules about who may change what. Nothing here
/// blocks. Every change is followed by a message, and so is every refusal, with a line in the log. All
/// operations may be called on any thread.
class CProcessorList
{
public:
    CProcessorList(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn, const CHostState& hostIn,
                   const SListLimits& limitsIn);

    /// Who hears that a command or a found node has changed the Discovered list: what there is to save. On
    /// the thread of the change, without a lock. Set it once, before anything else.
    void SetEditListener(const std::function<void()>& listenerNew)
    {
        listenerEdit = listenerNew;
    }

    const CHostState& GetHost() const
    {
        return host;
    }
    const SListLimits& GetLimits() const
    {
        return limits;
    }
    SProcessorAllNode GetTree(bool bSimulator) const;
    CNodeTree CopyTree(bool bSimulator) const;
    SListEdition GetEdition() const;                      ///< of the Discovered list
    SProcessorGroupNode CopyGroup(const QUuid& id) const; ///< empty when it is gone
    bool IsSimulatorPane() const
    {
        return bSimulatorPane;
    } ///< never waits
    void SetSimulatorPane(bool bSimulator);

    bool SetSelection(const std::vector<QUuid>& vecId); ///< of the current pane; false when refused
    std::vector<QUuid> GetSelection(bool bSimulator) const;
    std::vector<QUuid> GetSelectedProcessors() const; ///< of the current pane, members of groups included

    void AddGroup(SProcessorGroupNode group);
    void RenameNode(const QUuid& id, const QString& strName);
    void MoveProcessor(const QUuid& id, const QUuid& idGroup);
    void SetExpanded(const QUuid& id, bool bExpanded);
    void SetChief(const QUuid& idGroup, const QUuid& idChief);

    /// Why a processor may not be deleted; empty when it may, or when it is not there.
    QString FindDeleteFault(const QUuid& id) const;
    bool RemoveProcessor(const QUuid& id); ///< true when it is gone

    /// The processors that went with the group, for the network to forget.
    QList<SProcessorNode> RemoveGroup(const QUuid& id, bool bWithProcessors);

    /// Why the Discovered list cannot take a processor at nIP; empty when it can.
    QString FindAddFault(quint32 nIP) const;

    /// To the end of the root of a pane. False when it was refused.
    bool AddProcessor(const SProcessorNode& device, bool bSimulator);

    void ApplyReport(const SProcessorNode& report); ///< what a device says of itself

    /// By a list out of a file. The number of its edition.
    quint64 ReplaceList(const SProcessorAllNode& node);

    int GetNodeType(const QUuid& id) const;
    bool IsActive(const QUuid& id) const; ///< its device answers; a group is always active
    bool IsInUse(const QUuid& id) const;  ///< it, or a member of it, answers and runs the open project
    QUuid FindByName(const QString& strName) const;

    void Refuse(EnMessageSender sender, const QString& strCommand, const QString& strReason);

private:
    struct SOutcome
    {
        bool bChanged = false;
        QString strRefused;
        int nPane = 0; ///< that was changed

        /// Simulators are in no file: of them there is nothing to save.
        bool IsEdit() const
        {
            return bChanged && nPane == 0;
        }
    };

    void Carry(const QString& strCommand, const std::function<SOutcome()>& command);
    CNodeTree& Edit(int nPane);
    void Count(const SOutcome& outcome)
    {
        nEdit += outcome.IsEdit() ? 1 : 0;
    }
    void Tell(const SOutcome& outcome, EnMessageSender sender, int nMessage) const;
    SOutcome TryAddGroup(SProcessorGroupNode group);
    SOutcome TryRename(const QUuid& id, const QString& strText);
    SOutcome TryMove(const QUuid& id, const QUuid& idGroup);
    QString TryFindDeleteFault(const QUuid& id) const;
    int FindPane(const QUuid& id) const;
    const SProcessorNode* FindProcessor(const QUuid& id) const;
    static bool IsRunning(const SProcessorNode& processor, const QString& strProject);

    CMessageDispatcher& dispatcher;
    CHostEvents& events;
    const CHostState& host;
    const SListLimits limits;
    std::function<void()> listenerEdit;

    std::atomic<bool> bSimulatorPane{ false };

    mutable std::mutex mutex;              ///< guards all below
    CNodeTree tree[2];                     ///< Discovered, Simulator; written through Edit
    mutable bool bLent[2]{ false, false }; ///< a copy of the tree was handed out since it was written
    CSelection selection[2];
    quint64 nEdit = 0; ///< how often the Discovered list was changed but by reports of devices
};
