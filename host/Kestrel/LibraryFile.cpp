#include "Kestrel/LibraryFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString LibraryFile::Find(const QString& strName)
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString strFile = QStringLiteral("lib%1.so.%2").arg(strName, QLatin1String(KESTREL_LIBRARY_VERSION));
    const QString strBeside = folder.filePath(strFile);
    return QFileInfo::exists(strBeside)
        ? strBeside
        : QDir::cleanPath(folder.filePath(QLatin1String(KESTREL_LIBRARY_FOLDER) + QLatin1Char('/') + strFile));
}
