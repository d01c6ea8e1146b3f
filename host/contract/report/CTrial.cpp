#include "contract/report/CTrial.h"

#include "contract/attempt/CAttemptProcess.h"
#include "contract/checks/Checks.h"

#include <QFileInfo>
#include <QTemporaryDir>

// Its generators and the way in which their values shrink. Not its runner: that one writes to the standard error, takes
// options from the environment, has one place for its state whatever the thread, and stops after a number of cases, not
// after a time; here each case is a process.
#include <rapidcheck.h>

#include <algorithm>
#include <functional>

namespace {

using Sequence = std::vector<SStep>;
using Shrinkable = rc::Shrinkable<Sequence>;

constexpr std::chrono::seconds timeShrinking{ 12 };
constexpr int nLongest = 14; // steps of a random sequence
constexpr int nNumbers = 64;
constexpr int nFullSize = 100; // of the generators of numbers

rc::Gen<int> BuildNumber(int nEnd)
{
    return rc::gen::resize(nFullSize, rc::gen::inRange(0, nEnd));
}

rc::Gen<Sequence> BuildGenerator(std::vector<EnVerb> vecVerb)
{
    vecVerb.erase(std::remove(vecVerb.begin(), vecVerb.end(), VerbCount), vecVerb.end());
    const auto build = [vecVerb](const std::tuple<int, int, int>& numbers) {
        return SStep{ vecVerb[static_cast<size_t>(std::get<0>(numbers))], std::get<1>(numbers), std::get<2>(numbers) };
    };
    const auto genStep = rc::gen::map(
        rc::gen::tuple(BuildNumber(static_cast<int>(vecVerb.size())), BuildNumber(nNumbers), BuildNumber(nNumbers)), build);
    return rc::gen::container<Sequence>(genStep);
}

// Towards the first node, the null id and so on.
rc::Seq<SStep> MakeSimpler(const SStep& step)
{
    const auto withFirst = [step](int nFirst) { return SStep{ step.verb, nFirst, step.nSecond }; };
    const auto withSecond = [step](int nSecond) { return SStep{ step.verb, step.nFirst, nSecond }; };
    return rc::seq::concat(rc::seq::map(rc::shrink::towards(step.nFirst, 0), withFirst),
                           rc::seq::map(rc::shrink::towards(step.nSecond, 0), withSecond));
}

// Shrinks by leaving out steps, then by simpler ones, as those of the generator do.
Shrinkable BuildFixed(const Sequence& vecStep)
{
    return rc::shrinkable::shrinkRecur(vecStep, [](const Sequence& vecLonger) {
        return rc::seq::concat(rc::shrink::removeChunks(vecLonger), rc::shrink::eachElement(vecLonger, MakeSimpler));
    });
}

// The same for a promise whether it is tried alone or with all others.
rc::Random BuildRandom(quint32 nSeed, const QString& strId)
{
    quint64 nMixed = nSeed;
    for (const QChar& letter : strId) {
        nMixed = nMixed * 1099511628211U + letter.unicode();
    }
    return rc::Random(nMixed);
}

// The shortest that still breaks the promise, as far as the time goes.
SOutcome Shrink(Shrinkable sequence, SOutcome outcome, const std::function<SOutcome(const Sequence&)>& attempt)
{
    const auto timeEnd = std::chrono::steady_clock::now() + timeShrinking;
    auto shorter = sequence.shrinks();
    for (auto next = shorter.next(); next && std::chrono::steady_clock::now() < timeEnd; next = shorter.next()) {
        const SOutcome outcomeNext = attempt(next->value());
        if (outcomeNext.result == SOutcome::Broken) {
            outcome = outcomeNext;
            shorter = next->shrinks();
        }
    }
    return outcome;
}

} // namespace

SOutcome CTrial::Run()
{
    const auto timeStart = std::chrono::steady_clock::now();
    const SCheck* pCheck = Checks::Find(strId);
    Q_ASSERT(pCheck);
    SOutcome outcome = pCheck->pScript ? RunScript() : RunSequences(*pCheck);
    outcome.time = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - timeStart);
    return outcome;
}

// A file that breaks it among others is tried alone: the story is shorter.
SOutcome CTrial::RunScript() const
{
    const SOutcome outcome = Attempt({});
    if (outcome.strAlone.isEmpty()) {
        return outcome;
    }
    const SOutcome alone = Attempt({}, outcome.strAlone);
    return alone.result == SOutcome::Broken ? alone : outcome;
}

SOutcome CTrial::Attempt(const Sequence& vecStep, const QString& strFile) const
{
    const QTemporaryDir folder;
    SAttempt attempt;
    attempt.strControl = options.strControl;
    attempt.strFolder = QFileInfo(folder.path()).canonicalFilePath();
    attempt.strCheck = strId;
    attempt.vecStep = vecStep;
    attempt.strFile = strFile;
    return CAttemptProcess(attempt).Run();
}

SOutcome CTrial::RunSequences(const SCheck& check) const
{
    const auto generator = BuildGenerator(check.vecVerb);
    rc::Random random = BuildRandom(options.nSeed, strId);
    SOutcome best = Outcome::LeaveUntried({});
    for (int n = 0; n <= options.nSequences; ++n) {
        const Shrinkable sequence = n == 0 ? BuildFixed(check.vecFirst) : generator(random.split(), nLongest);
        const SOutcome outcome = Attempt(sequence.value());
        if (outcome.result == SOutcome::Broken) {
            return Shrink(sequence, outcome, [this](const Sequence& vecStep) { return Attempt(vecStep); });
        }
        best = best.result == SOutcome::Kept ? best : outcome;
    }
    return best;
}
