#pragma once

#include <QString>
#include <QStringList>

/// What a replay has found.
struct SReplayResult
{
    int nCalls = 0;         ///< that were recorded
    int nMessages = 0;      ///< that were delivered
    int nGestures = 0;      ///< that were played
    int nPassedOver = 0;    ///< that belong to parts of the host that a replay does not have
    QString strCall;        ///< the first call that differs, as a sentence; empty when none does
    quint64 nCall = 0;      ///< its number in the recording, or that of what was done last
    QStringList listScreen; ///< what differs on the screen, in its order, each with its time
    QString strFault;       ///< why it could not go on; empty when it could
};
