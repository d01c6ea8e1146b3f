#include "story/StoryMaker.h"

// Its generators and the way in which their values shrink, not its runner: that one stops after a number of cases.
#include <rapidcheck.h>

#include <algorithm>

namespace {

using Shrinkable = rc::Shrinkable<StorySteps>;

constexpr int nNumbers = 40;
constexpr int nFullSize = 100; // of the generators of numbers

rc::Gen<int> BuildNumber(int nEnd)
{
    return rc::gen::resize(nFullSize, rc::gen::inRange(0, nEnd));
}

rc::Gen<SStoryStep> BuildStep(const std::vector<QString>& vecVerb)
{
    const auto build = [vecVerb](const std::tuple<int, int, int>& numbers) {
        return SStoryStep{ vecVerb[static_cast<size_t>(std::get<0>(numbers))], std::get<1>(numbers), std::get<2>(numbers) };
    };
    return rc::gen::map(
        rc::gen::tuple(BuildNumber(static_cast<int>(vecVerb.size())), BuildNumber(nNumbers), BuildNumber(nNumbers)), build);
}

rc::Seq<SStoryStep> MakeSimpler(const SStoryStep& step)
{
    const auto withFirst = [step](int nFirst) { return SStoryStep{ step.strVerb, nFirst, step.nSecond }; };
    const auto withSecond = [step](int nSecond) { return SStoryStep{ step.strVerb, step.nFirst, nSecond }; };
    return rc::seq::concat(rc::seq::map(rc::shrink::towards(step.nFirst, 0), withFirst),
                           rc::seq::map(rc::shrink::towards(step.nSecond, 0), withSecond));
}

// Halves, quarters and so on to single steps: far fewer tries than rc::shrink::removeChunks, which slides each length along.
rc::Seq<StorySteps> LeaveOut(const StorySteps& vecStep)
{
    std::vector<StorySteps> vecShorter;
    const auto nSteps = static_cast<std::ptrdiff_t>(vecStep.size());
    for (std::ptrdiff_t nLength = (nSteps + 1) / 2; nLength > 0; nLength /= 2) {
        for (std::ptrdiff_t nStart = 0; nStart < nSteps; nStart += nLength) {
            StorySteps vecLeft(vecStep.begin(), vecStep.begin() + nStart);
            vecLeft.insert(vecLeft.end(), vecStep.begin() + std::min(nStart + nLength, nSteps), vecStep.end());
            vecShorter.push_back(vecLeft);
        }
    }
    return rc::seq::fromContainer(vecShorter);
}

Shrinkable BuildShrinkable(const StorySteps& vecStep)
{
    return rc::shrinkable::shrinkRecur(vecStep, [](const StorySteps& vecLonger) {
        return rc::seq::concat(LeaveOut(vecLonger), rc::shrink::eachElement(vecLonger, MakeSimpler));
    });
}

} // namespace

StorySteps StoryMaker::Build(quint32 nSeed, int nSteps, const std::vector<QString>& vecVerb)
{
    const auto generator = rc::gen::container<StorySteps>(static_cast<size_t>(nSteps), BuildStep(vecVerb));
    return generator(rc::Random(nSeed), nFullSize).value();
}

StorySteps StoryMaker::Shrink(const StorySteps& vecStep, std::chrono::seconds time,
                              const std::function<bool(const StorySteps&)>& goesWrong)
{
    const auto timeEnd = std::chrono::steady_clock::now() + time;
    StorySteps vecShortest = vecStep;
    auto shorter = BuildShrinkable(vecStep).shrinks();
    for (auto next = shorter.next(); next && std::chrono::steady_clock::now() < timeEnd; next = shorter.next()) {
        if (goesWrong(next->value())) {
            vecShortest = next->value();
            shorter = next->shrinks();
        }
    }
    return vecShortest;
}
