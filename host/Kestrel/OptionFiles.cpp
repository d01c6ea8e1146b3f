#include "Kestrel/OptionFiles.h"

#include "Kestrel/SKestrelOptions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <sys/stat.h>

namespace {

constexpr int nMostLinks = 40; // as the kernel follows them

/// An option that names a file.
struct SOptionFile
{
    const char* szOption;
    QString SKestrelOptions::* pFile;
};

constexpr std::array<SOptionFile, 7> listFile{ {
    { "--list", &SKestrelOptions::strListFile },
    { "--scenario", &SKestrelOptions::strScenarioFile },
    { "--shot", &SKestrelOptions::strShotFile },
    { "--replay", &SKestrelOptions::strReplayFile },
    { "--journal", &SKestrelOptions::strJournalFile },
    { "--panel", &SKestrelOptions::strPanelFile },
    { "--control", &SKestrelOptions::strControlFile },
} };

/// The same for each path that leads to a file, also to one that is yet to be written.
QString GetIdentity(const QString& strFile)
{
    QFileInfo info(strFile);
    for (int n = 0; n < nMostLinks && info.isSymLink(); ++n) {
        info.setFile(info.symLinkTarget());
    }
    struct stat status = {};
    if (stat(QFile::encodeName(info.filePath()).constData(), &status) == 0) {
        return QStringLiteral("%1:%2").arg(status.st_dev).arg(status.st_ino);
    }
    const QString strFolder = info.dir().canonicalPath();
    return (strFolder.isEmpty() ? info.absolutePath() : strFolder) + QLatin1Char('/') + info.fileName();
}

QString FindSameFile(const SKestrelOptions& options)
{
    for (auto it = listFile.begin(); it != listFile.end(); ++it) {
        const QString& strFile = options.*it->pFile;
        for (auto itOther = listFile.begin(); itOther != it; ++itOther) {
            const QString& strOther = options.*itOther->pFile;
            if (!strFile.isEmpty() && !strOther.isEmpty() && GetIdentity(strFile) == GetIdentity(strOther)) {
                return QStringLiteral("%1 and %2 name the same file '%3'")
                    .arg(QLatin1String(itOther->szOption), QLatin1String(it->szOption), strFile);
            }
        }
    }
    return {};
}

QString FindFolderFault(const QString& strFile)
{
    const bool bFolder = strFile.isEmpty() || QFileInfo(strFile).dir().exists();
    return bFolder ? QString() : QStringLiteral("No folder for '%1'").arg(strFile);
}

QString FindWriteFault(const QString& strFile)
{
    const QFileInfo info(strFile);
    if (strFile.isEmpty()) {
        return {};
    }
    if (info.isDir()) {
        return QStringLiteral("'%1' is a folder, not a file to write").arg(strFile);
    }
    const bool bWritable = info.exists() ? info.isWritable() : QFileInfo(info.path()).isWritable();
    return bWritable ? QString() : QStringLiteral("No permission to write '%1'").arg(strFile);
}

QString FindPictureFault(const SKestrelOptions& options)
{
    const QString& strFile = options.strShotFile;
    if (!strFile.isEmpty() && !strFile.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        return QStringLiteral("'%1' does not end in .png").arg(strFile);
    }
    if (!options.strShotFolder.isEmpty() && !QFileInfo(options.strShotFolder).isDir()) {
        return QStringLiteral("No folder '%1'").arg(options.strShotFolder);
    }
    return {};
}

QString FindScenarioFault(const SKestrelOptions& options)
{
    const QString& strFile = options.strScenarioFile;
    const bool bFile = strFile.isEmpty() || QFileInfo(strFile).isFile();
    return bFile ? QString() : QStringLiteral("No scenario file '%1'").arg(strFile);
}

} // namespace

QString OptionFiles::FindFault(const SKestrelOptions& options)
{
    for (const QString& strFault :
         { FindScenarioFault(options), FindFolderFault(options.strListFile), FindPictureFault(options), FindSameFile(options),
           FindFolderFault(options.strShotFile), FindFolderFault(options.strJournalFile), FindWriteFault(options.strShotFile),
           FindWriteFault(options.strJournalFile) }) {
        if (!strFault.isEmpty()) {
            return strFault;
        }
    }
    return {};
}
