#pragma once

#include <QMetaType>
#include <QString>

/// The GUI thread was held up.
struct SGuiHold
{
    QString strOperation;     ///< "PrcListControl.ImportList"; empty when no call on the control library was under way
    qint64 nMilliseconds = 0; ///< for how long
    bool bStall = false;      ///< the event loop stood still, by whatever; else the call alone is meant
};
Q_DECLARE_METATYPE(SGuiHold)
