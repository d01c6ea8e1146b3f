#include "CorvidControl/day/CDayPlayer.h"

#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/objects/CHostEvents.h"

#include <algorithm>

CDayPlayer::CDayPlayer(CProcessorList& processorsIn, CStepRunner& runnerIn, CHostEvents& eventsIn)
    : processors(processorsIn), runner(runnerIn), events(eventsIn)
{ }

CDayPlayer::~CDayPlayer()
{
    Stop();
}

void CDayPlayer::StartScenario(const QVector<SScenarioStep>& vecStep)
{
    Start([=] { RunScenario(vecStep); });
}

void CDayPlayer::StartQuietDay(quint32 nSeed, double dPace)
{
    Start([=] { RunQuietDay(nSeed, dPace); });
}

void CDayPlayer::Stop()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        Q_ASSERT(std::this_thread::get_id() != threadLife.get_id());
        bStop = true;
    }
    condStop.notify_all();
    if (threadLife.joinable()) {
        threadLife.join();
    }
    for (std::thread& threadAside : vecAside) {
        threadAside.join();
    }
    vecAside.clear();
}

qint64 CDayPlayer::GetTime() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (timeStart == Clock::time_point()) {
        return 0;
    }
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - timeStart).count();
}

void CDayPlayer::Start(const std::function<void()>& body)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (bStop || timeStart != Clock::time_point()) {
        return;
    }
    timeStart = Clock::now();
    threadLife = std::thread(body);
}

void CDayPlayer::RunScenario(QVector<SScenarioStep> vecStep)
{
    while (!vecStep.isEmpty()) {
        if (!TakeFirst(vecStep)) {
            return;
        }
    }
    emit events.ScenarioFinished();
}

void CDayPlayer::RunQuietDay(quint32 nSeed, double dPace)
{
    CDayGenerator day(nSeed, dPace);
    QVector<SScenarioStep> vecStep;
    qint64 nTime = 0;
    do {
        SScenarioStep step = day.GetNext(processors.CopyTree(false));
        step.nAt += nTime;
        nTime = step.nAt;
        if (!step.strDo.isEmpty()) {
            Insert(vecStep, step);
        }
        while (!vecStep.isEmpty() && vecStep.first().nAt <= nTime) {
            if (!TakeFirst(vecStep)) {
                return;
            }
        }
    } while (WaitUntil(nTime));
}

// Waits until the first step is due and takes it. False when the day is over.
bool CDayPlayer::TakeFirst(QVector<SScenarioStep>& vecStep)
{
    const SScenarioStep step = vecStep.takeFirst();
    if (!WaitUntil(step.nAt)) {
        return false;
    }
    Q_ASSERT(std::this_thread::get_id() == threadLife.get_id());
    if (CStepRunner::IsBlocking(step)) {
        TakeAside(step);
    } else {
        const SStepResult result = runner.Run(step);
        Report(step, result);
        for (const SScenarioStep& stepLater : result.vecFollow) {
            Insert(vecStep, stepLater);
        }
    }
    return true;
}

void CDayPlayer::Insert(QVector<SScenarioStep>& vecStep, const SScenarioStep& step)
{
    const auto isLater = [](qint64 nAt, const SScenarioStep& other) { return nAt < other.nAt; };
    const auto it = std::upper_bound(vecStep.cbegin(), vecStep.cend(), step.nAt, isLater);
    vecStep.insert(static_cast<int>(it - vecStep.cbegin()), step);
}

// False when the day is over.
bool CDayPlayer::WaitUntil(qint64 nTime)
{
    std::unique_lock<std::mutex> lock(mutex);
    condStop.wait_until(lock, timeStart + std::chrono::milliseconds(nTime), [this] { return bStop; });
    return !bStop;
}

void CDayPlayer::TakeAside(const SScenarioStep& step)
{
    vecAside.emplace_back([this, step] { Report(step, runner.Run(step)); });
}

void CDayPlayer::Report(const SScenarioStep& step, const SStepResult& result)
{
    if (!result.strFault.isEmpty()) {
        events.Refuse(QStringLiteral("The step \"%1\" was passed over: %2").arg(step.strDo, result.strFault));
    } else {
        emit events.LifeStep(runner.GetText(step));
    }
}
