#pragma once

#include <QString>

/// Counts the changes of IControlHost and of the options after which libraries and applications of before and after no
/// longer fit.
constexpr int nControlHostVersion = 2;

/// What CorvidControl_CreateHost needs to know.
struct SControlOptions
{
    int nVersion = nControlHostVersion; ///< stays the first field; that of the application

    /// The list file: read at start, saved soon after each change. A file that does not exist yet
    /// is an empty list. Empty: "processors.kvtl" in the user's folder for application data.
    QString strListFile;

    QString strScenarioFile; ///< a script for the devices; empty for none
    quint32 nSeed = 1;       ///< the same seed gives the same quiet day
    bool bQuietDay = true;   ///< without a scenario: the devices live; false: nothing happens by itself
    double dPace = 1.0;      ///< how many times as fast a quiet day goes; above 0

    /// Processors that stand in the network without being listed; the next scan finds them.
    int nUnlistedDevices = 0;

    int nScanMs = 1500;    ///< how long RefreshProcessors blocks
    int nAnswerMs = 900;   ///< how long a device takes to be added
    int nTimeoutMs = 3000; ///< how long AddProcessor waits for an address where nothing answers
    int nReleaseMs = 150;  ///< how long a device takes to be deleted

    bool bLiftLimits = false; ///< accepts more than 256 processors and 256 groups, for load tests
};
