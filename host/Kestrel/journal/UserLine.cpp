#include "Kestrel/journal/UserLine.h"

#include "journal/recording/ICallRecorder.h"

#include <utility>

void UserLine::Write(ICallRecorder& recorder, const char* szDo, std::vector<SJournalField>&& vecField)
{
    SJournalRecord record;
    record.line = LineUser;
    record.szObject = "User";
    record.szOperation = szDo;
    record.vecField = std::move(vecField);
    recorder.Write(std::move(record));
}
