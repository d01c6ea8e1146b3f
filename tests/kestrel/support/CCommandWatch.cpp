#include "CCommandWatch.h"

#include "journal/recording/JournalThread.h"
#include "journal/recording/SJournalRecord.h"

#include <QHostAddress>

#include <algorithm>

namespace {

QString GetCall(const SJournalRecord& record)
{
    return QString::fromLatin1(record.szObject) + QLatin1Char('.') + QString::fromLatin1(record.szOperation);
}

} // namespace

void CCommandWatch::Begin(SJournalRecord& record)
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    const QString strCall = GetCall(record);
    ++hashRunning[strCall];
    if (!record.bChange) {
        return;
    }
    QStringList listArgument;
    for (const JournalValue& value : record.vecArgument) {
        listArgument.append(GetText(value));
    }
    const QString strThread = QString::fromLatin1(record.thread).section('-', 0, 0);
    listCommand.append(QStringLiteral("%1: %2(%3)").arg(strThread, strCall, listArgument.join(", ")));
}

void CCommandWatch::Write(SJournalRecord&& record)
{
    Note(record);
    CRecorderDouble::Write(std::move(record));
}

void CCommandWatch::Note(const SJournalRecord& record)
{
    if (record.line != LineCall) {
        return;
    }
    const std::lock_guard<std::mutex> lock(mutexWatch);
    const QString strCall = GetCall(record);
    --hashRunning[strCall];
    ++hashCount[strCall];
    hashThrown[strCall] += record.bThrew ? 1 : 0;
    hashLongest[strCall] = std::max(hashLongest.value(strCall), record.timeTaken);
}

void CCommandWatch::Name(const QUuid& id, const QString& strName)
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    hashName.insert(id, strName);
}

QStringList CCommandWatch::Get()
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    return listCommand;
}

QString CCommandWatch::GetSelecting(const std::vector<QUuid>& vecId)
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    return QStringLiteral("gui: RuntimeControl.SetSelectedNodes(%1)").arg(GetText(JournalValue(vecId)));
}

QStringList CCommandWatch::Take()
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    return std::exchange(listCommand, {});
}

bool CCommandWatch::IsRunning(const QString& strCall)
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    return hashRunning.value(strCall) > 0;
}

int CCommandWatch::Count(const QString& strCall)
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    return hashCount.value(strCall);
}

int CCommandWatch::CountThrown(const QString& strCall)
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    return hashThrown.value(strCall);
}

std::chrono::nanoseconds CCommandWatch::GetLongest(const QString& strCall)
{
    const std::lock_guard<std::mutex> lock(mutexWatch);
    return hashLongest.value(strCall);
}

QString CCommandWatch::GetText(const QUuid& id) const
{
    return id.isNull() ? QStringLiteral("root") : hashName.value(id, QStringLiteral("new"));
}

QString CCommandWatch::GetText(const JournalValue& value) const
{
    if (const auto* pId = std::get_if<QUuid>(&value)) {
        return GetText(*pId);
    }
    if (const auto* pIds = std::get_if<std::vector<QUuid>>(&value)) {
        QStringList listName;
        for (const QUuid& id : *pIds) {
            listName.append(GetText(id));
        }
        return QLatin1Char('[') + listName.join(", ") + QLatin1Char(']');
    }
    if (const auto* pText = std::get_if<SPrivateText>(&value)) {
        return pText->kind == PrivatePath ? QStringLiteral("file") : pText->strText;
    }
    if (const auto* pAddress = std::get_if<SAddress>(&value)) {
        return QHostAddress(pAddress->nIP).toString();
    }
    if (const auto* pGroup = std::get_if<SProcessorGroupNode>(&value)) {
        return pGroup->strName;
    }
    if (const auto* pRequest = std::get_if<SSimulatorRequest>(&value)) {
        return QString::number(pRequest->nCount);
    }
    if (const auto* pFlag = std::get_if<bool>(&value)) {
        return *pFlag ? QStringLiteral("true") : QStringLiteral("false");
    }
    const auto* pNumber = std::get_if<qint64>(&value);
    return pNumber ? QString::number(*pNumber) : QStringLiteral("?");
}
