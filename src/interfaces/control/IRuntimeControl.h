#pragma once

#include <QUuid>

#include <vector>

class CObserver;

/// The host at run time: the current pane, the selection, the busy state. All operations may be called
/// on any thread, at the same time as all others. A null id stands for the root of the current pane.
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IRuntimeControl
{
public:
    /// As IPrcBasicControl::Attach.
    virtual void Attach(CObserver* pObserver) = 0;

    /// As IPrcBasicControl::Detach.
    virtual void Detach(CObserver* pObserver) = 0;

    /// Delivers a message number to the observers, on a thread of the library, never in the caller's
    /// stack.
    virtual void PostMessage(qint32 nMessage) = 0;

    /// The current pane: true Simulator, false Discovered. Must never wait for anything: the panel
    /// calls it while it holds the lock for which its GUI thread may be waiting.
    virtual bool IsSimulatorPane() = 0;

    /// The user switched the pane.
    virtual void SetSimulatorPane(bool bSimulator) = 0;

    /// Sets the selection of the current pane, in the order in which the panel reports it, which need not
    /// be that of the rows; the order counts. A null id is the root, alone or among others. Returns
    /// false when the library refuses it.
    virtual bool SetSelectedNodes(const std::vector<QUuid>& vecId) = 0;

    /// The selection of a pane, true Simulator.
    virtual std::vector<QUuid> GetSelectedNodes(bool bSimulator) = 0;

    /// The processors of the selection, on which deletion is tested.
    virtual std::vector<QUuid> GetSelectedProcessors() = 0;

    /// For a single selected node: true disables the tool bar's Delete.
    virtual bool IsDeleteBlocked(QUuid idNode) = 0;

    /// For two or more selected nodes: true for any of them disables the tool bar's Delete.
    virtual bool IsNodeInUse(QUuid idNode) = 0;

    /// True before a job starts in the background (GUI thread), false as its last step (the job's own
    /// thread). The calls of two jobs may overlap.
    virtual void SetBusy(bool bBusy) = 0;

protected:
    ~IRuntimeControl() = default;
};
