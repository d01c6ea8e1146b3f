#pragma once

#include "CorvidControl/objects/CControlClock.h"

#include <atomic>

/// The machine's clock with a date that can be set back, as somebody does to the machine. The steady time goes on as it is.
class CSetBackClock final : public CControlClock
{
public:
    /// From now on dates are earlier by that much more. Any thread.
    void SetBack(std::chrono::seconds time);

    QDateTime GetDate() const override;

private:
    std::atomic<qint64> nBack{ 0 }; ///< seconds
};
