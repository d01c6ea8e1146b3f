#pragma once

#include <QVector>

struct SRecordedLine;

/// Where the replay of a run begins whose first files are gone.
namespace RunStart {

/// The number from which on lines are played and compared: behind the first refresh that is there from its first read to its
/// last, with which the user did nothing, behind which no other is due, and behind which the user begins something new: no menu,
/// dialog, drag or editor is open. If there is none such, behind the first refresh; the largest number when there is none at all.
/// By their number; one thread.
quint64 Find(const QVector<SRecordedLine>& vecLine);

} // namespace RunStart
