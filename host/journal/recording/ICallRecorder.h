#pragma once

struct SJournalRecord;

/// Receives every call, message and note in full, from the decorators and the host. All operations are called on any
/// thread, often where the panel or the control library holds locks of its own: they must not wait for anything.
class ICallRecorder
{
public:
    virtual ~ICallRecorder() = default;

    /// A call begins on this thread. Gives the record its number.
    virtual void Begin(SJournalRecord& record) = 0;

    /// A call has come back, also by an exception: the record of Begin with its result. Or a line of another kind, which
    /// gets its number, time and thread here.
    virtual void Write(SJournalRecord&& record) = 0;
};
