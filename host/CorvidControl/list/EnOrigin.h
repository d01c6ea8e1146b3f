#pragma once

/// On whose behalf the list is changed. Only the user's commands are reported to the application as such.
enum EnOrigin
{
    OriginUser,
    OriginLibrary ///< a scenario, a quiet day, a device that a scan has found
};
