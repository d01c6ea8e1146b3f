#include "CRecording.h"
#include "TestMain.h"

#include <QDir>

namespace {

QStringList Names(const QString& strFolder)
{
    QStringList listName;
    for (const QString& strFile : CJournalRing::GetFiles(strFolder)) {
        listName.append(QFileInfo(strFile).fileName());
    }
    return listName;
}

SRecordingLimits Small()
{
    SRecordingLimits limits;
    limits.nFiles = 3;
    limits.nFileBytes = 10;
    return limits;
}

} // namespace

/// The files of a recording.
class CRingTest : public QObject
{
    Q_OBJECT

private slots:
    void aRunBeginsAFileBehindThoseOfEarlierRuns()
    {
        const CRecording recording;
        for (const char* szRun : { "first", "second" }) {
            CJournalRing ring(recording.GetFolder(), {});
            QVERIFY(ring.NeedsFile() && ring.Begin(szRun));
            QVERIFY(ring.Write("line"));
        }
        QCOMPARE(Names(recording.GetFolder()), (QStringList{ "000001.jsonl", "000002.jsonl" }));
        QCOMPARE(CRecording::ReadFile(recording.GetFolder() + "/000001.jsonl"), QByteArray("first\nline\n"));
        QCOMPARE(CRecording::ReadFile(recording.GetFolder() + "/000002.jsonl"), QByteArray("second\nline\n"));
    }

    void twoRunsAtOnceHaveFilesOfTheirOwn()
    {
        const CRecording recording;
        CJournalRing one(recording.GetFolder(), {});
        CJournalRing other(recording.GetFolder(), {});
        QVERIFY(one.Begin("one") && other.Begin("other"));
        QVERIFY(one.Write("1") && other.Write("2") && one.Write("3"));
        QCOMPARE(CRecording::ReadFile(recording.GetFolder() + "/000001.jsonl"), QByteArray("one\n1\n3\n"));
        QCOMPARE(CRecording::ReadFile(recording.GetFolder() + "/000002.jsonl"), QByteArray("other\n2\n"));
    }

    void filesAreBoundedInBytesAndNumber()
    {
        const CRecording recording;
        CJournalRing ring(recording.GetFolder(), Small());
        for (int n = 0; n < 10; ++n) {
            QVERIFY(!ring.NeedsFile() || ring.Begin("head"));
            QVERIFY(ring.Write("line"));
        }
        QCOMPARE(Names(recording.GetFolder()), (QStringList{ "000008.jsonl", "000009.jsonl", "000010.jsonl" }));
        QCOMPARE(CRecording::ReadFile(recording.GetFolder() + "/000008.jsonl"), QByteArray("head\nline\n"));
    }

    void othersFilesInTheFolderAreLeftAlone()
    {
        const CRecording recording;
        QVERIFY(QDir().mkpath(recording.GetFolder()));
        const QString strNote = recording.GetFolder() + "/1.jsonl";
        QFile file(strNote);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
        file.close();

        CJournalRing ring(recording.GetFolder(), Small());
        for (int n = 0; n < 5; ++n) {
            QVERIFY(ring.Begin("a head of some length"));
        }

        QCOMPARE(CRecording::ReadFile(strNote), QByteArray("mine"));
    }

    void aNumberThatIsTakenIsPassedOver()
    {
        const CRecording recording;
        QVERIFY(QDir().mkpath(recording.GetFolder() + "/000001.jsonl"));
        QVERIFY(QFile::link("/no/such/file", recording.GetFolder() + "/000002.jsonl"));
        CJournalRing ring(recording.GetFolder(), {});
        QVERIFY2(ring.Begin("head"), qPrintable(ring.GetError()));
        QCOMPARE(CRecording::ReadFile(recording.GetFolder() + "/000003.jsonl"), QByteArray("head\n"));
    }

    void behindSixDigitsComeSeven()
    {
        const CRecording recording;
        QVERIFY(QDir().mkpath(recording.GetFolder()));
        QFile file(recording.GetFolder() + "/999999.jsonl");
        QVERIFY(file.open(QIODevice::WriteOnly));
        CJournalRing ring(recording.GetFolder(), Small());
        for (int n = 0; n < 4; ++n) {
            QVERIFY2(ring.Begin("a head of some length"), qPrintable(ring.GetError()));
        }
        QCOMPARE(Names(recording.GetFolder()), (QStringList{ "1000001.jsonl", "1000002.jsonl", "1000003.jsonl" }));
    }

    void aFileThatWasRemovedIsFollowedByANewOne()
    {
        const CRecording recording;
        CJournalRing ring(recording.GetFolder(), {});
        QVERIFY(ring.Begin("head") && !ring.NeedsFile());
        QVERIFY(QDir(recording.GetFolder()).removeRecursively());
        QVERIFY(ring.NeedsFile() && ring.Begin("again"));
        QCOMPARE(CRecording::ReadFile(recording.GetFolder() + "/000001.jsonl"), QByteArray("again\n"));
    }

    void aFolderThatIsALinkKeepsItsRights()
    {
        const CRecording recording;
        const QString strElsewhere = recording.folder.filePath("elsewhere");
        QVERIFY(QDir().mkpath(strElsewhere) && QFile::link(strElsewhere, recording.GetFolder()));
        const QFile::Permissions rights = QFile::permissions(strElsewhere) | QFile::ReadOther | QFile::ExeOther;
        QVERIFY(QFile::setPermissions(strElsewhere, rights));
        CJournalRing ring(recording.GetFolder(), {});
        QVERIFY(ring.Begin("head"));
        QCOMPARE(QFile::permissions(strElsewhere), rights);
        QCOMPARE(CRecording::ReadFile(strElsewhere + "/000001.jsonl"), QByteArray("head\n"));
    }

    void onlyItsUserReadsIt()
    {
        const CRecording recording;
        CJournalRing ring(recording.GetFolder(), {});
        QVERIFY(ring.Begin("head"));
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(!(QFile::permissions(recording.GetFolder() + "/000001.jsonl") & others));
        QVERIFY(!(QFile::permissions(recording.GetFolder()) & others));
    }

    void aFolderThatCannotBeMadeIsAnError()
    {
        const CRecording recording;
        QFile file(recording.GetFolder());
        QVERIFY(file.open(QIODevice::WriteOnly));
        CJournalRing ring(recording.GetFolder(), {});
        QVERIFY(!ring.Begin("head"));
        QVERIFY(ring.NeedsFile());
        QVERIFY2(ring.GetError().contains(recording.GetFolder()), qPrintable(ring.GetError()));
    }
};

PTV_TEST_MAIN_CORE(CRingTest)
#include "tst_ring.moc"
