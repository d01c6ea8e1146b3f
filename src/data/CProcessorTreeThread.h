#pragma once

#include "interfaces/widgets/CBaseThread.h"

/// Keeps the store up to date. The control library's messages are queued on whatever thread brings them; the
/// loop, on a thread of its own, runs one refresh of the store for each.
///
/// Attached to seven control objects from its construction to its destruction. Created on the GUI
/// thread without a parent, then moved to its thread, on which it is destroyed unless that thread never ran.
/// Final, since it is called before its constructor and until its destructor has ended.
class CProcessorTreeThread final : public CBaseThread
{
    Q_OBJECT

public:
    /// Attaches to the seven control objects. parent must be null, since the object is moved to its thread.
    explicit CProcessorTreeThread(QObject* parent = nullptr);
    ~CProcessorTreeThread() override;

    /// Queues the number of a message that matters and wakes the loop. Any thread. Takes no lock for a
    /// message that is dropped.
    void Notify(int nMessage) override;

public slots:
    /// The loop, on the thread to which the object was moved. Paces itself: at least 10 ms between two
    /// messages that were waiting together.
    void ThreadStart() override;

signals:
    /// Message 59 has come. Emitted on the worker's thread; the panel itself does not listen.
    void UpdateToolBar();

private:
    void Deal(int nMessage);
};
