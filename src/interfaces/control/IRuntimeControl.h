#pragma once

#include <QUuid>

#include <vector>

class CObserver;

/// The host at run time: the current pane, the selection, the busy state. All operations may be called on any thread, at the same
/// time as all others. [C-library-4 required] A null id stands for the root of the current pane.
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

    /// Delivers a message number to the observers [C-runtime-1 required], on a thread of the library, never in the caller's
    /// stack [C-observer-1 recommended].
    virtual void PostMessage(qint32 nMessage) = 0;

    /// The current pane: true Simulator, false Discovered. Must never wait for anything: the panel calls it while it holds the
    /// lock for which its GUI thread may be waiting. [C-runtime-2 required]
    virtual bool IsSimulatorPane() = 0;

    /// The user switched the pane: IsSimulatorPane has it from now on. [C-runtime-3 required]
    virtual void SetSimulatorPane(bool bSimulator) = 0;

    /// Sets the selection of the current pane; false: refused. The nodes come back by the next reading [C-runtime-4 required], in
    /// this order, which need not be that of the rows [C-runtime-5 required]. A null id is the root, alone or among
    /// others [C-runtime-7 required].
    virtual bool SetSelectedNodes(const std::vector<QUuid>& vecId) = 0;

    /// The selection of a pane, true Simulator; each pane has its own. [C-runtime-6 required]
    virtual std::vector<QUuid> GetSelectedNodes(bool bSimulator) = 0;

    /// The processors of the selection, on which deletion is tested. [C-runtime-8 not testable]
    virtual std::vector<QUuid> GetSelectedProcessors() = 0;

    /// For a single selected node: true disables the tool bar's Delete. [C-runtime-9 not testable]
    virtual bool IsDeleteBlocked(QUuid idNode) = 0;

    /// For two or more selected nodes: true for any of them disables the tool bar's Delete. [C-runtime-10 not testable]
    virtual bool IsNodeInUse(QUuid idNode) = 0;

    /// True before a job starts in the background (GUI thread), false as its last step (the job's own
    /// thread). The calls of two jobs may overlap. [C-runtime-11 required]
    virtual void SetBusy(bool bBusy) = 0;

protected:
    ~IRuntimeControl() = default;
};
