#pragma once

#include "CorvidControl/list/CListEdits.h"
#include "CorvidControl/list/CListRules.h"
#include "CorvidControl/list/SListCommand.h"
#include "CorvidControl/list/SListEdition.h"
#include "CorvidControl/list/SListRestore.h"
#include "CorvidControl/messages/EnMessageSender.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

class CHostEvents;
class CHostState;
class CMessageDispatcher;
class IDeviceNetwork;

/// What has become of the Discovered list when that of a file was to take its place.
struct SListReplacement
{
    SFault fault;        ///< none when it was replaced
    SListEdition before; ///< what was replaced
    quint64 nEdit = 0;   ///< of the list that has taken its place
};

/// The list: both panes with their selections, and the rules about who may change what. Nothing here
/// blocks. Every change is followed by a message. A command that is refused changes nothing, writes one line
/// into the log and is followed by a message too; a locked list refuses all but folding, selecting,
/// reports, SetChief and ReplaceList. What a command of the user has changed is reported as an edit, what it was
/// refused for as a refusal. Each operation is one step under one mutex: of two at a time one finds the list as the other
/// has left it. All operations may be called on any thread.
class CProcessorList
{
public:
    /// The list begins empty, with the root selected in both panes. All references must outlive it.
    CProcessorList(CMessageDispatcher& dispatcherIn, CHostEvents& eventsIn, const CHostState& hostIn,
                   const SListLimits& limitsIn);

    /// Sets who is called when a command or a found node has changed the Discovered list: there is something
    /// to save. Called on the thread of the change, without a lock. Once, before the first change.
    void SetEditListener(const std::function<void()>& listenerNew);

    /// Sets who follows what replacements and restores do to the list, and is asked then for what is heard of processors that
    /// come. Called with the list's lock held, so that no report comes in between. Once, before the first change.
    void SetNetwork(IDeviceNetwork& networkIn);

    /// What the rules ask: project and locks. Lives as long as the library.
    const CHostState& GetHost() const
    {
        return host;
    }

    /// The same for the life of the list.
    const SListLimits& GetLimits() const
    {
        return rules.GetLimits();
    }

    /// A copy, cheap, which nobody writes; true for the Simulator pane. So are those below.
    SProcessorAllNode GetTree(bool bSimulator) const;
    CNodeTree CopyTree(bool bSimulator) const;            ///< as GetTree, with what can be asked of it
    SListEdition GetEdition() const;                      ///< of the Discovered list
    SListSnapshot GetSnapshot() const;                    ///< of both panes
    SProcessorGroupNode CopyGroup(const QUuid& id) const; ///< of either pane; empty when it is gone

    /// Takes no lock: it is called with other locks held.
    bool IsSimulatorPane() const
    {
        return bSimulatorPane;
    }

    /// Followed by MessageSelectionChanged when that is another pane.
    void SetSimulatorPane(bool bSimulator);

    /// Of the current pane; ids that are gone are left out. False, without a message, when all are gone.
    bool SetSelection(const std::vector<QUuid>& vecId);

    std::vector<QUuid> GetSelection(bool bSimulator) const; ///< in the order in which it was set
    std::vector<QUuid> GetSelectedProcessors() const;       ///< of the current pane, members of groups included, each once

    /// To the current pane, empty: the processors in its record are not taken. Refused for a bad name, an empty
    /// or taken id, too many numbers or groups.
    void AddGroup(SProcessorGroupNode group, EnOrigin origin = OriginUser);

    /// A processor or a group of either pane; the name it has is no change. Refused for a bad name or an id that is gone.
    void RenameNode(const QUuid& id, const QString& strName, EnOrigin origin = OriginUser);

    /// To the end of a group of its pane, or of the root for a null idGroup; a Chief loses its mark.
    void MoveProcessor(const QUuid& id, const QUuid& idGroup, EnOrigin origin = OriginUser);

    /// A null id stands for the root of the current pane. One that is gone changes nothing.
    void SetExpanded(const QUuid& id, bool bExpanded);

    /// Null for no Chief. Not refused by a lock: it is the host's to say. A group that is gone changes nothing.
    void SetChief(const QUuid& idGroup, const QUuid& idChief);

    /// As SetChief, but a command of the user. Refused for a group or a member that is not there.
    void ChooseChief(const QUuid& idGroup, const QUuid& idChief);

    /// Why a processor, or a group with its processors, may not be deleted; none when it may, or when it is not there.
    SFault FindDeleteFault(const QUuid& id) const;

    /// True when it is gone, also before; false when it was refused.
    bool RemoveProcessor(const QUuid& id, EnOrigin origin = OriginUser);

