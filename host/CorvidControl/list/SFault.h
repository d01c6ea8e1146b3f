#pragma once

#include "controlhost/EnRefusalReason.h"

#include <QString>

/// Why something is refused.
struct SFault
{
    EnRefusalReason reason = ReasonNone;
    QString strDetail; ///< see EnRefusalReason

    /// True when nothing is refused.
    bool IsNone() const
    {
        return reason == ReasonNone;
    }
};
