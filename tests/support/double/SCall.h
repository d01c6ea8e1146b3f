#pragma once

#include <QString>

enum EnCallKind
{
    CallRead,         ///< changes nothing
    CallCommand,      ///< changes something, in the library or in the world
    CallSubscription, ///< Attach and Detach
};

/// One call on a control object, as it arrived.
struct SCall
{
    EnCallKind kind = CallRead;
    QString strOperation; ///< "g_pRuntimeControl.SetBusy"
    QString strArguments; ///< "true"; ids by name
    QString strThread;    ///< "gui", "worker", "pool" or "other"

    /// "g_pRuntimeControl.SetBusy(true)"
    QString Text() const
    {
        return strOperation + QLatin1Char('(') + strArguments + QLatin1Char(')');
    }
};
