#include "CorvidControl/faults/CReadingFaults.h"

#include "CorvidControl/faults/CarriedValues.h"

#include <algorithm>

namespace {

/// Calls fnEdit on the processor with that id; false when it is not there.
template <typename Edit> bool EditProcessor(QList<SProcessorNode>& listProcessor, const QUuid& id, const Edit& fnEdit)
{
    const auto isIt = [&](const SProcessorNode& processor) { return processor.idNode == id; };
    const auto it = std::find_if(listProcessor.cbegin(), listProcessor.cend(), isIt);
    if (it == listProcessor.cend()) {
        return false;
    }
    fnEdit(listProcessor[static_cast<int>(it - listProcessor.cbegin())]);
    return true;
}

/// Calls fnEdit on the group or processor with that id; false when it is not there.
template <typename Edit> bool EditNode(SProcessorAllNode& node, const QUuid& id, const Edit& fnEdit)
{
    for (SProcessorGroupNode& group : node.listGroup) {
        if (group.idNode == id) {
            fnEdit(group);
            return true;
        }
        if (EditProcessor(group.listProcessor, id, fnEdit)) {
            return true;
        }
    }
    return EditProcessor(node.listProcessor, id, fnEdit);
}

template <typename Fault> void Replace(std::vector<Fault>& vecFault, const Fault& fault)
{
    const auto isSame = [&](const Fault& other) { return other.id == fault.id; };
    vecFault.erase(std::remove_if(vecFault.begin(), vecFault.end(), isSame), vecFault.end());
    vecFault.push_back(fault);
}

} // namespace

CReadingFaults::CReadingFaults(const CControlClock& clockIn) : clock(clockIn) { }

void CReadingFaults::Flicker(const QUuid& id, const QString& strValue, int nCount)
{
    const Lock lock(mutex);
    Replace(vecFlicker, SFlicker{ id, strValue, nCount });
    bAny = true;
}

void CReadingFaults::Collide(const QUuid& id, const QUuid& idOther, std::chrono::milliseconds time)
{
    const Lock lock(mutex);
    Replace(vecCollision, SCollision{ id, idOther, clock.GetNow() + time });
    bAny = true;
}

SProcessorAllNode CReadingFaults::Distort(const SProcessorAllNode& node)
{
    if (!bAny) {
        return node;
    }
    const Lock lock(mutex);
    SProcessorAllNode nodeRead = node;
    DistortValues(lock, nodeRead);
    DistortIds(lock, nodeRead); // last: the values are found by the true ids
    Forget(lock);
    return nodeRead;
}

void CReadingFaults::DistortValues(const Lock& /*lock*/, SProcessorAllNode& node)
{
    for (SFlicker& flicker : vecFlicker) {
        const bool bTrue = flicker.nRead % 2 == 1 || flicker.nCount == 0;
        const bool bThere = EditNode(node, flicker.id, [&](auto& record) {
            if (!bTrue) {
                CarriedValues::Flip(record, flicker.strValue);
            }
        });
        flicker.nRead += bThere ? 1 : 0;
    }
}

void CReadingFaults::DistortIds(const Lock& /*lock*/, SProcessorAllNode& node) const
{
    const Time timeNow = clock.GetNow();
    for (const SCollision& collision : vecCollision) {
        if (timeNow < collision.timeEnd) {
            EditNode(node, collision.id, [&](auto& record) { record.idNode = collision.idOther; });
        }
    }
}

void CReadingFaults::Forget(const Lock& /*lock*/)
{
    const auto isDone = [](const SFlicker& flicker) { return flicker.nRead >= flicker.nCount; };
    vecFlicker.erase(std::remove_if(vecFlicker.begin(), vecFlicker.end(), isDone), vecFlicker.end());
    const Time timeNow = clock.GetNow();
    const auto isOver = [&](const SCollision& collision) { return collision.timeEnd <= timeNow; };
    vecCollision.erase(std::remove_if(vecCollision.begin(), vecCollision.end(), isOver), vecCollision.end());
    bAny = !vecFlicker.empty() || !vecCollision.empty();
}
