#pragma once

#include <QVector>

class CRecordedRun;
struct SRecordedLine;

/// What of a recorded run a replay compares.
namespace RunLines {

/// It has an orderly end, and no line is missing: nothing comes behind the last one.
bool IsComplete(const CRecordedRun& run);

/// The panel's calls by their number, as far as no line is missing. Without a beginning, those behind its start, on the
/// GUI thread behind the first step of the user from there on, or the panel's end. Left out is what the host calls itself: the
/// pane and its tree on the GUI thread, and what it saves after the panel has gone.
QVector<const SRecordedLine*> GetPanelCalls(const CRecordedRun& run);

} // namespace RunLines
