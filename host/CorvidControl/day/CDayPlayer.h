#pragma once

#include "CorvidControl/day/CDayGenerator.h"
#include "CorvidControl/day/CStepRunner.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

class CHostEvents;
class CProcessorList;

/// Makes things happen in time: the steps of a scenario, or a quiet day. One thread takes the steps; each
/// that may block gets a thread of its own, so that a slow device does not hold up the day.
class CDayPlayer
{
public:
    /// Nothing happens before a start. All references must outlive the player.
    CDayPlayer(CProcessorList& processorsIn, CStepRunner& runnerIn, CHostEvents& eventsIn);

    /// As Stop.
    ~CDayPlayer();

    /// Any thread. vecStep by time; the last step is followed by CHostEvents::ScenarioFinished. Only the first start
    /// counts, and none after Stop.
    void StartScenario(const QVector<SScenarioStep>& vecStep);

    /// As StartScenario, for CDayGenerator's day, which ends with Stop.
    void StartQuietDay(quint32 nSeed, double dPace);

    /// Ends and joins all threads: what blocks them must have been stopped before. Not from within a step.
    void Stop();

    /// Milliseconds since the start; 0 before it. Any thread.
    qint64 GetTime() const;

private:
    using Clock = std::chrono::steady_clock;

    void Start(const std::function<void()>& body);
    void RunScenario(QVector<SScenarioStep> vecStep);
    void RunQuietDay(quint32 nSeed, double dPace);
    bool TakeFirst(QVector<SScenarioStep>& vecStep);
    static void Insert(QVector<SScenarioStep>& vecStep, const SScenarioStep& step);
    bool WaitUntil(qint64 nTime);
    void TakeAside(const SScenarioStep& step);
    void Report(const SScenarioStep& step, const SStepResult& result);

    CProcessorList& processors;
    CStepRunner& runner;
    CHostEvents& events;

    mutable std::mutex mutex; ///< guards all below but the threads
    std::condition_variable condStop;
    bool bStop = false;
    Clock::time_point timeStart;

    std::thread threadLife;
    std::vector<std::thread> vecAside; ///< touched by threadLife only, until that is joined
};
