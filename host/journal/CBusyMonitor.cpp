#include "journal/CBusyMonitor.h"

#include <QDateTime>
#include <QMutexLocker>

CBusyMonitor::CBusyMonitor(QObject* parent) : QObject(parent) { }

SBusyState CBusyMonitor::GetState() const
{
    const QMutexLocker locker(&mutex);
    return state;
}

void CBusyMonitor::SetFlag(bool bSet)
{
    {
        const QMutexLocker locker(&mutex);
        bFlag = bSet;
        UpdateSince();
    }
    emit Changed();
}

void CBusyMonitor::Begin(const QString& strOperation)
{
    {
        const QMutexLocker locker(&mutex);
        state.listOperation.append(strOperation);
        UpdateSince();
    }
    emit Changed();
}

void CBusyMonitor::End(const QString& strOperation)
{
    {
        const QMutexLocker locker(&mutex);
        state.listOperation.removeOne(strOperation);
        UpdateSince();
    }
    emit Changed();
}

void CBusyMonitor::UpdateSince()
{
    const bool bBusy = bFlag || !state.listOperation.isEmpty();
    if (bBusy && !state.bBusy)
        state.nSince = QDateTime::currentMSecsSinceEpoch();
    state.bBusy = bBusy;
}
