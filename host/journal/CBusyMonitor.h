#pragma once

#include <QMutex>
#include <QObject>
#include <QStringList>

/// What the host knows of work in the background.
struct SBusyState
{
    bool bBusy = false;        ///< the busy flag is set, or a slow operation is running
    qint64 nSince = 0;         ///< milliseconds since 1970, UTC, when that began
    QStringList listOperation; ///< the slow operations that are running now, oldest first
};

/// Watches SetBusy and the slow operations of the control library, so that an operator can be told what
/// is busy and since when: the flag alone does not say, and after two jobs that overlap it is down while
/// the second still runs. May be called on any thread.
class CBusyMonitor : public QObject
{
    Q_OBJECT

public:
    explicit CBusyMonitor(QObject* parent = nullptr);

    SBusyState GetState() const;

    /// The flag of IRuntimeControl::SetBusy.
    void SetFlag(bool bSet);

    /// Brackets one slow operation.
    void Begin(const QString& strOperation);
    void End(const QString& strOperation);

signals:
    /// GetState has another answer now. Emitted on the thread of the change.
    void Changed();

private:
    void UpdateSince();

    mutable QMutex mutex; ///< guards the two fields below
    bool bFlag = false;
    SBusyState state;
};
