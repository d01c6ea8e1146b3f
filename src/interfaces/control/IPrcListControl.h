#pragma once

#include <QString>
#include <QUuid>

#include <vector>

class CObserver;
struct SProcessorAllNode;
struct SProcessorGroupNode;

/// The list of processors: its two trees, its groups, its file. All operations may be called on any thread, at the same time as
/// all others. [C-library-4 required] A null id stands for the root of the current pane wherever a node is expected. An id that
/// is null, unknown or gone never harms the list: the panel may know a node a moment longer. [C-library-5 required]
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IPrcListControl
{
public:
    /// As IPrcBasicControl::Attach.
    virtual void Attach(CObserver* pObserver) = 0;

    /// As IPrcBasicControl::Detach.
    virtual void Detach(CObserver* pObserver) = 0;

    /// Writes the Discovered list to strPath; nOption is always 0. 0: the file has this list, for ImportList. [C-list-1 required]
    /// 1: what is left there is worthless, and the panel removes it as it ends; any other: it keeps it. [C-list-2 required]
    /// Two processes that share GetListFilePath() keep all that was answered by 0. [C-list-3 recommended]
    virtual qint32 ExportList(QString strPath, qint32 nOption) = 0;

    /// Replaces the Discovered list by the file strPath. On any result but 0 the list is as it was [C-list-5 required]: 2
    /// the file is no valid list [C-list-4 required], 3 the library's own list could not be overwritten, 4 the file could
    /// not be copied [C-list-6 not testable], 5 too many processors [C-list-7 required].
    virtual qint32 ImportList(QString strPath) = 0;

    /// Fills node, default-built by the caller, with the tree of the Discovered pane.
    virtual void GetDiscoveredTree(SProcessorAllNode& node) = 0;

    /// Fills node, default-built by the caller, with the tree of the Simulator pane.
    virtual void GetSimulatorTree(SProcessorAllNode& node) = 0;

    /// Adds the empty group to the current pane under its own id. [C-list-8 required] bEmpty: no processors will follow into it.
    virtual void AddGroup(SProcessorGroupNode node, bool bEmpty) = 0;

    /// Deletes a group: with its processors, as DeleteProcessor does [C-list-9 required]; or, bWithProcessors false, the group
    /// only: they move to the root of the pane, and the call must not block [C-list-10 required]. An id that is gone is ignored.
    virtual void DeleteGroup(QUuid idGroup, bool bWithProcessors) = 0;

    /// Deletes a processor; bOption is always false. May block as long as the device takes. [C-list-11 required] An id
    /// that is gone is ignored: a processor may have left with its group a moment before.
    virtual void DeleteProcessor(QUuid idProcessor, bool bOption) = 0;

    /// Moves a processor into a group, or to the root of its pane for a null idGroup. [C-list-12 required]
    virtual void MoveProcessor(QUuid idProcessor, QUuid idGroup) = 0;

    /// Sets the name of a group. The library may refuse; the old name then stays. [C-list-13 required]
    virtual void RenameGroup(QUuid idGroup, QString strName) = 0;

    /// For a processor: true allows renaming it. Where IRuntimeControl::IsNodeInUse is true for it as well, it blocks
    /// the deletion of the selection. [C-list-14 not testable]
    virtual bool IsNodeActive(QUuid idNode) = 0;

    /// Whether a node is expanded: the next tree has it [C-list-15 required]; null: the pane's root [C-list-16 required].
    virtual void SetExpanded(QUuid idNode, bool bExpanded) = 0;

    /// Number of simulators present; the panel adds up to nMaxSimulators in all. [C-list-17 required]
    virtual qint32 GetSimulatorCount() = 0;

    /// The number for the name of the next new group, 1 or more. [C-list-18 recommended]
    virtual qint32 GetNextGroupIndex() = 0;

    /// Fills vecIP, empty, with the IPv4 addresses, host order, of the list's processors. [C-list-19 required]
    virtual void GetProcessorIPs(std::vector<uint>& vecIP) = 0;

    /// The EnNodeType of a node; for an id that is unknown any but that of a group. [C-list-20 required]
    virtual qint32 GetNodeType(QUuid idNode) = 0;

protected:
    ~IPrcListControl() = default;
};
