#include "Kestrel/LibraryFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

QString FindOwn(const QString& strName)
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString strFile = QStringLiteral("lib%1.so.%2").arg(strName, QLatin1String(KESTREL_LIBRARY_VERSION));
    const QString strBeside = folder.filePath(strFile);
    return QFileInfo::exists(strBeside) ? strBeside
                                        : QDir::cleanPath(folder.filePath(QStringLiteral(KESTREL_LIBRARY_FOLDER "/") + strFile));
}

} // namespace

QString LibraryFile::Find(const QString& strGiven, const QString& strName)
{
    if (strGiven.isEmpty()) {
        return FindOwn(strName);
    }
    // Without a folder in it the loader does not look here.
    return QFileInfo::exists(strGiven) ? QFileInfo(strGiven).absoluteFilePath() : strGiven;
}
