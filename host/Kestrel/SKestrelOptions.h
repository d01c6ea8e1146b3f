#pragma once

#include <QString>
#include <QStringList>

/// What the command line asks for.
struct SKestrelOptions
{
    QStringList listArgument; ///< all that was given, without the program's name
    QStringList listName;     ///< of the options that were given, "--list", without their values
    bool bHelp = false;
    bool bVersion = false;
    QString strListFile;       ///< the working list; empty: the user's own
    QString strScenarioFile;   ///< a script for the devices; empty for none
    QString strShotFile;       ///< picture of the window to write, after which the program ends; empty for none
    double dShotAt = 2.0;      ///< seconds from the window's appearance to that picture
    QString strShotFolder;     ///< where the pictures go that the scenario asks for; empty: they are not taken
    QString strJournalFile;    ///< where the journal is written too; empty: nowhere
    bool bMaskJournal = false; ///< names and addresses in the journal that is always on are masked
    QString strControlFile;    ///< the control library; empty: the one of the installation
    QString strPanelFile;      ///< the panel's library; empty: the one of the installation
    QString strLanguage;       ///< "en", "de", "zh_CN", "en_XA"; empty: not asked for
    QString strTheme;          ///< "dark", "contrast"; empty: not asked for
    QString strReplayFile;     ///< a recorded run to play again: a file, a folder or a report; empty for none
    bool bReplayReal = false;  ///< it goes at the speed of the recording
    bool bListing = false;     ///< it is not played but listed
    QStringList listReplayAt;  ///< times of the recording to take pictures at, "14:03:12.345"
    double dPace = 1.0;        ///< how many times as fast the quiet day goes
    double dScale = 0.0;       ///< pixels a point; 0: as the screen says
};
