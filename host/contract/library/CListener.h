#pragma once

#include "interfaces/widgets/CObserver.h"

#include <QtGlobal>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

class CLibrary;

/// An observer as the panel's: attached to all seven objects. Counts the messages that make a panel read.
class CListener final : public CObserver
{
public:
    /// The library must outlive it.
    explicit CListener(const CLibrary& libraryIn) : library(libraryIn) { }

    void Attach();
    void Detach(); ///< as the panel: from one object after the other

    void Notify(int nMessage) override;

    /// Messages that make a panel read, so far.
    int GetReadings() const;

    /// Waits until there are more than nBefore of them; false when time has passed.
    bool AwaitReading(int nBefore, std::chrono::milliseconds time);

    /// As AwaitReading, for one number, since the observer was made.
    bool AwaitMessage(int nMessage, std::chrono::milliseconds time);

    /// As AwaitReading, for any number, since the observer was made.
    bool AwaitAny(std::chrono::milliseconds time);

    /// From now on the calling thread is the one on whose stack no Notify may come.
    void GuardCaller();
    bool WasOnCaller() const; ///< one did, since GuardCaller

    static bool MakesRead(int nMessage);

private:
    const CLibrary& library;
    mutable std::mutex mutex; ///< guards all below
    std::condition_variable cond;
    int nReadings = 0;
    quint64 nSeen = 0; ///< a bit for each number up to 59 that has come
    std::thread::id idCaller;
    bool bOnCaller = false;
};
