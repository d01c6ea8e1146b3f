#include "contract/attempt/AttemptMain.h"

#include "contract/checks/Checks.h"
#include "contract/library/CSite.h"
#include "contract/library/CStory.h"

#include <QDir>

#include <csignal>
#include <exception>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int nUnlisted = 4; // devices that a scan finds

SAttempt ReadAttempt(const QStringList& listArgument)
{
    SAttempt attempt;
    attempt.strCheck = listArgument.value(0);
    attempt.strControl = listArgument.value(1);
    attempt.strFolder = listArgument.value(2);
    attempt.vecStep = Steps::Read(listArgument.value(3));
    attempt.strFile = listArgument.value(4);
    return attempt;
}

SControlOptions BuildOptions(const SAttempt& attempt, int nMode)
{
    const bool bSlow = (nMode & SCheck::Slow) != 0;
    const bool bLifted = (nMode & SCheck::Lifted) != 0;
    SControlOptions options;
    options.strListFile = bLifted ? attempt.strFolder + QStringLiteral("/lifted.kvtl") : attempt.GetListPath();
    options.bQuietDay = false;
    options.nUnlistedDevices = nUnlisted;
    options.nScanMs = bSlow ? 1500 : 20;
    options.nAnswerMs = bSlow ? 900 : 1;
    options.nTimeoutMs = bSlow ? 1500 : 20;
    options.nReleaseMs = bSlow ? 700 : 1;
    options.bLiftLimits = bLifted;
    return options;
}

// The story's own way out: what the library prints goes elsewhere.
int TakeOutput()
{
    const int nStory = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return nStory;
}

// A process group of its own: a library that ends its group ends this attempt alone, and what it started ends with it.
void LeaveNothingBehind()
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{};
    setrlimit(RLIMIT_CORE, &none);
}

SOutcome TryCheck(const SCheck& check, CSite& site)
{
    try {
        if ((check.nMode & SCheck::Bare) == 0) {
            site.PrepareList();
        }
        site.GetStory().Begin();
        return Checks::Run(check, site);
    } catch (const std::exception& exception) {
        return Outcome::Break(QStringLiteral("the last call has thrown: %1").arg(QString::fromLocal8Bit(exception.what())));
    } catch (...) {
        return Outcome::Break(QStringLiteral("the last call has thrown"));
    }
}

void Tell(CStory& story, const SOutcome& outcome)
{
    static const char* const listResult[] = { "kept", "broken", "untried" };
    story.Tell(QLatin1String(listResult[outcome.result]), outcome.strReason);
}

} // namespace

int AttemptMain::Run(const QStringList& listArgument)
{
    LeaveNothingBehind();
    const SAttempt attempt = ReadAttempt(listArgument);
    CStory story(TakeOutput());
    const SCheck* pCheck = Checks::Find(attempt.strCheck);
    if (!pCheck) {
        return 1;
    }
    auto* pLibrary = new CLibrary; // the process ends with it
    story.Read(QStringLiteral("loading the library"));
    if (!pLibrary->Load(attempt.strControl, BuildOptions(attempt, pCheck->nMode))) {
        Tell(story, Outcome::Break(pLibrary->GetError()));
        return 0;
    }
    story.Return();
    CSite site(*pLibrary, story, attempt);
    Tell(story, TryCheck(*pCheck, site));
    if ((pCheck->nMode & SCheck::Orderly) == 0) {
        _exit(0);
    }
    return 0;
}
