#include "Builders.h"
#include "CControlFixture.h"
#include "CEditRecorder.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "ListText.h"
#include "TestMain.h"

#include <QFile>

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
        const QString strBefore = ListText::BuildExact(CControlFixture::GetTree());
        QVERIFY(pFixture->pHost->TakeEarlierList(pFixture->GetPath("list.2024-05-01_12-30-00.kvtl")));
        QCOMPARE(pRecorder->GetEdits().size(), 1);
        const SListEdit edit = pRecorder->GetEdits().first();
        QCOMPARE(edit.command, CommandTakeEarlier);
        QCOMPARE(edit.nNodes, 5);
        QVERIFY(pFixture->pHost->RestoreList(edit.after, edit.before));
        QCOMPARE(ListText::BuildExact(CControlFixture::GetTree()), strBefore);
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
