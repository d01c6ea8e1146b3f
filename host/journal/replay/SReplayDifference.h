#pragma once

#include "journal/replay/SRecordedLine.h"
#include "journal/replay/SReplayedCall.h"

#include <QMetaType>

#include <optional>

/// The first call of a replay that is not as recorded.
struct SReplayDifference
{
    std::optional<SRecordedLine> recorded; ///< the call that should have come; none for an additional one
    std::optional<SReplayedCall> made;     ///< the call that came; none for a missing one
    QString strThread;                     ///< where it came, or should have: "gui", "worker", "pool", "other"
    QString strText;                       ///< one sentence for a person
};

Q_DECLARE_METATYPE(SReplayDifference)
