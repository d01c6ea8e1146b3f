#pragma once

#include <QStringList>

class CRecordedRun;

/// What a recording lacks without being damaged. None of it is a difference.
namespace ReplayRemarks {

/// In sentences: no end, calls that never came back, numbers that are missing.
QStringList Get(const CRecordedRun& run);

/// The first number without a line before nNumber; 0 for none.
quint64 FindGap(const CRecordedRun& run, quint64 nNumber);

} // namespace ReplayRemarks
