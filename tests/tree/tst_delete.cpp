#include "CDialogDriver.h"
#include "TestMain.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"

#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QRegularExpression>

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Expanded(false), Processor("beta").Expanded(false) }), Group("Empty"),
                  Group("Hall", { Processor("gamma").Expanded(false) }), Group("Void") },
                { Processor("loose").Expanded(false), Processor("last").Expanded(false) });
}

/// What the job is to do with the nodes, in the order of their ids.
QStringList DeleteCalls(const QStringList& listName, bool bWithProcessors)
{
    QMap<QUuid, QString> mapCall;
    for (const QString& strName : listName) {
        const bool bGroup = strName[0].isUpper();
        mapCall[bGroup ? GroupId(strName) : ProcessorId(strName)] = bGroup
            ? QStringLiteral("g_pPrcListControl.DeleteGroup(%1, %2)").arg(strName, bWithProcessors ? "true" : "false")
            : QStringLiteral("g_pPrcListControl.DeleteProcessor(%1, false)").arg(strName);
    }
    return mapCall.values();
}

/// The whole sequence of a deletion, with threads.
QStringList Sequence(const QStringList& listName, bool bWithProcessors, const QString& strNext)
{
    QStringList listCall{ "gui: g_pRuntimeControl.SetBusy(true)" };
    for (const QString& strCall : DeleteCalls(listName, bWithProcessors)) {
        listCall.append("other: " + strCall);
    }
    return listCall << "other: " + SelectCall(strNext) << "other: g_pRuntimeControl.PostMessage(14)"
                    << "other: g_pRuntimeControl.SetBusy(false)";
}

bool HasEnded(const CTreeFixture& fixture)
{
    return fixture.control.CallCount("SetBusy") == 2;
}

struct SQuestion
{
    QString strTitle;
    QString strText;
    QStringList listButton;
    QString strDefault;
};

/// Answers the next dialog and remembers it.
class CAnswer
{
public:
    explicit CAnswer(const QString& strButton)
    {
        driver.Answer([this, strButton](QDialog* pDialog) {
            question = Read(pDialog);
            CDialogDriver::Press(pDialog, strButton);
        });
    }

    static SQuestion Read(const QDialog* pDialog)
    {
        SQuestion read;
        read.strTitle = pDialog->windowTitle();
        read.listButton = CDialogDriver::Buttons(pDialog);
        for (const QLabel* pLabel : pDialog->findChildren<QLabel*>("MessageText")) {
            read.strText = pLabel->text();
        }
        for (const QPushButton* pButton : pDialog->findChildren<QPushButton*>()) {
            read.strDefault += pButton->isDefault() ? pButton->text().remove('&') : QString();
        }
        return read;
    }

    SQuestion question;
    CDialogDriver driver;
};

} // namespace

