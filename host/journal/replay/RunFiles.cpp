#include "journal/replay/RunFiles.h"

#include "journal/recording/CJournalRing.h"
#include "journal/replay/CRunReader.h"

#include <QFileInfo>
#include <QMultiMap>

namespace {

QString GetRun(const QString& strFile)
{
    return CRunReader::ReadHeader(strFile).value(QStringLiteral("run")).toString();
}

int GetPlace(const QString& strFile)
{
    return CRunReader::ReadHeader(strFile).value(QStringLiteral("file")).toInt();
}

QStringList FindInFolder(const QString& strFolder, const QString& strRun)
{
    QMultiMap<int, QString> mapFile;
    const QStringList listFile = CJournalRing::GetFiles(strFolder);
    for (const QString& strFile : listFile) {
        if (GetRun(strFile) == strRun) {
            mapFile.insert(GetPlace(strFile), strFile);
        }
    }
    return mapFile.values();
}

// The newest file may have been begun by a program that was killed at once.
QString GetLastRun(const QString& strFolder)
{
    QString strLast;
    const QStringList listFile = CJournalRing::GetFiles(strFolder);
    for (const QString& strFile : listFile) {
        const QString strRun = GetRun(strFile);
        strLast = strRun.isEmpty() ? strLast : strRun;
    }
    return strLast;
}

} // namespace

QStringList RunFiles::Find(const QString& strPath, const QString& strRun, QString& strError)
{
    const QFileInfo info(strPath);
    if (info.isDir()) {
        const QString strWanted = strRun.isEmpty() ? GetLastRun(strPath) : strRun;
        const QStringList listFile = strWanted.isEmpty() ? QStringList() : FindInFolder(strPath, strWanted);
        if (listFile.isEmpty()) {
            strError = QStringLiteral("The folder '%1' has no journal%2.")
                           .arg(strPath, strRun.isEmpty() ? QString() : QStringLiteral(" of the run ") + strRun);
        }
        return listFile;
    }
    const QString strOwn = GetRun(strPath);
    const QStringList listFile = strOwn.isEmpty() ? QStringList() : FindInFolder(info.path(), strOwn);
    const bool bInRing
        = listFile.contains(info.filePath()) || listFile.contains(info.path() + QLatin1Char('/') + info.fileName());
    return bInRing ? listFile : QStringList{ strPath }; // as it is: its name, or its header, is another
}
