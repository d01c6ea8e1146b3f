#pragma once

#include <QObject>

/// Says that the journal cannot be written: on the standard error output, and to whoever shows it.
class CJournalTrouble : public QObject
{
    Q_OBJECT

public:
    /// strReason is one line, empty when it is written again. Any thread.
    void Set(const QString& strReason);

signals:
    /// On the thread that has set it.
    void Changed(const QString& strReason);
};
