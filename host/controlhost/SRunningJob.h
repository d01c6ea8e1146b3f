#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QVector>

/// A blocking call that is under way in the control library, or a job of several.
///
/// @since 0.2
struct SRunningJob
{
    QString strJob;      ///< what it does, in English
    QDateTime timeSince; ///< when it began, local time
    int nDone = 0;       ///< devices asked, nodes deleted
    int nAll = 0;        ///< of how many; 0 where nobody knows
};

Q_DECLARE_METATYPE(SRunningJob)
