#pragma once

#include <QString>
#include <QUuid>

#include <vector>

class CObserver;
struct SProcessorAllNode;
struct SProcessorGroupNode;

/// The list of processors: its two trees, its groups, its file. All operations may be called on any
/// thread, at the same time as all others. A null id stands for the root of the current pane wherever
/// a node is expected.
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

    /// Writes the Discovered list to the file strPath; nOption is always 0. Returns 0 on success.
    /// Returns 1 only when what it left at strPath is worthless: the panel then removes that file as it
    /// ends. A failure that leaves an earlier file in place returns any other number.
    virtual qint32 ExportList(QString strPath, qint32 nOption) = 0;

    /// Replaces the Discovered list by the file strPath. Returns 0 on success, 2 for a file that is no
    /// valid list, 3 when the library's own list could not be overwritten, 4 when the file could not be
    /// copied, 5 when it holds too many processors. On any result but 0 the list is as it was.
    virtual qint32 ImportList(QString strPath) = 0;

    /// Fills node, default-built by the caller, with the tree of the Discovered pane.
    virtual void GetDiscoveredTree(SProcessorAllNode& node) = 0;

    /// Fills node, default-built by the caller, with the tree of the Simulator pane.
    virtual void GetSimulatorTree(SProcessorAllNode& node) = 0;

    /// Adds the empty group to the current pane, under the id that it has. bEmpty: no processors will be moved into it.
    virtual void AddGroup(SProcessorGroupNode node, bool bEmpty) = 0;

    /// Deletes a group: with its processors, as DeleteProcessor does, or, bWithProcessors false, the group
    /// only: they move to the root of the pane, and the call must not block. An id that is gone is ignored.
    virtual void DeleteGroup(QUuid idGroup, bool bWithProcessors) = 0;

    /// Deletes a processor; bOption is always false. May block as long as the device takes. An id
    /// that is gone is ignored: a processor may have left with its group a moment before.
    virtual void DeleteProcessor(QUuid idProcessor, bool bOption) = 0;

    /// Moves a processor into a group, or to the root of its pane for a null idGroup.
    virtual void MoveProcessor(QUuid idProcessor, QUuid idGroup) = 0;

    /// Sets the name of a group. The library may refuse; the old name then stays.
    virtual void RenameGroup(QUuid idGroup, QString strName) = 0;

    /// For a processor: true allows renaming it. Where IRuntimeControl::IsNodeInUse is true for it as well, it blocks
    /// the deletion of the selection.
    virtual bool IsNodeActive(QUuid idNode) = 0;

    /// Stores whether a node is shown expanded; the next tree that is read holds the value.
    virtual void SetExpanded(QUuid idNode, bool bExpanded) = 0;

    /// Number of simulators present, 0 to nMaxSimulators.
    virtual qint32 GetSimulatorCount() = 0;

    /// The number for the name of the next new group, 1 or more.
    virtual qint32 GetNextGroupIndex() = 0;

    /// Appends to vecIP the IPv4 addresses, host order, of the list's processors.
    virtual void GetProcessorIPs(std::vector<uint>& vecIP) = 0;

    /// The EnNodeType of a node; 0 for an id that is unknown.
    virtual qint32 GetNodeType(QUuid idNode) = 0;

protected:
    ~IPrcListControl() = default;
};
