#pragma once

#include <QDateTime>
#include <QString>

/// An earlier list, as it is kept beside the list.
///
/// @since 0.2
struct SEarlierList
{
    QString strPath;     ///< of its file, absolute
    QDateTime date;      ///< at which it was replaced, local time
    int nGroups = 0;     ///< 0 for one that cannot be read
    int nProcessors = 0; ///< as nGroups
    QString strFault;    ///< why it cannot be taken back, in English; empty when it can
};
