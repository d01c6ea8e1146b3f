#pragma once

#include "nodes/SProcessorAllNode.h"

#include <QObject>

#include <atomic>
#include <vector>

class QReadWriteLock;
struct SStoreReading;

/// The snapshot of the control library's data: the one place in the panel where it does not change under
/// the reader.
///
/// The worker's thread writes it in Refresh(); the widgets read it by copy on the GUI thread, so that
/// painting never calls the control library and a slow library never blocks the screen. A query that
/// finds nothing returns a default-built record, whose idNode is null. Two queries in a row can see
/// two different snapshots.
///
/// A query works on the current pane unless its name or argument says otherwise. Every query may be
/// called on any thread, also from a slot that is connected directly to one of the signals.
class CProcessorTreeData : public QObject
{
    Q_OBJECT

public:
    CProcessorTreeData();
    ~CProcessorTreeData() override;

    /// Name of the open project; empty for none.
    QString GetProjectName() const;

    /// Ids of the selected nodes, in the order of the control library. Before the first refresh one id that
    /// no node has.
    std::vector<QUuid> GetSelectedNodes() const;

    /// The same for one pane, true Simulator.
    std::vector<QUuid> GetSelectedNodes(bool bSimulator) const;

    /// The user may start a refresh.
    bool IsRefreshEnabled() const;

    /// Nothing may be deleted or imported.
    bool IsListLocked() const;

    /// Chief marks are drawn.
    bool IsChiefMode() const;

    /// The current pane, true Simulator.
    bool IsSimulatorPane() const;

    /// Emits nothing: whoever switches the pane also shows it.
    void SetSimulatorPane(bool bSimulator);

    /// Replaces the selection of the current pane. False when it was the same, order included.
    bool SetSelectedNodes(const std::vector<QUuid>& vecId);

    /// Assigns the tree of a pane to node.
    void GetSimulatorTree(SProcessorAllNode& node) const;
    void GetDiscoveredTree(SProcessorAllNode& node) const;
    void GetCurrentTree(SProcessorAllNode& node) const;

    /// Replaces the tree of the current pane. Takes the read lock only: it serves a single-threaded set-up, the
    /// panel never calls it.
    void SetCurrentTree(const SProcessorAllNode& node);

    /// Appends a group to the current pane. The panel never calls it.
    void AppendGroup(const SProcessorGroupNode& node);

    /// Processors inside and outside of groups.
    int GetProcessorCount() const;

    /// Members of a group; 0 for any other id.
    int GetGroupProcessorCount(const QUuid& id) const;

    /// The first group with this id.
    SProcessorGroupNode GetGroup(const QUuid& id) const;

    /// The first processor with this id, inside or outside of groups.
    SProcessorNode GetProcessor(const QUuid& id) const;

    /// Name of a group or a processor; null for any other id, the null id included.
    QString GetNodeName(const QUuid& id) const;

    /// Sets bExpanded of a group, a processor or, by the null id, of the root. The caller passes the
    /// same to the control library, so that the next reading finds no difference.
    void SetExpanded(const QUuid& id, bool bExpanded);

    /// Reads the control library, replaces what differs and announces it. Called on a worker's thread only, of
    /// which each panel has one. Reads without the lock, then holds it for writing through all emissions.
    void Refresh();

signals:
    // Emitted under the write lock on the worker's thread, in one refresh always in the order
    // NotifyChiefChanged, NotifyNodeInfo or else NotifyButton, NotifyNodeSelectChanged,
    // NotifyWindowTitle. The tree emits NotifyButton and NotifyNodeInfo too, on the GUI thread and
    // without the lock.

    void NotifyNodeInfo();          ///< the tree of the current pane has changed
    void NotifyButton();            ///< only the state of the commands has changed
    void NotifyNodeSelectChanged(); ///< the selection of the current pane has changed
    void NotifyWindowTitle();       ///< the name of the project has changed
    void NotifyChiefChanged();      ///< Chief-Member mode was switched

private:
    class CLock;
    class CReadLocker;
    class CWriteLocker;
    class CRefreshLocker;
    struct SChanges;

    // What needs the lock takes it as its first parameter.
    SProcessorAllNode& CurrentRoot(const CLock& lock);
    const SProcessorAllNode& CurrentRoot(const CLock& lock) const;
    SChanges Replace(const CRefreshLocker& locker, const SStoreReading& reading);
    void Announce(const CRefreshLocker& locker, const SChanges& changes);

    SProcessorAllNode CopyCurrentTree() const;

    QReadWriteLock* pLock; ///< recursive; guards the fields from here to bChiefMode
    bool bSimulatorPane = false;
    SProcessorAllNode nodeDiscovered;
    SProcessorAllNode nodeSimulator;
    std::vector<QUuid> vecSelectedDiscovered;
    std::vector<QUuid> vecSelectedSimulator;
    QString strProjectName;
    bool bRefreshEnabled = true;
    bool bListLocked = false;
    bool bChiefMode = false;

    /// The thread inside Refresh() while it holds the lock, null otherwise.
    std::atomic<Qt::HANDLE> hWriter{ nullptr };
};

/// The one store of the process; never null while the module is loaded.
extern CProcessorTreeData* g_pProcessorTreeData;
