#pragma once

#include "CRecorderDouble.h"
#include "journal/recording/JournalValue.h"

#include <QHash>
#include <QStringList>

#include <chrono>
#include <mutex>

/// Writes down the commands that reach the control library, in the order in which they begin, as
/// "gui: PrcListControl.MoveProcessor(Door 1, Empty)", and which calls are under way; and keeps every line. Any thread.
class CCommandWatch : public CRecorderDouble
{
public:
    void Begin(SJournalRecord& record) override;
    void Write(SJournalRecord&& record) override;

    /// How an id is written; "root" for the null id, "new" for others.
    void Name(const QUuid& id, const QString& strName);

    /// The commands since the last Take.
    QStringList Get();
    QStringList Take();

    /// The command that sets this selection, as above.
    QString GetSelecting(const std::vector<QUuid>& vecId);

    /// Whether a call of this name has begun and not come back.
    bool IsRunning(const QString& strCall);

    /// How often a call of this name has come back, and how often of these by an exception.
    int Count(const QString& strCall);
    int CountThrown(const QString& strCall);

    /// How long the longest call of this name has taken.
    std::chrono::nanoseconds GetLongest(const QString& strCall);

private:
    void Note(const SJournalRecord& record);
    QString GetText(const QUuid& id) const;
    QString GetText(const JournalValue& value) const;

    std::mutex mutexWatch; ///< guards all below
    QHash<QUuid, QString> hashName;
    QStringList listCommand;
    QHash<QString, int> hashRunning;
    QHash<QString, int> hashCount;
    QHash<QString, int> hashThrown;
    QHash<QString, std::chrono::nanoseconds> hashLongest;
};
