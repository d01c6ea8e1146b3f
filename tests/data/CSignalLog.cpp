#include "CSignalLog.h"

#include "data/CProcessorTreeData.h"

CSignalLog::CSignalLog(CProcessorTreeData* pStore)
{
    const auto fnLog = [this, pStore](auto fnSignal, const char* pName) {
        connect(pStore, fnSignal, this, [this, pName] { Append(QLatin1String(pName)); }, Qt::DirectConnection);
    };
    fnLog(&CProcessorTreeData::NotifyNodeInfo, "NotifyNodeInfo");
    fnLog(&CProcessorTreeData::NotifyButton, "NotifyButton");
    fnLog(&CProcessorTreeData::NotifyNodeSelectChanged, "NotifyNodeSelectChanged");
    fnLog(&CProcessorTreeData::NotifyWindowTitle, "NotifyWindowTitle");
    fnLog(&CProcessorTreeData::NotifyChiefChanged, "NotifyChiefChanged");
}

QStringList CSignalLog::Take()
{
    const QMutexLocker locker(&mutex);
    return std::exchange(listSignal, QStringList());
}

void CSignalLog::Append(const QString& strSignal)
{
    const QMutexLocker locker(&mutex);
    listSignal.append(strSignal);
}
