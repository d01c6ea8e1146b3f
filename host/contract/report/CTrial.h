#pragma once

#include "contract/SContractOptions.h"
#include "contract/SOutcome.h"
#include "contract/steps/Steps.h"

#include <chrono>
#include <vector>

struct SCheck;

/// Tries one promise, by as many attempts as it takes. A sequence that breaks it is made as short as it goes.
class CTrial
{
public:
    CTrial(const SContractOptions& optionsIn, const QString& strIdIn) : options(optionsIn), strId(strIdIn) { }

    /// Blocks. Any thread. Once.
    SOutcome Run();

private:
    SOutcome Attempt(const std::vector<SStep>& vecStep, const QString& strFile = {}) const;
    SOutcome RunScript() const;
    SOutcome RunSequences(const SCheck& check) const;

    const SContractOptions& options;
    const QString strId;
};
