#include "contract/checks/Checks.h"

#include "contract/checks/FileChecks.h"
#include "contract/checks/ListChecks.h"
#include "contract/checks/MessageChecks.h"
#include "contract/checks/ThreadChecks.h"
#include "contract/library/CListener.h"
#include "contract/library/CSite.h"
#include "contract/library/CStory.h"
#include "contract/steps/StepOracles.h"
#include "contract/steps/StrayCalls.h"

#include <algorithm>

namespace {

using namespace StepOracles;

constexpr std::chrono::milliseconds timeMessage{ 1000 };

const std::vector<EnVerb> vecAll{ VerbCount,     VerbPane,       VerbExpand,      VerbExpandRoot,
                                  VerbSelect,    VerbAddGroup,   VerbRenameGroup, VerbRenameProcessor,
                                  VerbMove,      VerbMoveToRoot, VerbDissolve,    VerbDeleteProcessor,
                                  VerbSelectRoot };

std::vector<EnVerb> With(std::vector<EnVerb> vecVerb, const std::vector<EnVerb>& vecMore)
{
    vecVerb.insert(vecVerb.end(), vecMore.begin(), vecMore.end());
    return vecVerb;
}

// Each verb on the first three nodes of both panes; each stray call with each kind of id.
std::vector<SStep> BuildFirst(const std::vector<EnVerb>& vecVerb)
{
    constexpr int nRounds = 3;
    std::vector<SStep> vecStep;
    for (int nRound = 0; nRound < nRounds; ++nRound) {
        for (const EnVerb verb : vecVerb) {
            const int nTimes = verb == VerbStray && nRound == 0 && vecStep.empty() ? nRounds * StrayCalls::GetCount() : 1;
            for (int n = 0; n < nTimes && verb != VerbCount; ++n) {
                vecStep.push_back({ verb, nRound + n, nTimes == 1 ? nRound + 1 : n / nRounds });
            }
        }
        vecStep.push_back({ VerbPane, 0, 0 });
    }
    return vecStep;
}

SOutcome MakeList(CSite&)
{
    return Outcome::Keep();
}

SCheck Script(const char* szId, SOutcome (*pScript)(CSite&), int nMode = SCheck::Plain)
{
    return { szId, nMode, pScript, nullptr, {}, {}, nullptr, nullptr };
}

SCheck Sequence(const char* szId, StepOracle pOracle, const std::vector<EnVerb>& vecVerb, int nMode = SCheck::Plain)
{
    return { szId, nMode, nullptr, pOracle, vecVerb, BuildFirst(vecVerb), nullptr, nullptr };
}

SCheck Proven(SCheck check, StepProof pProof, const char* szUnproven)
{
    check.pProof = pProof;
    check.szUnproven = szUnproven;
    return check;
}

std::vector<SCheck> BuildSequences()
{
    return {
        Proven(Sequence("C-library-3", JudgeMessages,
                        With(vecAll, { VerbHost, VerbFile, VerbAddProcessor, VerbDeleteGroup, VerbFile }),
                        SCheck::Listen | SCheck::Await),
               HasChangedSight, "no call has changed anything that shows"),
        Sequence("C-library-5", JudgeStrayIds, { VerbStray, VerbStray, VerbStray, VerbPane, VerbAddGroup, VerbDissolve }),
        Sequence("C-basic-6", JudgeRenameProcessor, { VerbRenameProcessor, VerbRenameProcessor, VerbPane, VerbMove }),
        Sequence("C-list-8", JudgeAddGroup, { VerbAddGroup, VerbAddGroup, VerbPane, VerbExpandRoot }),
        Sequence("C-list-9", JudgeDeleteGroup, { VerbDeleteGroup, VerbDeleteGroup, VerbAddGroup, VerbMove, VerbMove, VerbPane }),
        Sequence("C-list-10", JudgeDissolve, { VerbDissolve, VerbDissolve, VerbAddGroup, VerbMove, VerbMove, VerbPane }),
        Sequence("C-list-11", JudgeDeleteProcessor, { VerbDeleteProcessor, VerbDeleteProcessor, VerbMove, VerbPane }),
        Sequence("C-list-12", JudgeMove, { VerbMove, VerbMove, VerbMoveToRoot, VerbPane, VerbAddGroup }),
        Sequence("C-list-13", JudgeRenameGroup, { VerbRenameGroup, VerbRenameGroup, VerbPane, VerbAddGroup }),
        Sequence("C-list-15", JudgeExpanded, { VerbExpand, VerbExpand, VerbPane, VerbExpandRoot, VerbMove }),
        Sequence("C-list-16", JudgeRootExpanded, { VerbExpandRoot, VerbExpandRoot, VerbPane, VerbExpand }),
        Sequence("C-runtime-3", JudgePane, { VerbPane, VerbSelect, VerbExpand, VerbAddGroup }),
        Sequence("C-runtime-4", JudgeSelection, { VerbSelect, VerbSelect, VerbPane, VerbSelectRoot, VerbMove }),
        Proven(Sequence("C-runtime-5", JudgeSelectionOrder, { VerbSelect, VerbSelect, VerbSelectRoot, VerbPane }),
               HasSelectedSeveral, "no selection of several nodes has come back"),
        Proven(Sequence("C-runtime-6", JudgeOtherSelection, { VerbPane, VerbSelect, VerbSelect, VerbSelectRoot }), HasSelected,
               "the library refuses every selection"),
        Sequence("C-runtime-7", JudgeSelectedRoot, { VerbSelectRoot, VerbSelectRoot, VerbSelect, VerbPane }),
        Sequence("C-observer-1", JudgeStack, With(vecAll, { VerbPost, VerbFile, VerbAddProcessor }), SCheck::Listen),
        Sequence("C-node-1", JudgeIds, vecAll),
        Sequence("C-node-2", JudgeCarried, With(vecAll, { VerbFile, VerbFile })),
        Sequence("C-node-3", JudgeOrder, vecAll),
    };
}

std::vector<SCheck> BuildScripts()
{
    return {
        Script("C-library-1", ListChecks::TryObjects, SCheck::Bare),
        Script("C-library-4", ThreadChecks::TryThreads, SCheck::Slow),
        Script("C-config-1", ListChecks::TryReservedIPs, SCheck::Bare),
        Script("C-config-2", ListChecks::TryListFilePath, SCheck::Bare),
        Script("C-basic-1", MessageChecks::TryFirstMessage, SCheck::Bare),
        Script("C-basic-2", MessageChecks::TryDetach),
        Script("C-basic-3", ListChecks::TryRefresh, SCheck::Bare),
        Script("C-basic-4", ListChecks::TrySimulators, SCheck::Bare),
        Script("C-basic-5", ListChecks::TryAddProcessor, SCheck::Bare),
        Script("C-basic-7", ListChecks::TryTypeName, SCheck::Bare),
        Script("C-list-1", FileChecks::TryRoundTrip),
        Script("C-list-2", FileChecks::TryResultOne),
        Script("C-list-3", FileChecks::TrySecondProcess, SCheck::Bare),
        Script("C-list-4", FileChecks::TryInvalidFiles),
        Script("C-list-5", FileChecks::TryFailedImport),
        Script("C-list-7", FileChecks::TryTooMany),
        Script("C-list-17", ListChecks::TrySimulatorCount),
        Script("C-list-18", ListChecks::TryGroupIndex),
        Script("C-list-19", ListChecks::TryProcessorIPs),
        Script("C-list-20", ListChecks::TryNodeType),
        Script("C-runtime-1", MessageChecks::TryPost),
        Script("C-runtime-2", ThreadChecks::TryPaneWhileHeld, SCheck::Slow),
        Script("C-runtime-11", ListChecks::TryBusy, SCheck::Bare),
        Script("C-project-1", ListChecks::TryProject, SCheck::Bare),
        Script("C-observer-2", MessageChecks::TryReadDuringNotify),
        Script("C-observer-3", MessageChecks::TryCallInNotify),
        Script("part-list", MakeList),
        Script("part-second", FileChecks::BeSecondProcess, SCheck::Bare | SCheck::Orderly),
        Script("part-third", FileChecks::BeThirdProcess, SCheck::Bare),
        Script("part-many", FileChecks::ExportMany, SCheck::Bare | SCheck::Lifted),
    };
}

std::vector<SCheck> BuildAll()
{
    std::vector<SCheck> vecCheck = BuildSequences();
    const std::vector<SCheck> vecScript = BuildScripts();
    vecCheck.insert(vecCheck.end(), vecScript.begin(), vecScript.end());
    return vecCheck;
}

// Takes the steps up to the first fault.
SOutcome RunSteps(const SCheck& check, CSite& site, CListener* pListener)
{
    CStepRunner runner(site, pListener, (check.nMode & SCheck::Await) != 0);
    bool bProven = !check.pProof;
    for (const SStep& step : site.GetAttempt().vecStep) {
        const QString strFault = runner.Run(step, check.pOracle);
        if (!strFault.isEmpty()) {
            return Outcome::Break(strFault);
        }
        bProven = bProven || check.pProof(runner.GetLast());
    }
    if (!runner.WasTried(check.vecVerb.front())) {
        return Outcome::LeaveUntried(QStringLiteral("the library's list is locked, or it has no node for it"));
    }
    return bProven ? Outcome::Keep() : Outcome::LeaveUntried(QString::fromLatin1(check.szUnproven));
}

// What comes while the observer is attached is the library's answer to that.
SOutcome RunHeard(const SCheck& check, CSite& site)
{
    CListener& listener = *new CListener(site.GetLibrary()); // never destroyed: a library may notify after Detach
    const QString strAttach = QStringLiteral("Attach of an observer to all seven objects");
    listener.GuardCaller();
    site.Ask(strAttach, [&] { listener.Attach(); });
    SStepRun run;
    run.bOnCaller = listener.WasOnCaller();
    const QString strFault = check.pOracle(run);
    if (!strFault.isEmpty()) {
        site.GetStory().Call(strAttach);
        return Outcome::Break(strFault);
    }
    const SOutcome outcome = RunSteps(check, site, &listener);
    const bool bHeard = outcome.result != SOutcome::Kept || listener.AwaitAny(timeMessage);
    site.Ask(QStringLiteral("Detach of the observer from all seven objects"), [&] { listener.Detach(); });
    return bHeard ? outcome : Outcome::LeaveUntried(QStringLiteral("no message came within 1 s of any call"));
}

} // namespace

const SCheck* Checks::Find(const QString& strId)
{
    static const std::vector<SCheck> vecCheck = BuildAll();
    const auto it = std::find_if(vecCheck.begin(), vecCheck.end(), [&](const SCheck& check) { return strId == check.szId; });
    return it == vecCheck.end() ? nullptr : &*it;
}

SOutcome Checks::Run(const SCheck& check, CSite& site)
{
    if (check.pScript) {
        return check.pScript(site);
    }
    return (check.nMode & SCheck::Listen) != 0 ? RunHeard(check, site) : RunSteps(check, site, nullptr);
}
