#pragma once

#include <QDateTime>
#include <QObject>
#include <QStringList>

/// What the library tells its application. Signals come on the thread of their cause; never connect to
/// them with a lock of the library held, they are emitted without one.
class CHostEvents : public QObject
{
    Q_OBJECT

public:
    /// What was refused, and why. Becomes one line, whatever a file put into it.
    void Refuse(const QString& strText);

    /// What failed outside the library: files, devices. As Refuse.
    void Warn(const QString& strText);

signals:
    void BusyChanged(bool bBusy, const QDateTime& timeSince);
    void JobsChanged(const QStringList& listJob);
    void ListTroubleChanged();
    void StateChanged();
    void LogLine(const QString& strLine);
    void LifeStep(const QString& strLine);
    void ScenarioFinished();
};
