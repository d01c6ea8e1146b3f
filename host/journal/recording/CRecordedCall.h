#pragma once

#include "journal/CCallWriter.h"
#include "journal/LibraryCall.h"
#include "journal/recording/SJournalRecord.h"

#include <utility>

class ICallRecorder;

/// Brackets one call on a control object and records it in full when the bracket ends: arguments, result, duration. Stands
/// on the stack of the thread that calls. Records nothing where nobody does.
///
/// The call itself is carried out by Carry, Ask or Fill, for the panel catches nothing: what the library throws ends there, with
/// a note in the journal, and the panel gets an answer as for an id that is unknown.
class CRecordedCall
{
public:
    /// kind is RecordCommand or RecordRead. szOperation is a literal; writer must outlive the bracket.
    template <typename... Args>
    CRecordedCall(const CCallWriter& writerIn, EnRecordKind kind, const char* szOperationIn, const Args&... args)
        : writer(writerIn), szOperation(szOperationIn), pRecorder(writer.GetRecorder())
    {
        if (pRecorder) {
            record.vecArgument = { MakeValue(args)... };
            Begin(kind);
        }
    }

    ~CRecordedCall();
    Q_DISABLE_COPY(CRecordedCall)

    /// Writes at once that the call has begun: for one that may take long, or never come back.
    void Announce();

    /// Carries out body, a call on the library. False when it threw.
    template <typename Body> bool Carry(const Body& body)
    {
        const QString strThrown = LibraryCall::Try(body);
        if (!strThrown.isNull()) {
            NoteThrown(strThrown);
        }
        return strThrown.isNull();
    }

    /// What body returns, or the given answer when it threw.
    template <typename Answer, typename Body> Answer Ask(const Answer& otherwise, const Body& body)
    {
        Answer answer = otherwise;
        Carry([&] { answer = body(); });
        return answer;
    }

    /// Has body fill what is given, which stays as it was when it threw.
    template <typename Filled, typename Body> void Fill(Filled& filled, const Body& body)
    {
        Filled answer = filled;
        if (Carry([&] { body(answer); })) {
            filled = std::move(answer);
        }
    }

    /// What the call has returned or filled. Ends the measured time.
    template <typename Result> void SetResult(const Result& result)
    {
        if (pRecorder) {
            Stop();
            record.result = MakeValue(result);
        }
    }

private:
    template <typename Value> static JournalValue MakeValue(const Value& value)
    {
        if constexpr (std::is_integral_v<Value> && !std::is_same_v<Value, bool>) {
            return JournalValue(qint64(value));
        } else {
            return JournalValue(value);
        }
    }

    void Begin(EnRecordKind kind);
    void Stop();
    void NoteThrown(const QString& strThrown);

    const CCallWriter& writer;
    const char* const szOperation;
    ICallRecorder* const pRecorder;
    SJournalRecord record;
    bool bStopped = false;
};
