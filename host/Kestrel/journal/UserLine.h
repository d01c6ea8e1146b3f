#pragma once

#include "journal/recording/SJournalRecord.h"

class ICallRecorder;

/// What the user did, as lines of the recording.
namespace UserLine {

/// szDo says what was done; a literal.
void Write(ICallRecorder& recorder, const char* szDo, std::vector<SJournalField>&& vecField);

} // namespace UserLine
