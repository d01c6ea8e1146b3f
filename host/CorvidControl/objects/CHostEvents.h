#pragma once

#include "controlhost/SListEdit.h"
#include "controlhost/SRefusal.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>

struct SFault;
struct SListCommand;

/// What the library reports to its application. Signals are emitted on the thread of their cause, without a lock of
/// the library, so that a slot may call it. All operations may be called on any thread.
class CHostEvents : public QObject
{
    Q_OBJECT

public:
    /// Logs what was refused, and why, and emits LogLine. Becomes one line, whatever a file put into it.
    void Refuse(const QString& strText);

    /// As Refuse, as a warning: what failed outside the library, files and devices.
    void Warn(const QString& strText);

    /// Emits CommandRefused for a command of the user; strLine is what the log has.
    void ReportRefusal(const SListCommand& command, const SFault& fault, const QString& strLine);

signals:
    void BusyChanged(bool bBusy, const QDateTime& timeSince); ///< timeSince is invalid at the end
    void JobsChanged(const QStringList& listJob);             ///< all that run, oldest first
    void ListTroubleChanged();                                ///< CListStore::GetTrouble has another answer
    void StateChanged();                                      ///< a project, a mode, a lock changed
    void LogLine(const QString& strLine);                     ///< what failed or was refused, and why
    void LifeStep(const QString& strLine);                    ///< a step was taken
    void ListEdited(const SListEdit& edit);                   ///< a command of the user has changed the list
    void CommandRefused(const SRefusal& refusal);             ///< a command of the user was refused, or has failed
    void ScenarioFinished();                                  ///< after the last step, not of a quiet day
};
