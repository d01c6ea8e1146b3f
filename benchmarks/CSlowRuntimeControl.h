#pragma once

#include "interfaces/control/IRuntimeControl.h"

#include <atomic>
#include <chrono>

/// Stands before the library's runtime control while it lives, counts what the panel asks by IsNodeInUse and may take its time
/// for each answer. Made before the panel, and ended after it.
class CSlowRuntimeControl final : public IRuntimeControl
{
public:
    CSlowRuntimeControl();
    ~CSlowRuntimeControl();
    CSlowRuntimeControl(const CSlowRuntimeControl&) = delete;
    CSlowRuntimeControl& operator=(const CSlowRuntimeControl&) = delete;

    /// Since it was made.
    int CountCalls() const
    {
        return nCalls;
    }

    /// From now on each call of IsNodeInUse takes so long. GUI thread.
    void SetTime(std::chrono::microseconds time)
    {
        timeInUse = time;
    }

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    void PostMessage(qint32 nMessage) override;
    bool IsSimulatorPane() override;
    void SetSimulatorPane(bool bSimulator) override;
    bool SetSelectedNodes(const std::vector<QUuid>& vecId) override;
    std::vector<QUuid> GetSelectedNodes(bool bSimulator) override;
    std::vector<QUuid> GetSelectedProcessors() override;
    bool IsDeleteBlocked(QUuid idNode) override;
    bool IsNodeInUse(QUuid idNode) override;
    void SetBusy(bool bBusy) override;

private:
    IRuntimeControl* const pInner;
    std::chrono::microseconds timeInUse{ 0 };
    std::atomic<int> nCalls{ 0 };
};
