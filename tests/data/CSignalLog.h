#pragma once

#include <QMutex>
#include <QObject>
#include <QStringList>

class CProcessorTreeData;

/// Writes down the store's signals by name, on whatever thread they are emitted. Any thread may read.
class CSignalLog : public QObject
{
    Q_OBJECT

public:
    explicit CSignalLog(CProcessorTreeData* pStore);

    /// The signals since the last call, in the order of emission.
    QStringList Take();

private:
    void Append(const QString& strSignal);

    QMutex mutex; ///< guards listSignal
    QStringList listSignal;
};
