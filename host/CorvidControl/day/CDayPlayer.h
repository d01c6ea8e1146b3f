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

/// Lets things happen in time: the steps of a scenario, or a quiet day. One thread takes the steps; those
/// that may block get a thread each, so that a slow device does not hold up the day.
class CDayPlayer
{
public:
    CDayPlayer(CProcessorList& processorsIn, CStepRunner& runnerIn, CHostEvents& eventsIn);

    /// As Stop.
    ~CDayPlayer();

    void StartScenario(const QVector<SScenarioStep>& vecStep);
    void StartQuietDay(quint32 nSeed, double dPace);

    /// Ends all threads. What blocks them must have been stopped before.
    void Stop();

    qint64 GetTime() const; ///< milliseconds since the start; 0 before it

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
    std::vector<std::thread> vecAside; ///< of the life's thread only, until it is joined
};
