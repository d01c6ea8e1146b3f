#include "Kestrel/report/ReportFile.h"

#include "Kestrel/report/CArchive.h"
#include "Kestrel/report/SReport.h"
#include "journal/recording/CJournalRing.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSysInfo>

#include <algorithm>
#include <link.h>

namespace {

bool Read(const QString& strFile, QByteArray& bytes)
{
    QFile file(strFile);
    bytes.clear();
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    bytes = file.readAll();
    return file.error() == QFile::NoError;
}

QByteArray GetPng(const QImage& picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return buffer.data();
}

// As its own header says; the option of another run may have been another.
bool IsMasked(const QByteArray& journal)
{
    const QByteArray header = journal.left(journal.indexOf('\n'));
    return QJsonDocument::fromJson(header).object().value(QStringLiteral("masked")).toBool();
}

// It grows while it is read: of the last line perhaps only a part is there yet.
QByteArray GetWholeLines(const QByteArray& journal)
{
    return journal.left(journal.lastIndexOf('\n') + 1);
}

bool IsSameFile(const QString& strOne, const QString& strOther)
{
    const QFileInfo one(strOne);
    const QFileInfo other(strOther);
    return QDir::cleanPath(one.absoluteFilePath()) == QDir::cleanPath(other.absoluteFilePath())
        || (one.exists() && one.canonicalFilePath() == other.canonicalFilePath());
}

// A slip in the dialog must not cost what the report is about.
bool IsSource(const SReport& report)
{
    const QStringList listSource = CJournalRing::GetFiles(report.strJournalFolder) << report.strListFile;
    return std::any_of(listSource.begin(), listSource.end(),
                       [&](const QString& strSource) { return IsSameFile(report.strFile, strSource); });
}

/// Adds what may be in it, and notes what is not, with the reason.
class CCollector
{
public:
    CCollector(const SReport& reportIn, CArchive& archiveIn) : report(reportIn), archive(archiveIn) { }

    void AddJournal()
    {
        const QStringList listFile = CJournalRing::GetFiles(report.strJournalFolder);
        for (const QString& strFile : listFile) {
            const QString strName = QStringLiteral("journal/") + QFileInfo(strFile).fileName();
            QByteArray bytes;
            if (!Read(strFile, bytes)) {
                LeaveOut(strName, QStringLiteral("cannot be read"));
            } else if (report.bMask && !IsMasked(bytes)) {
                LeaveOut(strName, QStringLiteral("not masked"));
            } else {
                archive.Add(strName, GetWholeLines(bytes));
            }
        }
    }

    void AddList()
    {
        QByteArray bytes;
        if (report.bMask) {
            LeaveOut(QStringLiteral("list.kvtl"), QStringLiteral("not masked"));
        } else if (Read(report.strListFile, bytes)) {
            archive.Add(QStringLiteral("list.kvtl"), bytes);
        } else {
            LeaveOut(QStringLiteral("list.kvtl"), QStringLiteral("cannot be read"));
        }
    }

    void AddPicture()
    {
        if (report.bMask) {
            LeaveOut(QStringLiteral("window.png"), QStringLiteral("not masked"));
        } else {
            archive.Add(QStringLiteral("window.png"), GetPng(report.picture));
        }
    }

    void AddVersions()
    {
        QJsonObject object = report.versions;
        object.insert(QStringLiteral("leftOut"), leftOut);
        archive.Add(QStringLiteral("report.json"), QJsonDocument(object).toJson());
    }

private:
    void LeaveOut(const QString& strName, const QString& strReason)
    {
        leftOut.append(QJsonObject{ { QStringLiteral("file"), strName }, { QStringLiteral("reason"), strReason } });
    }

    const SReport& report;
    CArchive& archive;
    QJsonArray leftOut;
};

/// The files of the libraries that are loaded, by their names.
class CLibraries
{
public:
    /// bMaskIn: those that were installed by nobody may be named after their owner.
    explicit CLibraries(bool bMaskIn) : bMask(bMaskIn)
    {
        dl_iterate_phdr(&CLibraries::Note, this);
    }

    QJsonArray Get() const
    {
        return libraries;
    }

private:
    static int Note(dl_phdr_info* pInfo, size_t, void* pThis)
    {
        const QFileInfo file(QFile::decodeName(pInfo->dlpi_name));
        auto& self = *static_cast<CLibraries*>(pThis);
        if (file.exists() && self.MayBeNamed(file.canonicalPath())) {
            self.libraries.append(QFileInfo(file.canonicalFilePath()).fileName());
        }
        return 0;
    }

    bool MayBeNamed(const QString& strFolder) const
    {
        return !bMask || strFolder.startsWith(QLatin1String("/usr/")) || strFolder.startsWith(QLatin1String("/lib"))
            || strFolder == QFileInfo(QCoreApplication::applicationDirPath()).canonicalFilePath();
    }

    const bool bMask;
    QJsonArray libraries;
};

} // namespace

QString ReportFile::Write(const SReport& report)
{
    if (IsSource(report)) {
        return QStringLiteral("it is a part of the report");
    }
    CArchive archive(report.strFile);
    CCollector collector(report, archive);
    collector.AddJournal();
    collector.AddList();
    collector.AddPicture();
    collector.AddVersions();
    return archive.Close();
}

QJsonObject ReportFile::GetVersions(bool bMask)
{
    return { { QStringLiteral("program"), QCoreApplication::applicationName() },
             { QStringLiteral("version"), QCoreApplication::applicationVersion() },
             { QStringLiteral("system"), QSysInfo::prettyProductName() },
             { QStringLiteral("kernel"), QSysInfo::kernelType() + QLatin1Char(' ') + QSysInfo::kernelVersion() },
             { QStringLiteral("architecture"), QSysInfo::currentCpuArchitecture() },
             { QStringLiteral("qt"), QString::fromLatin1(qVersion()) },
             { QStringLiteral("builtWithQt"), QStringLiteral(QT_VERSION_STR) },
             { QStringLiteral("platform"), QGuiApplication::platformName() },
             { QStringLiteral("libraries"), CLibraries(bMask).Get() } };
}
