#pragma once

#include "journal/replay/IReplayAnswers.h"
#include "journal/replay/ReplayValue.h"

/// Passes the calls on one control object to what answers them. Any thread.
class CReplayCaller
{
public:
    /// szObjectIn is a literal, "PrcListControl"; answersIn must outlive it.
    CReplayCaller(IReplayAnswers& answersIn, const char* szObjectIn) : answers(answersIn), szObject(szObjectIn) { }

    template <typename... Args> SReplayAnswer Call(const char* szOperation, const Args&... args) const
    {
        return Ask(szOperation, { ReplayValue::Write(MakeValue(args))... });
    }

    void Attach(CObserver* pObserver) const;
    void Detach(CObserver* pObserver) const;

private:
    template <typename Value> static JournalValue MakeValue(const Value& value)
    {
        if constexpr (std::is_integral_v<Value> && !std::is_same_v<Value, bool>) {
            return JournalValue(qint64(value));
        } else {
            return JournalValue(value);
        }
    }

    SReplayAnswer Ask(const char* szOperation, const QJsonArray& args) const;

    IReplayAnswers& answers;
    const char* const szObject;
};
