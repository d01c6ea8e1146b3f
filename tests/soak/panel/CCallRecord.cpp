#include "panel/CCallRecord.h"

#include "journal/recording/SJournalRecord.h"

#include <cstring>
#include <utility>

namespace {

template <typename Value> Value FindFirst(const SJournalRecord& record)
{
    for (const JournalValue& value : record.vecArgument) {
        if (const Value* const pValue = std::get_if<Value>(&value)) {
            return *pValue;
        }
    }
    return {};
}

} // namespace

void CCallRecord::Write(SJournalRecord&& record)
{
    if (record.line != LineCall || !record.bChange) {
        return;
    }
    const bool bValue = FindFirst<bool>(record);
    const QUuid idGroup = FindFirst<SProcessorGroupNode>(record).idNode;
    const std::lock_guard<std::mutex> lock(mutex);
    listCall.append({ QString::fromLatin1(record.szOperation), idGroup.isNull() ? FindFirst<QUuid>(record) : idGroup, bValue });
    nCount += std::strcmp(record.szOperation, "PostMessage") == 0 ? 0 : 1;
    if (std::strcmp(record.szOperation, "SetBusy") == 0) {
        nBusy += bValue ? 1 : -1;
    }
}

QList<SPanelCall> CCallRecord::Take()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(listCall, {});
}

int CCallRecord::GetCount() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nCount;
}

int CCallRecord::GetBusy() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return nBusy;
}
