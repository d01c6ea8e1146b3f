#pragma once

#include "CorvidControl/objects/CControlClock.h"
#include "nodes/SProcessorAllNode.h"

#include <atomic>
#include <mutex>
#include <vector>

/// What goes wrong with the trees that are read: values that flicker, and two nodes with one id. The list itself, what is saved
/// and what commands find stay the truth. A tree counts as a reading of a node that is in it. All operations may be called on any
/// thread.
class CReadingFaults
{
public:
    using Time = CControlClock::Time;

    /// clockIn must outlive it.
    explicit CReadingFaults(const CControlClock& clockIn);

    /// The value of the node, see CarriedValues, is wrong in the first, third and so on of the next nCount readings of it. Here
    /// as below the new fault takes the place of one of its kind for the same node.
    void Flicker(const QUuid& id, const QString& strValue, int nCount);

    /// The node is read with the id of another for that time. Both must be in one pane to be in one reading.
    void Collide(const QUuid& id, const QUuid& idOther, std::chrono::milliseconds time);

    /// What is read in place of node: it shares all lists with it while nothing is to go wrong.
    SProcessorAllNode Distort(const SProcessorAllNode& node);

private:
    using Lock = std::lock_guard<std::mutex>; ///< whoever takes one as a parameter works under it

    struct SFlicker
    {
        QUuid id;
        QString strValue;
        int nCount;
        int nRead = 0;
    };

    struct SCollision
    {
        QUuid id;
        QUuid idOther;
        Time timeEnd;
    };

    void DistortValues(const Lock& lock, SProcessorAllNode& node);
    void DistortIds(const Lock& lock, SProcessorAllNode& node) const;
    void Forget(const Lock& lock);

    const CControlClock& clock;
    std::atomic<bool> bAny{ false }; ///< false: nothing is to go wrong, and no reading takes the lock

    std::mutex mutex; ///< guards all below
    std::vector<SFlicker> vecFlicker;
    std::vector<SCollision> vecCollision;
};
