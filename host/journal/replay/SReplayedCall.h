#pragma once

#include <QJsonArray>
#include <QString>

/// A call that the panel makes during a replay.
struct SReplayedCall
{
    QString strObject;    ///< "PrcListControl"
    QString strOperation; ///< "MoveProcessor"
    QJsonArray args;      ///< as a recording writes them; ids as the panel gave them
    QString strThread;    ///< the name of the thread in this program

    /// "MoveProcessor(1c0ffee0-…, 00000000-…)": for a reader.
    QString GetText() const;
};
