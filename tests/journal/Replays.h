#pragma once

#include "CRecordedSession.h"
#include "journal/replay/CRecordedRun.h"

#include <QString>

#include <functional>
#include <vector>

/// Recordings, and how they play.
namespace Replays {

/// The run of that session; ends the program when it cannot be read.
CRecordedRun Read(const CRecordedSession& recorded);

/// Plays the run to a new panel. Returns what differs from the recording, the panel's rows at the end included; empty for
/// nothing.
QString Play(const CRecordedRun& run, const std::vector<SSessionStep>& vecStep, const CRecordedSession& recorded);

/// Plays the run, and what is left of it without its first files, one less each time, as long as there is a place to begin.
/// Calls fnBefore, if any, before each. Returns the first difference.
QString PlayWithoutFirstFiles(const CRecordedSession& recorded, const std::vector<SSessionStep>& vecStep,
                              const std::function<void(const CRecordedRun&)>& fnBefore = {});

/// Calls what records a session and plays it, and returns its fault. When the machine is so busy while a session is recorded
/// that a refresh is shown between a click and its command, what of both came first is in no recording: such a one differs at
/// each replay, and another is made then, at most twice.
QString FindFault(const std::function<QString()>& fnPlay);

} // namespace Replays
