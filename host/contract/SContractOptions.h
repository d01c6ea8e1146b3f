#pragma once

#include <QString>
#include <QStringList>

/// The command line.
struct SContractOptions
{
    QString strControl;
    QString strJUnitFile; ///< empty: none
    QStringList listOnly; ///< promises; empty: all
    quint32 nSeed = 1;
    int nSequences = 8; ///< for each promise that is tried by sequences
    bool bListMayChange = false;
    bool bHelp = false;
    bool bVersion = false;
    bool bPromises = false;
};
