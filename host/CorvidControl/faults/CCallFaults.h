#pragma once

#include "controlhost/EnListCommand.h"

#include <QHash>
#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>

/// What a call throws.
enum EnThrown
{
    ThrownNothing,
    ThrownError, ///< a std::runtime_error
    ThrownOther  ///< something that is no std::exception
};

/// What is to go wrong with calls on the control objects. A call is named "PrcListControl.MoveProcessor", see ControlCalls. All
/// operations may be called on any thread.
class CCallFaults
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// Each such call that begins within timeFor takes timeLate longer. Here as below the new fault takes the place of one of its
    /// kind for the same call.
    void Delay(const QString& strCall, Milliseconds timeLate, Milliseconds timeFor);

    /// No such call comes back before timeFor is over.
    void Hang(const QString& strCall, Milliseconds timeFor);

    /// The next nCount of these calls throw.
    void Throw(const QString& strCall, EnThrown thrown, int nCount);

    /// The next nCount calls of SetSelectedNodes are refused.
    void RefuseSelection(int nCount);

    /// What the next ImportList answers.
    void SetImportCode(int nCode);

    /// As SetImportCode, of ExportList.
    void SetExportCode(int nCode);

    /// The next nCount commands of this kind are refused.
    void Refuse(EnListCommand command, int nCount);

    /// Nothing is held any more, now and from now on. True when something was.
    bool Release();

    /// Waits as long as the call is to be held; on the GUI thread, whose events must go on, not at all.
    void Hold(const QString& strCall);

    /// Below: what a call is to do, counted as done.
    /// @{
    EnThrown TakeThrow(const QString& strCall);
    bool TakeSelectionRefusal();
    std::optional<int> TakeImportCode();
    std::optional<int> TakeExportCode();
    bool TakeRefusal(EnListCommand command);
    /// @}

    /// Whether a fault was ever asked for. Costs nothing: every call asks.
    bool IsAny() const
    {
        return bAny;
    }

private:
    using Clock = std::chrono::steady_clock;

    struct SDelay
    {
        Milliseconds timeLate{ 0 };
        Clock::time_point timeEnd;
    };

    struct SThrow
    {
        EnThrown thrown = ThrownNothing;
        int nCount = 0;
    };

    Clock::time_point FindEnd(const std::unique_lock<std::mutex>& lock, const QString& strCall,
                              Clock::time_point timeBegin) const;

    std::atomic<bool> bAny{ false };

    std::mutex mutex; ///< guards all below; held for moments only, nothing is called under it
    std::condition_variable condChange;
    QHash<QString, SDelay> hashDelay;
    QHash<QString, Clock::time_point> hashHang; ///< until when
    std::map<QString, SThrow> mapThrow;
    std::map<int, int> mapRefused; ///< how many more of each EnListCommand
    int nSelectionsRefused = 0;
    std::optional<int> nImportCode;
    std::optional<int> nExportCode;
    int nHeld = 0; ///< calls
    bool bReleased = false;
};
