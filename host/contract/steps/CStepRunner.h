#pragma once

#include "contract/library/SReading.h"
#include "contract/steps/Steps.h"

#include <QSet>

#include <chrono>

class CListener;
class CSite;

/// A step that was taken, and what was read around it. What a verb does not use stays empty.
struct SStepRun
{
    EnVerb verb = VerbPane;
    SReading before;
    SReading after;
    SReading again; ///< once more, with nothing done in between
    int nPane = 0;  ///< the current pane at the step
    QUuid id;       ///< the node that it is about
    QUuid idGroup;  ///< where a processor is moved; null for the root
    QSet<QUuid> setGone;
    bool bOn = false;
    bool bAnswer = false;
    bool bAllowed = false; ///< the library's own questions allow it: no lock, not in use, active
    QString strName;
    std::vector<QUuid> vecId;
    std::chrono::milliseconds time{ 0 };
    bool bMessage = true;   ///< a change that shows was followed by a message; only where a listener was there
    bool bOnCaller = false; ///< a Notify came on the caller's stack
};

/// What is wrong with a step, in a sentence; empty for nothing.
using StepOracle = QString (*)(const SStepRun& run);

/// Whether a step has put a promise to the test at all.
using StepProof = bool (*)(const SStepRun& run);

/// Takes steps on a site.
class CStepRunner
{
public:
    /// siteIn must outlive it; pListener, which may be null, too, and is attached. bAwait: each change that shows is
    /// followed by a message to it, or bMessage is false.
    CStepRunner(CSite& siteIn, CListener* pListenerIn, bool bAwaitIn) : site(siteIn), pListener(pListenerIn), bAwait(bAwaitIn) { }

    /// Takes the step and asks the oracle. What a library may do a little later is waited for. Empty when there was
    /// nothing to do.
    QString Run(const SStep& step, StepOracle oracle);

    /// A step of that verb has done something, or should have; of any for VerbCount.
    bool WasTried(EnVerb verb) const;

    const SStepRun& GetLast() const; ///< the step of the last Run

private:
    bool Act(const SStep& step, SStepRun& run);
    bool ActOnGroup(const SStep& step, SStepRun& run);
    bool ActOnProcessor(const SStep& step, SStepRun& run);
    bool ActOnSelection(const SStep& step, SStepRun& run);
    bool ActOnNode(const SStep& step, SStepRun& run);
    bool ActOnFile(const SStep& step);
    bool ActOnHost(const SStep& step, SStepRun& run);
    bool ActOnStray(const SStep& step, SStepRun& run);
    bool Delete(SStepRun& run);
    QUuid FindStray(const SStep& step, SStepRun& run);
    bool MayDelete(const SStepRun& run) const;
    void Watch(SStepRun& run, int nReadings);
    void NoteTried(const SStepRun& run);
    QString NewName();

    CSite& site;
    CListener* pListener;
    const bool bAwait;
    SStepRun last;
    int nName = 0;
    QSet<int> setTried; ///< EnVerb
    QUuid idGone;       ///< of a node that this runner has deleted
};