    /// Returns the processors that went with the group, for the network to forget. Without them they move to the
    /// end of the root.
    QList<SProcessorNode> RemoveGroup(const QUuid& id, bool bWithProcessors, EnOrigin origin = OriginUser);

    /// Why the Discovered list cannot take a processor at nIP (host order); none when it can.
    SFault FindAddFault(quint32 nIP) const;

    /// To the end of the root of a pane, mended to fit a list file. False when it was refused.
    bool AddProcessor(const SProcessorNode& device, bool bSimulator, EnOrigin origin = OriginUser);

    /// nCount of them, at least one, built for the Simulator pane as it stands: all of them to the end of its root, or none. The
    /// network follows. build is called with the list's lock held. False when it was refused.
    bool AddSimulators(int nCount, const std::function<QList<SProcessorNode>(const CNodeTree&)>& build,
                       EnOrigin origin = OriginUser);

    /// What a device reports: online state, role and project. A device that is not listed is ignored.
    void ApplyReport(const SProcessorNode& report);

    /// True when the Simulator pane has a node with an id of this list.
    bool IsAnySimulator(const SProcessorAllNode& node) const;

    /// The list of a file as ReplaceList would take it: processors that are listed, or that are heard, are in the state that
    /// they have reported, others in that of the file.
    SProcessorAllNode TakeReports(const SProcessorAllNode& node) const;

    /// Replaces the Discovered list by that of a file, which must fit the limits, see TakeReports; the network follows. Returns
    /// what was replaced. May be called with a lock held: what a command of the user has changed so is reported by
    /// ReportEdits.
    SListReplacement ReplaceList(const SProcessorAllNode& node,
                                 const SListCommand& command = { CommandImport, {}, {}, OriginLibrary });

    /// Makes the network know those of the processors that are in either pane, and forget the others.
    void FollowNodes(const QList<QUuid>& listId) const;

    /// Reports the edits that wait. Without a lock.
    void ReportEdits();

    /// Takes back or makes again what lies between two snapshots, in both panes, by PaneMerge: all or nothing. The network
    /// follows; restore has what came and went. What it returns was refused. May be called with a lock held: it reports nothing
    /// but the message.
    SFault Restore(const SListSnapshot& from, const SListSnapshot& to, SListRestore& restore);

    /// What Restore would refuse now.
    SFault FindRestoreFault(const SListSnapshot& from, const SListSnapshot& to) const;

    int GetNodeType(const QUuid& id) const;         ///< EnNodeType; NodeAll for a null id, 0 when it is gone
    bool IsActive(const QUuid& id) const;           ///< its device answers; a group is always active
    bool IsInUse(const QUuid& id) const;            ///< it, or a member of it, answers and runs the open project
    QUuid FindByName(const QString& strName) const; ///< in the Discovered pane first; null without one
    QString FindName(const QUuid& id) const;        ///< of a node of either pane; empty when it is gone

    /// Logs a command that was refused elsewhere, reports it, and sends MessageCommandRefused for it.
    void Refuse(EnMessageSender sender, const SListCommand& command, const SFault& fault);

private:
    using Lock = std::lock_guard<std::mutex>; ///< whoever takes one as a parameter works under it
    using Body = std::function<SOutcome()>;

    /// What follows a change.
    struct SNotice
    {
        EnMessageSender sender;
        int nMessage;
    };

    void Carry(const SListCommand& command, const Body& body);
    void Carry(const SListCommand& command, const Body& body, const SNotice& notice);
    void Announce(const SOutcome& outcome, const SNotice& notice);
    void Count(const Lock& lock, const SOutcome& outcome);
    void Append(const Lock& lock, const SListCommand& command, int nNodes, const SListSnapshot& before);
    SListSnapshot TakeSnapshot(const Lock& lock) const;
    SProcessorAllNode TakeReports(const Lock& lock, const SProcessorAllNode& node) const;
    QHash<QUuid, SProcessorNode> Hear(const Lock& lock, const SProcessorAllNode& node) const;
    void Follow(const Lock& lock, const QList<QUuid>& listId) const;
    SFault TryRestore(const Lock& lock, const SListSnapshot& from, const SListSnapshot& to, SListRestore& restore) const;

    CMessageDispatcher& dispatcher;
    CHostEvents& events;
    const CHostState& host;
    std::function<void()> listenerEdit; ///< never replaced once it is set
    IDeviceNetwork* pNetwork = nullptr; ///< as listenerEdit
    CListEdits edits;

    std::atomic<bool> bSimulatorPane{ false };

    mutable std::mutex mutex; ///< guards all below; the network's own is taken within it
    CPanes panes;
    CListRules rules;
    quint64 nEdit = 0;    ///< how often the Discovered list was changed but by reports of devices
    quint64 nEdition = 0; ///< how often either pane was but by reports and folding
};
