#pragma once

#include "contract/SOutcome.h"
#include "contract/steps/CStepRunner.h"

class CSite;

/// How a promise is tried: by a script, or by steps and the oracle that judges each of them.
struct SCheck
{
    enum EnMode
    {
        Plain = 0,
        Bare = 1,     ///< on the list as it is: nothing is prepared
        Slow = 2,     ///< what devices do takes its time
        Listen = 4,   ///< an observer is attached
        Await = 32,   ///< and each change that shows has its message before the next step
        Lifted = 8,   ///< without limits
        Orderly = 16, ///< the process ends as a program does, not at once
    };

    const char* szId;
    int nMode;
    SOutcome (*pScript)(CSite& site); ///< null where there are steps
    StepOracle pOracle;               ///< null where there is a script
    std::vector<EnVerb> vecVerb;      ///< the first is the one that it is about; VerbCount for all
    std::vector<SStep> vecFirst;      ///< the sequence that is tried before random ones: something of everything
    StepProof pProof = nullptr;       ///< one of the steps must have done that; null where taking it is enough
    const char* szUnproven = nullptr; ///< what to say when none has
};

/// The checks of the promises that can be tried, and the parts that some of them run in a second process.
namespace Checks {

/// Null for none of that name.
const SCheck* Find(const QString& strId);

/// On a site that is prepared as the check asks for.
SOutcome Run(const SCheck& check, CSite& site);

} // namespace Checks
