#pragma once

#include "CorvidControl/objects/CControlClock.h"

/// What the application's user is in the middle of, and how long a message waits for that:
///
///     a row's editor is open              all that make the panel read    at most timeEditing
///     a button is down, a drag, a menu    those about devices             at most timeActing
///     input less than timeInput old       those about devices             at most timeActing
///
/// A plain value: its owner guards it.
class CUserActivity
{
public:
    using Time = CControlClock::Time;

    static constexpr std::chrono::milliseconds timeEditing{ 10000 };
    static constexpr std::chrono::milliseconds timeActing{ 2000 };
    static constexpr std::chrono::milliseconds timeInput{ 400 };

    void SetEditing(bool bOn);    ///< a row's editor is open
    bool IsEditing() const;       ///< as set last
    void SetActing(bool bOn);     ///< a button is down, a drag or a menu runs
    void NoteInput(Time timeNow); ///< a key, a button or the wheel

    /// The time from which a message may go that has been waiting since timeSince. That is timeSince itself for
    /// one that need not wait.
    Time GetRelease(int nMessage, Time timeSince) const;

    /// Whether the panel reads everything on this number.
    static bool MakesRead(int nMessage);

private:
    bool bEditing = false;
    bool bActing = false;
    Time timeLastInput;
};
