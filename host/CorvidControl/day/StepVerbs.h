#pragma once

#include <QJsonValue>
#include <QString>

#include <vector>

class CStepRunner;
struct SScenarioStep;
struct SStepResult;

/// What the value of a key may be.
struct SStepValue
{
    const char* szWhat; ///< in words: "must be " and this
    bool (*isGood)(const QJsonValue& value);
};

/// A key of a step beside "at" and "do".
struct SStepKey
{
    const char* szName;
    const SStepValue* pValue;           ///< never null
    bool bNeeded = true;                ///< false: the step may leave it out
    const char* szSubstitute = nullptr; ///< what a step without the key means, for people; null when it goes without saying
};

/// Something that a scenario can do.
struct SStepVerb
{
    const char* szName; ///< the value of "do"
    std::vector<SStepKey> vecKey;
    const char* szEffect; ///< one sentence for docs/scenarios.md, as Markdown
    SStepResult (CStepRunner::*action)(const SScenarioStep& step);
    bool bBlocking = false; ///< the action takes as long as a device takes
    bool bFault = false;    ///< something goes wrong on purpose; the action may be taken on any thread
};

/// All that a step can do, one entry each: the files are checked and the steps are taken by it, and a test holds the
/// table of docs/scenarios.md against it. To add a verb, add an entry and its action in CStepRunner. For any
/// thread.
namespace StepVerbs {

/// What "at" of a step or a mark may be.
const SStepValue& GetTimeValue();

/// In the order of the document.
const std::vector<SStepVerb>& GetAll();

/// Null when there is no such verb. Lives as long as the library.
const SStepVerb* Find(const QString& strDo);

} // namespace StepVerbs
