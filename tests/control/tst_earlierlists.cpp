#include "Builders.h"
#include "CControlFixture.h"
#include "CEditRecorder.h"
#include "CFileFaults.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "ListText.h"
#include "TestMain.h"

#include <QFile>

#include <cerrno>

/// The generations beside the list, as a user sees them and takes them back.
class CEarlierListsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Write(
            "list.2024-05-01_12-30-00.kvtl",
            ListFormat::Write(Root({ Group("Old", { Processor("p"), Processor("q") }), Group("Older") }, { Processor("r") })));
        pFixture->Write("list.2024-05-02_08-00-00.kvtl", ListFormat::Write(Root({ Group("Newer") })));
        pFixture->Write("list.2024-05-02_08-00-00-2.kvtl", "damaged");
        pFixture->Write("list.unsaved-2024-05-03_08-00-00.kvtl", ListFormat::Write(Root({})));
        pFixture->Write("other.2024-05-03_08-00-00.kvtl", ListFormat::Write(Root({})));
        pFixture->Start(Root({ Group("Stage", { Processor("alpha") }) }));
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
    }

    void cleanup()
    {
        pRecorder.reset();
        pFixture.reset();
    }

    void theyComeNewestFirstWithDateAndCounts()
    {
        const QList<SEarlierList> listEarlier = pFixture->pHost->GetEarlierLists();
        QCOMPARE(listEarlier.size(), 3);
        QCOMPARE(listEarlier.at(1).date, QDateTime(QDate(2024, 5, 2), QTime(8, 0)));
        QCOMPARE(listEarlier.at(1).nGroups, 1);
        QCOMPARE(listEarlier.at(2).strPath, pFixture->GetPath("list.2024-05-01_12-30-00.kvtl"));
        QCOMPARE(listEarlier.at(2).nGroups, 2);
        QCOMPARE(listEarlier.at(2).nProcessors, 3);
        QCOMPARE(listEarlier.at(2).strFault, QString());
    }

    void oneThatCannotBeReadSaysSo()
    {
        const SEarlierList earlier = pFixture->pHost->GetEarlierLists().first();
        QCOMPARE(earlier.strPath, pFixture->GetPath("list.2024-05-02_08-00-00-2.kvtl"));
        QCOMPARE(earlier.strFault, QString("it is not a list file"));
        QCOMPARE(earlier.nGroups + earlier.nProcessors, 0);
        QVERIFY(!pFixture->pHost->TakeEarlierList(earlier.strPath));
        QCOMPARE(pRecorder->GetRefusals().size(), 1);
        QCOMPARE(pRecorder->GetRefusals().first().reason, ReasonFileInvalid);
        QCOMPARE(pRecorder->GetRefusals().first().command, CommandTakeEarlier);
    }

    void oneThatIsTakenBackIsTheListAndKeepsThePresentOne()
    {
        QVERIFY(pFixture->pHost->TakeEarlierList(pFixture->GetPath("list.2024-05-01_12-30-00.kvtl")));
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Old\n    p\n    q\n  Older\n  r"));
        QCOMPARE(pFixture->Read("list.kvtl"), pFixture->Read("list.2024-05-01_12-30-00.kvtl"));
        const SEarlierList newest = pFixture->pHost->GetEarlierLists().first();
        QCOMPARE(newest.nGroups, 1);
        QCOMPARE(newest.nProcessors, 1);
    }

    void takingOneBackIsAnEditThatCanBeUndone()
    {
        const QString strBefore = ListText::BuildWhole(CControlFixture::GetTree());
        QVERIFY(pFixture->pHost->TakeEarlierList(pFixture->GetPath("list.2024-05-01_12-30-00.kvtl")));
        QCOMPARE(pRecorder->GetEdits().size(), 1);
        const SListEdit edit = pRecorder->GetEdits().first();
        QCOMPARE(edit.command, CommandTakeEarlier);
        QCOMPARE(edit.nNodes, 5);
        QVERIFY(pFixture->pHost->RestoreList(edit.after, edit.before));
        QCOMPARE(ListText::BuildWhole(CControlFixture::GetTree()), strBefore);
    }

    void theOneThatIsTakenIsNotTheOneThatGoes_data()
    {
        QTest::addColumn<bool>("bFails");
        QTest::newRow("it is taken") << false;
        QTest::newRow("the list cannot be replaced") << true;
    }

    // The list before is kept on a day of its own, one more than stay.
    void theOneThatIsTakenIsNotTheOneThatGoes()
    {
        QFETCH(bool, bFails);
        for (int nDay = 2; nDay <= 11; ++nDay) {
            pFixture->Write(QStringLiteral("list.2024-04-%1_08-00-00.kvtl").arg(nDay, 2, 10, QLatin1Char('0')),
                            ListFormat::Write(Root({ Group(QStringLiteral("Day %1").arg(nDay)) })));
        }
        const QString strName = "list.2024-04-03_08-00-00.kvtl"; // the second, and the first goes with a list that is taken
        const QByteArray bytes = pFixture->Read(strName);
        {
            const CFileFaults faults(CFileFaults::CallRename, bFails ? "*list.kvtl" : "nothing", EIO);
            QCOMPARE(pFixture->pHost->TakeEarlierList(pFixture->GetPath(strName)), !bFails);
        }
        QCOMPARE(pFixture->Read(strName), bytes);
        QCOMPARE(pFixture->Read("list.2024-04-02_08-00-00.kvtl").isEmpty(), !bFails);
        QVERIFY(pFixture->pHost->TakeEarlierList(pFixture->GetPath("list.2024-05-01_12-30-00.kvtl")));
        QCOMPARE(pFixture->Read(strName), bytes);
    }

    void aListThatIsTakenLeavesWhatDevicesReport()
    {
        pFixture->Write("list.2024-05-01_12-30-00.kvtl",
                        ListFormat::Write(Root({}, { Processor("alpha").Online().Project("Aurora").Backup() })));
        QVERIFY(pFixture->pHost->TakeEarlierList(pFixture->GetPath("list.2024-05-01_12-30-00.kvtl")));
        const SProcessorNode alpha = CControlFixture::GetTree().listProcessor.value(0);
        QCOMPARE(alpha.strName, QString("alpha"));
        QVERIFY(!alpha.bOnline && alpha.strProject.isEmpty() && alpha.nFailover == 0);
        QCOMPARE(pFixture->Read("list.kvtl"), ListFormat::Write(CControlFixture::GetTree()));
    }

    void aLockedListIsNotTakenBack()
    {
        const QString strText = CControlFixture::GetText();
        pFixture->pHost->SetListLocked(true);
        QVERIFY(!pFixture->pHost->TakeEarlierList(pFixture->GetPath("list.2024-05-01_12-30-00.kvtl")));
        QCOMPARE(pRecorder->GetRefusals().value(0).reason, ReasonListLocked);
        QCOMPARE(CControlFixture::GetText(), strText);
    }

    void aFailureAtAnyStepLosesNothing_data()
    {
        QTest::addColumn<int>("nCall");
        QTest::addColumn<QByteArray>("pattern");
        QTest::addColumn<int>("nReason");
        QTest::newRow("it cannot be read") << int(CFileFaults::CallRead) << QByteArray("*list.2024-05-01*")
                                           << int(ReasonFileInvalid);
        QTest::newRow("the list before cannot be kept")
            << int(CFileFaults::CallRenameNew) << QByteArray("*list.2*") << int(ReasonFileNotKept);
        QTest::newRow("it cannot be written")
            << int(CFileFaults::CallSync) << QByteArray("*list.kvtl.*") << int(ReasonFileNotWritten);
        QTest::newRow("it cannot take the place of the list")
            << int(CFileFaults::CallRename) << QByteArray("*list.kvtl") << int(ReasonFileNotReplaced);
    }

    void aFailureAtAnyStepLosesNothing()
    {
        QFETCH(int, nCall);
        QFETCH(QByteArray, pattern);
        const QByteArray bytes = pFixture->Read("list.kvtl");
        const QString strPath = pFixture->GetPath("list.2024-05-01_12-30-00.kvtl");
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(nCall), pattern, EIO);
            QVERIFY(!pFixture->pHost->TakeEarlierList(strPath));
            QVERIFY(faults.GetFailed() > 0);
        }
        QTEST(int(pRecorder->GetRefusals().value(0).reason), "nReason");
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage\n    alpha"));
        QCOMPARE(pFixture->Read("list.kvtl"), bytes);
        QVERIFY2(pFixture->pHost->TakeEarlierList(strPath), "it can be tried again");
    }

    void onlyAnEarlierListIsTakenBack_data()
    {
        QTest::addColumn<QString>("strName");
        QTest::newRow("nothing") << "list.2024-05-09_12-30-00.kvtl";
        QTest::newRow("another list's") << "other.2024-05-03_08-00-00.kvtl";
        QTest::newRow("a dated file of another kind") << "list.unsaved-2024-05-03_08-00-00.kvtl";
        QTest::newRow("the list itself") << "list.kvtl";
    }

    void onlyAnEarlierListIsTakenBack()
    {
        QFETCH(QString, strName);
        QVERIFY(!pFixture->pHost->TakeEarlierList(pFixture->GetPath(strName)));
        QCOMPARE(pRecorder->GetRefusals().value(0).reason, ReasonFileGone);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage\n    alpha"));
    }

    void aListThatWasNeverReplacedHasNone()
    {
        const QStringList listName = pFixture->ListFiles({ "list.2*.kvtl" });
        for (const QString& strName : listName) {
            QVERIFY(QFile::remove(pFixture->GetPath(strName)));
        }
        QCOMPARE(pFixture->pHost->GetEarlierLists().size(), 0);
    }

private:
    QScopedPointer<CControlFixture> pFixture;
    QScopedPointer<CEditRecorder> pRecorder;
};

PTV_TEST_MAIN_CORE(CEarlierListsTest)
#include "tst_earlierlists.moc"
