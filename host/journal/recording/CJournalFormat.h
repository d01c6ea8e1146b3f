#pragma once

#include "journal/recording/CJournalMask.h"
#include "journal/recording/CTreeReading.h"
#include "journal/recording/SJournalRecord.h"

#include <QByteArray>
#include <QMap>

/// Makes the lines of a recording: one JSON object each, names and addresses masked where asked for. One thread.
class CJournalFormat
{
public:
    /// Times in the lines count from timeStartIn.
    CJournalFormat(bool bMask, std::chrono::steady_clock::time_point timeStartIn);

    /// Without the newline.
    QByteArray GetLine(const SJournalRecord& record);

    /// A line of the writer's own: object, with the kind, the time and the date.
    QByteArray GetLine(const char* szKind, QJsonObject object) const;

    /// The fields as one object, masked as a line's are.
    QJsonObject GetObject(const std::vector<SJournalField>& vecField);

    /// The next line of each tree holds it whole: a file begins that can be read without the one before.
    void ForgetTrees();

    CJournalMask& GetMask();

private:
    QJsonValue GetValue(const JournalValue& value, const QString& strTree);
    QJsonObject GetCall(const SJournalRecord& record);
    QJsonObject GetFields(const SJournalRecord& record);

    CJournalMask mask;
    const std::chrono::steady_clock::time_point timeStart;
    QMap<QString, CTreeReading> mapReading; ///< by object and operation
};
