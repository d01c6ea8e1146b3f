#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QProcess>
#include <QSysInfo>

namespace {

/// A second program on the list, see ListUser.cpp.
class CSecondProgram
{
public:
    explicit CSecondProgram(const QString& strListFile)
    {
        process.setProcessChannelMode(QProcess::SeparateChannels);
        process.start(QCoreApplication::applicationDirPath() + "/list_user", { strListFile });
    }
    ~CSecondProgram()
    {
        End();
    }
    Q_DISABLE_COPY_MOVE(CSecondProgram)

    void Say(const QByteArray& line)
    {
        process.write(line + '\n');
    }
    QString Ask(const QByteArray& line)
    {
        Say(line);
        return Hear();
    }
    QString Hear()
    {
        while (!process.canReadLine() && process.waitForReadyRead(30000)) { }
        return QString::fromUtf8(process.readLine()).trimmed();
    }
    void End()
    {
        process.closeWriteChannel();
        process.waitForFinished();
    }
    void Kill()
    {
        process.kill();
        process.waitForFinished();
    }

    QProcess process;
};

} // namespace

/// Two programs on one list, and what one that has gone has left behind.
class CListLockTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Write("list.kvtl", ListFormat::Write(Root({ Group("Stage") })));
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aSecondProgramSaysThatTheListIsOpenElsewhere()
    {
        pFixture->StartAsIs();
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
        CSecondProgram second(pFixture->GetPath());
        const QString strTrouble = second.Ask("trouble");
        const QString strThis = QStringLiteral("tst_control_listlock, process %1").arg(QCoreApplication::applicationPid());
        QVERIFY2(strTrouble.contains("another program has it open (" + strThis), qPrintable(strTrouble));
        second.End();
        QVERIFY(second.process.readAllStandardError().contains(strTrouble.toUtf8()));
        QCOMPARE(pFixture->ListFiles(), QStringList{ "list.kvtl" });
    }

    void aSecondProgramKeepsItsChangesInADatedFile()
    {
        pFixture->StartAsIs();
        const QByteArray before = pFixture->Read("list.kvtl");
        CSecondProgram second(pFixture->GetPath());
        QCOMPARE(second.Ask("rename Theirs"), QString("done"));
        QCOMPARE(second.Ask("save"), QString("7"));
        QCOMPARE(second.Ask("rename Theirs again"), QString("done"));
        QCOMPARE(second.Ask("save"), QString("7"));
        QVERIFY(second.Ask("trouble").endsWith("It is kept in " + pFixture->GetPath(GetNewestAside())));
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QCOMPARE(ReadName(GetNewestAside()), QString("Theirs again"));
        QCOMPARE(pFixture->ListFiles().size(), 2);
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QCOMPARE(ReadName("list.kvtl"), QString("Ours"));
    }

    void anImportIntoASecondProgramIsRefused()
    {
        CSecondProgram first(pFixture->GetPath());
        QCOMPARE(first.Ask("trouble"), QString());
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        const QByteArray before = pFixture->Read("list.kvtl");
        ExpectWarning("The list is not being saved");
        pFixture->StartAsIs();
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 3);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage"));
        QCOMPARE(pFixture->Read("list.kvtl"), before);
    }

    void aLinkToTheListIsTheSameList()
    {
        pFixture->StartAsIs();
        QVERIFY(QFile::link("list.kvtl", pFixture->GetPath("link.kvtl")));
        CSecondProgram second(pFixture->GetPath("link.kvtl"));
        QVERIFY(second.Ask("trouble").contains("another program has it open"));
    }

    void theNextToSaveTakesAnUnchangedListOver()
    {
        CSecondProgram first(pFixture->GetPath());
        QCOMPARE(first.Ask("trouble"), QString());
        ExpectWarning("The list is not being saved");
        pFixture->StartAsIs();
        first.End();
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
        QCOMPARE(ReadName("list.kvtl"), QString("Ours"));
    }

    void aListThatTheOtherChangedIsNotTakenOver()
    {
        CSecondProgram first(pFixture->GetPath());
        QCOMPARE(first.Ask("trouble"), QString());
        ExpectWarning("The list is not being saved");
        pFixture->StartAsIs();
        QCOMPARE(first.Ask("rename Theirs"), QString("done"));
        first.End();
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        ExpectWarning("what stands there is not what was loaded or saved last");
        QVERIFY(!pFixture->pHost->SaveList().isEmpty());
        QCOMPARE(ReadName("list.kvtl"), QString("Theirs"));
        QCOMPARE(ReadName(GetNewestAside()), QString("Ours"));
    }

    void whoMayNotWriteLeavesTheLockToOthers()
    {
        pFixture->Write("list.kvtl", "hello\n");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        pFixture->Write("list.kvtl", ListFormat::Write(Root({ Group("Mended") })));
        CSecondProgram second(pFixture->GetPath());
        QCOMPARE(second.Ask("trouble"), QString());
        QCOMPARE(second.Ask("rename Theirs"), QString("done"));
        QCOMPARE(second.Ask("save"), QString("0"));
    }

    void aLockThatWasLeftBehindIsBroken_data()
    {
        QTest::addColumn<QString>("strText");
        const QString strHost = QSysInfo::machineHostName();
        QTest::newRow("of a process that has gone") << GetLockText(0x7ffffff0, "kestrel", strHost);
        QTest::newRow("of another program with its number") << GetLockText(1, "kestrel", strHost);
        QTest::newRow("of a process with the number of this one")
            << GetLockText(QCoreApplication::applicationPid(), "tst_listlock", strHost);
        QTest::newRow("empty, for a minute") << QString();
    }

    void aLockThatWasLeftBehindIsBroken()
    {
        QFETCH(QString, strText);
        pFixture->Write("list.kvtl.lock", strText.toUtf8());
        QFile lock(pFixture->GetPath("list.kvtl.lock"));
        QVERIFY(lock.open(QIODevice::ReadWrite));
        QVERIFY(lock.setFileTime(QDateTime::currentDateTime().addSecs(-60), QFileDevice::FileModificationTime));
        lock.close();
        pFixture->StartAsIs();
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QCOMPARE(ReadName("list.kvtl"), QString("Ours"));
    }

    void aLockThatMayBeHeldIsNotBroken_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::newRow("of another machine") << GetLockText(1, "kestrel", "another-machine");
        QTest::newRow("just being made") << QString();
    }

    void aLockThatMayBeHeldIsNotBroken()
    {
        QFETCH(QString, strText);
        pFixture->Write("list.kvtl.lock", strText.toUtf8());
        ExpectWarning("The list is not being saved");
        pFixture->StartAsIs();
        QVERIFY(pFixture->pHost->GetListTrouble().contains("another program has it open"));
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage"));
    }

    void aKilledProgramLeavesNoLock()
    {
        CSecondProgram first(pFixture->GetPath());
        QCOMPARE(first.Ask("trouble"), QString());
        first.Kill();
        QVERIFY(QFile::exists(pFixture->GetPath("list.kvtl.lock")));
        pFixture->StartAsIs();
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
    }

    void twoProgramsThatSaveAHundredTimesLoseNothing()
    {
        CSecondProgram first(pFixture->GetPath());
        QCOMPARE(first.Ask("trouble"), QString());
        CSecondProgram second(pFixture->GetPath());
        first.Say("run first 100");
        second.Say("run second 100");
        int nRead = 0;
        while (!first.process.canReadLine() || !second.process.canReadLine()) { // each moment has a whole list
            const QString strName = ReadName("list.kvtl");
            QVERIFY2(strName == "Stage" || strName.startsWith("first "), qPrintable(strName));
            first.process.waitForReadyRead(1);
            second.process.waitForReadyRead(1);
            ++nRead;
        }
        QVERIFY(nRead > 10);
        QCOMPARE(first.Hear(), QString("100"));
        QCOMPARE(second.Hear(), QString("0"));
        first.End();
        second.End();
        QCOMPARE(ReadName("list.kvtl"), QString("first 100"));
        QCOMPARE(pFixture->ListFiles({ "list.unsaved-*.kvtl" }).size(), 1);
        QCOMPARE(ReadName(GetNewestAside()), QString("second 100"));
    }

private:
    QString GetLockText(qint64 nProcess, const QString& strProgram, const QString& strHost) const
    {
        return QStringLiteral("%1\n%2\n%3\n").arg(nProcess).arg(strProgram, strHost);
    }
    QString GetNewestAside() const
    {
        return pFixture->ListFiles({ "list.unsaved-*.kvtl" }).value(0);
    }
    QString ReadName(const QString& strFile) const
    {
        const SListReading reading = ListFormat::Read(pFixture->Read(strFile), {});
        return reading.verdict == SListReading::Valid ? reading.node.listGroup.at(0).strName : reading.strReason;
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CListLockTest)
#include "tst_listlock.moc"