class CDeleteTest : public QObject
{
    Q_OBJECT

private slots:
    void emptyGroupsGoWithoutAQuestion()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Empty", "Void" });
        const CDialogDriver driver;
        fixture.pTree->DeleteNode(true);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(driver.Shown(), QStringList());
        QCOMPARE(fixture.control.CommandsWithThread(), Sequence({ "Empty", "Void" }, false, "beta"));
    }

    void processorsAreAskedFor()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose", "last" });
        const CAnswer answer("Yes");
        fixture.pTree->DeleteNode(true);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(answer.question.strTitle, QStringLiteral("Delete processors"));
        QCOMPARE(answer.question.strText, QStringLiteral("Do you want to delete all the selected processors?"));
        QCOMPARE(fixture.control.CommandsWithThread(), Sequence({ "loose", "last" }, false, "Void"));
    }

    void theQuestionOffersYesAndNoAndNoIsTheDefault()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        const CAnswer answer("No");
        fixture.pTree->DeleteNode(true);
        QVERIFY(answer.driver.IsDone());
        QStringList listButton = answer.question.listButton.filter(QRegularExpression("Yes|No|OK"));
        QCOMPARE(listButton, (QStringList{ "Yes", "No" }));
        QCOMPARE(answer.question.strDefault, QStringLiteral("No"));
    }

    void groupsAndProcessorsAreAskedForTogether_data()
    {
        QTest::addColumn<QStringList>("listSelected");
        QTest::addColumn<QString>("strNext");
        QTest::newRow("an empty group and a processor") << QStringList{ "Empty", "last" } << "beta";
        QTest::newRow("a filled group and a processor") << QStringList{ "Hall", "last" } << "Empty";
        QTest::newRow("both kinds of group and a processor") << QStringList{ "Stage", "Void", "last" } << "{null}";
        QTest::newRow("a group and its own member") << QStringList{ "Stage", "alpha" } << "{null}";
    }
    void groupsAndProcessorsAreAskedForTogether()
    {
        QFETCH(QStringList, listSelected);
        QFETCH(QString, strNext);
        CTreeFixture fixture(Site());
        fixture.Select(listSelected);
        const CAnswer answer("Yes");
        fixture.pTree->DeleteNode(true);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(answer.question.strTitle, QStringLiteral("Delete groups and processors"));
        QCOMPARE(answer.question.strText, QStringLiteral("Do you want to delete all the selected groups and processors?"));
        QCOMPARE(fixture.control.CommandsWithThread(), Sequence(listSelected, true, strNext));
    }

    void filledGroupsOfferToKeepTheirProcessors_data()
    {
        QTest::addColumn<QStringList>("listSelected");
        QTest::addColumn<QString>("strButton");
        QTest::addColumn<bool>("bWithProcessors");
        const QStringList listOne{ "Stage" }, listMixed{ "Stage", "Empty" };
        QTest::newRow("one, with processors") << listOne << "Delete group and processors" << true;
        QTest::newRow("one, group only") << listOne << "Delete group only" << false;
        QTest::newRow("and an empty one, with processors") << listMixed << "Delete group and processors" << true;
        QTest::newRow("and an empty one, group only") << listMixed << "Delete group only" << false;
    }
    void filledGroupsOfferToKeepTheirProcessors()
    {
        QFETCH(QStringList, listSelected);
        QFETCH(QString, strButton);
        QFETCH(bool, bWithProcessors);
        CTreeFixture fixture(Site());
        fixture.Select(listSelected);
        const CAnswer answer(strButton);
        fixture.pTree->DeleteNode(true);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(answer.question.strTitle, QStringLiteral("Delete"));
        QCOMPARE(answer.question.listButton.filter("group"), (QStringList{ "Delete group and processors", "Delete group only" }));
        QCOMPARE(fixture.control.CommandsWithThread(), Sequence(listSelected, bWithProcessors, "{null}"));
    }

    void aRefusedDialogLeavesNoTrace_data()
    {
        QTest::addColumn<QString>("strSelected");
        QTest::addColumn<QString>("strHow");
        for (const char* szSelected : { "loose", "Stage" }) {
            QTest::addRow("%s, Escape", szSelected) << szSelected << "key Escape";
            QTest::addRow("%s, closed window", szSelected) << szSelected << "window closed";
        }
        QTest::newRow("loose, Return on the default") << "loose"
                                                      << "key Return";
        QTest::newRow("loose, No") << "loose"
                                   << "No";
    }
    void aRefusedDialogLeavesNoTrace()
    {
        QFETCH(QString, strSelected);
        QFETCH(QString, strHow);
        CTreeFixture fixture(Site());
        fixture.Select({ strSelected });
        CDialogDriver driver;
        driver.Answer(strHow);
        fixture.pTree->DeleteNode(true);
        QVERIFY(driver.IsDone());
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void withoutAskingAGroupGoesWithItsProcessors()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Stage", "last" });
        fixture.pTree->DeleteNode(false);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(fixture.control.CommandsWithThread(), Sequence({ "Stage", "last" }, true, "{null}"));
    }

    void theRootIsLeftOut()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "all", "loose" });
        const CAnswer answer("Yes");
        fixture.pTree->DeleteNode(true);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(answer.question.strTitle, QStringLiteral("Delete processors"));
        QCOMPARE(fixture.control.Commands().filter("Delete"), QStringList{ "g_pPrcListControl.DeleteProcessor(loose, false)" });
    }

    void theRootAloneIsNotDeleted_data()
    {
        QTest::addColumn<bool>("bAsk");
        QTest::newRow("asking") << true;
        QTest::newRow("by key") << false;
    }
    void theRootAloneIsNotDeleted()
    {
        QFETCH(bool, bAsk);
        CTreeFixture fixture(Site());
        fixture.Select({ "all" });
        fixture.pTree->DeleteNode(bAsk);
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aLockedOrBlockedListIsLeftAloneInSilence_data()
    {
        QTest::addColumn<bool>("bLocked");
        QTest::addColumn<bool>("bActive");
        QTest::addColumn<bool>("bInUse");
        QTest::addColumn<bool>("bBlocked");
        QTest::newRow("locked") << true << false << false << true;
        QTest::newRow("active and in use") << false << true << true << true;
        QTest::newRow("active") << false << true << false << false;
        QTest::newRow("in use") << false << false << true << false;
    }
    void aLockedOrBlockedListIsLeftAloneInSilence()
    {
        QFETCH(bool, bLocked);
        QFETCH(bool, bActive);
        QFETCH(bool, bInUse);
        QFETCH(bool, bBlocked);
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        fixture.control.Set([&](SControlAnswers& answers) {
            answers.bListLocked = bLocked;
            answers.vecSelectedProcessors = { ProcessorId("loose") };
            answers.setActive = bActive ? QSet<QUuid>{ ProcessorId("loose") } : QSet<QUuid>();
            answers.setInUse = bInUse ? QSet<QUuid>{ ProcessorId("loose") } : QSet<QUuid>();
        });
        fixture.ReadStore();
        fixture.Clear();
        fixture.pTree->DeleteNode(false);
        QVERIFY(bBlocked || QTest::qWaitFor([&] { return HasEnded(fixture); }, nPatience));
        QCOMPARE(fixture.control.Commands().isEmpty(), bBlocked);
    }

    void whatWasLastReportedGoesWhenNothingIsSelected()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        fixture.Click(fixture.Row("loose"), Qt::ControlModifier);
        QCOMPARE(fixture.Selected(), QStringList());
        fixture.pTree->DeleteNode(false);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(fixture.control.Commands().filter("Delete"), QStringList{ "g_pPrcListControl.DeleteProcessor(loose, false)" });
    }

    void theRootIsSelectedAfterTheRowsAtTheTopHaveGone()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "Stage", "Empty" });
        fixture.pTree->DeleteNode(false);
        QTRY_VERIFY(HasEnded(fixture));
        QVERIFY(fixture.control.Commands().contains(SelectCall("{null}")));
    }

    void aRefusedSelectionIsFollowedByMessage15()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        fixture.control.Set([](SControlAnswers& answers) { answers.bSelectionAccepted = false; });
        fixture.pTree->DeleteNode(false);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(fixture.control.CommandsWithThread().mid(2),
                 (QStringList{ "other: " + SelectCall("loose"), "other: g_pRuntimeControl.PostMessage(15)",
                               "other: g_pRuntimeControl.PostMessage(14)", "other: g_pRuntimeControl.SetBusy(false)" }));
    }

    void deletingReturnsAtOnceAndStaysBusyUntilTheDeviceHasAnswered()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        fixture.control.Hold("DeleteProcessor");
        fixture.pTree->DeleteNode(false);
        QVERIFY(fixture.control.WaitForHeld("DeleteProcessor"));
        QCOMPARE(fixture.control.CallCount("SetBusy"), 1);
        QCOMPARE(fixture.control.CallCount("PostMessage"), 0);
        fixture.control.Release("DeleteProcessor");
        QTRY_VERIFY(HasEnded(fixture));
    }

    void aSecondDeletionDuringTheFirstIsNotRefused()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        fixture.control.Hold("DeleteProcessor");
        fixture.pTree->DeleteNode(false);
        fixture.pTree->DeleteNode(false);
        QVERIFY(fixture.control.WaitForCall("DeleteProcessor", 2));
        fixture.control.Release("DeleteProcessor");
        QTRY_COMPARE(fixture.control.CallCount("SetBusy"), 4);
        QCOMPARE(
            fixture.control.Commands().filter("DeleteProcessor"),
            (QStringList{ "g_pPrcListControl.DeleteProcessor(last, false)", "g_pPrcListControl.DeleteProcessor(last, false)" }));
    }

    void theNodeToSelectIsFoundBeforeTheRowsChange()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        fixture.control.Hold("DeleteProcessor");
        fixture.pTree->DeleteNode(false);
        fixture.Load(Root({}), { QUuid() });
        fixture.control.Release("DeleteProcessor");
        QTRY_VERIFY(fixture.control.Commands().contains("g_pRuntimeControl.SetBusy(false)"));
        QVERIFY(fixture.control.Commands().contains(SelectCall("loose")));
    }

    void theJobOutlivesItsTree()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "last" });
        fixture.control.Hold("DeleteProcessor");
        fixture.pTree->DeleteNode(false);
        QVERIFY(fixture.control.WaitForHeld("DeleteProcessor"));
        fixture.pTree.reset();
        fixture.control.Release("DeleteProcessor");
        QTRY_VERIFY(HasEnded(fixture));
    }

    void theTreeMayGoWhileItAsks_data()
    {
        QTest::addColumn<QString>("strSelected");
        QTest::newRow("question") << "loose";
        QTest::newRow("options") << "Stage";
    }
    void theTreeMayGoWhileItAsks()
    {
        QFETCH(QString, strSelected);
        CTreeFixture fixture(Site());
        fixture.Select({ strSelected });
        CDialogDriver driver;
        driver.Answer([&](QDialog*) { fixture.pTree.reset(); });
        CTestTree* const pTree = fixture.pTree.data();
        pTree->DeleteNode(true);
        QVERIFY(driver.IsDone());
        QCOMPARE(fixture.control.Commands(), QStringList());
    }

    void aRowThatGoesWhileTheQuestionIsOpenIsStillAskedFor()
    {
        CTreeFixture fixture(Site());
        fixture.Select({ "loose" });
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            fixture.Load(Root({ Group("Hall") }), { QUuid() });
            CDialogDriver::Press(pDialog, "Yes");
        });
        fixture.pTree->DeleteNode(true);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(fixture.control.CommandsWithThread(), Sequence({ "loose" }, false, "Hall"));
    }

    void nodesThatTheLibraryDoesNotKnowCountAsProcessors()
    {
        CTreeFixture fixture(Site());
        g_pProcessorTreeData->SetSelectedNodes({ ProcessorId("gone") });
        fixture.pTree->DeleteNode(false);
        QTRY_VERIFY(HasEnded(fixture));
        QCOMPARE(fixture.control.Commands().filter("Delete"), QStringList{ "g_pPrcListControl.DeleteProcessor(gone, false)" });
    }
};

PTV_TEST_MAIN(CDeleteTest)
#include "tst_delete.moc"
