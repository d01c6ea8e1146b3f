#include "Kestrel/report/ReportJournal.h"
#include "TestMain.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <archive.h>
#include <archive_entry.h>

namespace {

/// An archive with whatever entries.
class CAnyArchive
{
public:
    explicit CAnyArchive(const QString& strFile)
    {
        archive_write_set_format_pax_restricted(pArchive);
        archive_write_add_filter_gzip(pArchive);
        archive_write_open_filename(pArchive, qPrintable(strFile));
    }

    ~CAnyArchive()
    {
        archive_write_free(pArchive);
    }
    Q_DISABLE_COPY(CAnyArchive)

    void Add(const char* szName, const QByteArray& bytes)
    {
        archive_entry* pEntry = archive_entry_new();
        archive_entry_set_pathname_utf8(pEntry, szName);
        archive_entry_set_size(pEntry, bytes.size());
        archive_entry_set_filetype(pEntry, AE_IFREG);
        archive_entry_set_perm(pEntry, 0644);
        archive_write_header(pArchive, pEntry);
        archive_entry_free(pEntry);
        archive_write_data(pArchive, bytes.constData(), static_cast<size_t>(bytes.size()));
    }

    void AddLink(const char* szName, const char* szTarget)
    {
        archive_entry* pEntry = archive_entry_new();
        archive_entry_set_pathname_utf8(pEntry, szName);
        archive_entry_set_filetype(pEntry, AE_IFLNK);
        archive_entry_set_symlink_utf8(pEntry, szTarget);
        archive_write_header(pArchive, pEntry);
        archive_entry_free(pEntry);
    }

private:
    archive* const pArchive = archive_write_new();
};

/// A folder with a folder "out" in it.
class CUnpacking
{
public:
    CUnpacking()
    {
        QDir(folder.path()).mkdir("out");
    }

    QString Unpack()
    {
        return ReportJournal::Unpack(folder.filePath("a.tar.gz"), folder.filePath("out"), strDamage);
    }

    /// All files below the folder but the archive, by their paths.
    QStringList Files() const
    {
        QStringList listFile;
        QDirIterator it(folder.path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            listFile.append(QDir(folder.path()).relativeFilePath(it.next()));
        }
        listFile.removeOne("a.tar.gz");
        listFile.sort();
        return listFile;
    }

    QTemporaryDir folder;
    QString strDamage;
    std::unique_ptr<CAnyArchive> pArchive = std::make_unique<CAnyArchive>(folder.filePath("a.tar.gz"));
};

} // namespace

/// What is taken out of a report that somebody has sent.
class CReportJournalTest : public QObject
{
    Q_OBJECT

private slots:
    void theJournalIsTakenOutAndNothingElse()
    {
        CUnpacking unpacking;
        unpacking.pArchive->Add("report.json", "{}");
        unpacking.pArchive->Add("journal/000001.jsonl", "one\n");
        unpacking.pArchive->Add("journal/000002.jsonl", "two\n");
        unpacking.pArchive->Add("list.kvtl", "list");
        unpacking.pArchive.reset();

        QCOMPARE(unpacking.Unpack(), QString());
        QCOMPARE(unpacking.Files(), (QStringList{ "out/000001.jsonl", "out/000002.jsonl" }));
        QFile file(unpacking.folder.filePath("out/000002.jsonl"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("two\n"));
    }

    void noPathLeadsOutOfTheFolder()
    {
        CUnpacking unpacking;
        unpacking.pArchive->Add("journal/000001.jsonl", "one\n");
        for (const char* szName : { "../000009.jsonl", "journal/../../000009.jsonl", "/tmp/ptv-000009.jsonl",
                                    "journal/../000009.jsonl", "journal/a/000009.jsonl", "journal/.000009.jsonl" }) {
            unpacking.pArchive->Add(szName, "out\n");
        }
        unpacking.pArchive->AddLink("journal/000003.jsonl", "/etc/hostname");
        unpacking.pArchive.reset();

        QCOMPARE(unpacking.Unpack(), QString());
        QCOMPARE(unpacking.Files(), QStringList{ "out/000001.jsonl" });
        QVERIFY(!QFile::exists("/tmp/ptv-000009.jsonl"));
    }

    void aFileThatIsThereTwiceIsRefused()
    {
        CUnpacking unpacking;
        unpacking.pArchive->Add("journal/000001.jsonl", "one\n");
        unpacking.pArchive->Add("journal/000001.jsonl", "other\n");
        unpacking.pArchive.reset();
        QVERIFY(!unpacking.Unpack().isEmpty());
    }

    void moreThanAJournalGetsIsRefused()
    {
        CUnpacking unpacking;
        const QByteArray large(40 << 20, 'a'); // packed it is small
        for (int n = 1; n < 5; ++n) {
            unpacking.pArchive->Add(qPrintable(QString("journal/00000%1.jsonl").arg(n)), large);
        }
        unpacking.pArchive.reset();
        QVERIFY(unpacking.Unpack().contains("larger"));
    }

    void moreFilesThanAJournalHasAreRefused()
    {
        CUnpacking unpacking;
        for (int n = 100; n < 200; ++n) {
            unpacking.pArchive->Add(qPrintable(QString("journal/000%1.jsonl").arg(n)), "line\n");
        }
        unpacking.pArchive.reset();
        QVERIFY(unpacking.Unpack().contains("more files"));
    }

    void ofAnArchiveThatIsCutOffTheBeginningIsTaken()
    {
        CUnpacking unpacking;
        QByteArray text;
        for (int n = 0; n < 100000; ++n) {
            text += QByteArray::number(n * 7919);
        }
        unpacking.pArchive->Add("journal/000001.jsonl", text);
        unpacking.pArchive.reset();
        QVERIFY(QFile::resize(unpacking.folder.filePath("a.tar.gz"), 100000));
        QCOMPARE(unpacking.Unpack(), QString());
        QVERIFY(!unpacking.strDamage.isEmpty());
        QFile file(unpacking.folder.filePath("out/000001.jsonl"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray taken = file.readAll();
        QVERIFY(!taken.isEmpty() && taken.size() < text.size() && text.startsWith(taken));
    }

    void aReportWithoutAJournalSaysSo()
    {
        CUnpacking unpacking;
        unpacking.pArchive->Add("report.json", "{}");
        unpacking.pArchive.reset();
        QVERIFY(unpacking.Unpack().contains("no journal"));
    }
};

PTV_TEST_MAIN(CReportJournalTest)
#include "tst_reportjournal.moc"
