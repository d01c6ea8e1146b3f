#pragma once

#include "contract/Promises.h"
#include "contract/SContractOptions.h"
#include "contract/SOutcome.h"

#include <atomic>

/// A promise and what became of it. The outcome means nothing for one that is not testable.
struct SResult
{
    SPromise promise;
    SOutcome outcome;

    bool IsBroken() const
    {
        return outcome.result == SOutcome::Broken && promise.kind == SPromise::Required;
    }
};

/// Tries the library by all promises that the options ask for.
class CContractRun
{
public:
    /// optionsIn must outlive it.
    explicit CContractRun(const SContractOptions& optionsIn) : options(optionsIn) { }

    /// Loads the library, to see on what it works. The reason, in a sentence, why it must not be tried; empty when it may.
    QString Prepare();

    /// Blocks. After Prepare.
    std::vector<SResult> Run();

private:
    void SortSlowFirst(const std::vector<SResult>& vecResult);
    void Work(std::vector<SResult>& vecResult);
    void Try(SResult& result) const;

    const SContractOptions& options;
    SOutcome loading;               ///< of the first promise: whether the library can be tried at all
    SOutcome making;                ///< of the list that attempts work on
    QString strCulprit;             ///< the promise of the call that makes no list; empty where there is one
    bool bShared = false;           ///< all attempts work on one list, which is the user's
    std::vector<size_t> vecOrder;   ///< in which they are tried
    std::atomic<size_t> nNext{ 0 }; ///< in it
};
