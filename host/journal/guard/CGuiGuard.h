#pragma once

#include "journal/guard/CStallWatch.h"
#include "journal/guard/SGuiHold.h"
#include "journal/recording/ICallRecorder.h"

#include <memory>
#include <vector>

/// Guards the GUI thread: reports calls on the control library that hold it for over 50 milliseconds, and stalls of its event
/// loop of over 100. Stands between the decorators and who records their calls, where each report is a line too: one as
/// soon as a stall passes its limit, one at the end of each.
class CGuiGuard : public QObject, public ICallRecorder
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds timeCallLimit{ 50 };

    /// innerIn gets everything on, and must outlive the guard. GUI thread.
    explicit CGuiGuard(ICallRecorder& innerIn);

    /// Any thread, as all of ICallRecorder.
    void Begin(SJournalRecord& record) override;
    void Write(SJournalRecord&& record) override;

    /// Watches the event loop from now on, and no longer; the second also where it is not watched. GUI thread, while the loop
    /// runs.
    void WatchLoop();
    void LeaveLoop();

    /// Reports so far; a stall is none of its own when calls that were reported took all of it but what a stall may take. GUI
    /// thread.
    int GetCount() const;

signals:
    /// Another report, on the GUI thread.
    void Held(const SGuiHold& hold);

private:
    void EndCall(const SJournalRecord& record);
    void BeginStall();
    void EndStall(qint64 nMilliseconds);
    void Report(const SGuiHold& hold);
    void Record(const char* szWhat, const SGuiHold& hold);
    QString GetOperation();
    QString TakeCause(std::chrono::milliseconds time);

    /// A call that was reported.
    struct SSlowCall
    {
        QString strOperation;
        std::chrono::steady_clock::time_point timeEnd;
        std::chrono::nanoseconds timeTaken;
    };

    ICallRecorder& inner;
    std::mutex mutex;                  ///< guards the two fields below; nothing is called under it
    const char* szObject = nullptr;    ///< of the call that is under way on the GUI thread; null for none
    const char* szOperation = nullptr; ///< as szObject
    std::vector<SSlowCall> vecSlow;    ///< since the last stall, at most a few
    int nCount = 0;
    std::unique_ptr<CStallWatch> pWatch;
};
