#pragma once

#include <QImage>
#include <QJsonObject>
#include <QString>

/// What a report is made of.
struct SReport
{
    QString strFile;          ///< where it goes, a .tar.gz
    QString strListFile;      ///< the list as it is on disk
    QString strJournalFolder; ///< with the files of the journal
    QImage picture;           ///< of the window
    QJsonObject versions;     ///< of the system and the libraries
    bool bMask = false;       ///< list, picture and unmasked journal files stay out
};
