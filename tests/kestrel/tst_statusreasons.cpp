#include "CDialogDriver.h"
#include "CDoubledWindow.h"
#include "Kestrel/journal/CGuardField.h"
#include "Kestrel/status/CBusyIndicator.h"
#include "Kestrel/status/CRefusalNote.h"
#include "Kestrel/status/FieldWidths.h"
#include "Kestrel/status/RefusalText.h"
#include "TestMain.h"
#include "clipping/StatusFaults.h"

#include <QAction>
#include <QFile>
#include <QRegularExpression>
#include <QStatusBar>

Q_DECLARE_METATYPE(EnListCommand)
Q_DECLARE_METATYPE(EnRefusalReason)

namespace {

SRefusal Refusal(EnListCommand command, EnRefusalReason reason, const QString& strDetail = {})
{
    return { command, QStringLiteral("Wall left"), reason, strDetail, QStringLiteral("in English") };
}

SListEdit Edit(quint64 nEdition)
{
    SListEdit edit;
    edit.command = CommandRename;
    edit.before.nEdition = nEdition;
    edit.after.nEdition = nEdition + 1;
    return edit;
}

/// A window with what a test asks of its status bar.
class CScene : public CDoubledWindow
{
public:
    CRefusalNote* Note() const
    {
        return pWindow->findChild<CRefusalNote*>();
    }

    /// What was emitted is delivered.
    static void Settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    void Refuse(const SRefusal& refusal)
    {
        emit host.CommandRefused(refusal);
        Settle();
    }

    /// The entry of the menus with that text; null when there is none.
    QAction* Find(const QString& strText) const
    {
        const QList<QAction*> listAction = pWindow->findChildren<QAction*>();
        for (QAction* pAction : listAction) {
            if (pAction->text() == strText) {
                return pAction;
            }
        }
        return nullptr;
    }

    void Press(const QString& strText) const
    {
        QAction* pAction = Find(strText);
        QVERIFY2(pAction, qPrintable(strText));
        pAction->trigger();
    }

    QString BusyText() const
    {
        return pWindow->findChild<CBusyIndicator*>()->GetText();
    }
};

} // namespace

/// Why a command was refused, and how far a job is, in the status bar.
class CStatusReasonsTest : public QObject
{
    Q_OBJECT

private slots:
    void theReasonOfARefusalIsShown()
    {
        CScene scene;
        QVERIFY(!scene.Note()->isVisible());

        scene.Refuse(Refusal(CommandRename, ReasonListLocked));

        QVERIFY(scene.Note()->isVisible());
        QCOMPARE(scene.Note()->text(), QStringLiteral("Rename to Wall left: the list is locked"));
        QVERIFY(scene.Note()->toolTip().contains("Wall left: the list is locked"));
    }

    void theNextSuccessTakesItAway()
    {
        CScene scene;
        scene.Refuse(Refusal(CommandRename, ReasonListLocked));
        emit scene.host.ListEdited(Edit(1));
        CScene::Settle();
        QVERIFY(!scene.Note()->isVisible());
    }

    void aSuccessOfTheSameTurnLeavesIt()
    {
        CScene scene;
        emit scene.host.CommandRefused(Refusal(CommandMove, ReasonGone));
        emit scene.host.ListEdited(Edit(1));
        CScene::Settle();
        QVERIFY(scene.Note()->isVisible());

        emit scene.host.ListEdited(Edit(2));
        CScene::Settle();
        QVERIFY(!scene.Note()->isVisible());
    }

    void aSuccessOfTheSameJobLeavesIt()
    {
        CScene scene;
        scene.host.ChangeBusy(true);
        CScene::Settle();
        SRefusal refusal = Refusal(CommandDelete, ReasonInUse, "Wall left");
        refusal.nJob = 7;
        scene.Refuse(refusal);
        SListEdit edit = Edit(1);
        edit.command = CommandDelete;
        edit.nJob = 7;
        emit scene.host.ListEdited(edit);
        CScene::Settle();
        scene.host.ChangeBusy(false);
        CScene::Settle();
        QVERIFY(scene.Note()->isVisible());

        emit scene.host.ListEdited(Edit(2));
        CScene::Settle();
        QVERIFY(!scene.Note()->isVisible());
    }

    void aSuccessDuringAnotherJobTakesItAway()
    {
        CScene scene;
        scene.host.ChangeBusy(true); // a scan, which goes on
        scene.Refuse(Refusal(CommandRename, ReasonNameEmpty));
        emit scene.host.ListEdited(Edit(1));
        CScene::Settle();
        QVERIFY(!scene.Note()->isVisible());
    }

    void theFirstOfManyRefusalsIsTheOneThatStays_data()
    {
        QTest::addColumn<quint64>("nJob");
        QTest::newRow("of one turn") << quint64(0);
        QTest::newRow("of one job") << quint64(7);
    }

    void theFirstOfManyRefusalsIsTheOneThatStays()
    {
        QFETCH(quint64, nJob);
        CScene scene;
        scene.host.ChangeBusy(nJob != 0);
        SRefusal first = Refusal(CommandAddGroup, ReasonGroupsFull);
        SRefusal next = Refusal(CommandMove, ReasonGroupGone);
        first.nJob = next.nJob = nJob;
        emit scene.host.CommandRefused(first);
        emit scene.host.CommandRefused(next);
        CScene::Settle();
        QVERIFY(scene.Note()->text().endsWith(": the list has all the groups that it can have"));

        scene.host.ChangeBusy(false);
        CScene::Settle();
        scene.Refuse(Refusal(CommandMove, ReasonGroupGone));
        QVERIFY(scene.Note()->text().endsWith(": the group is not in the list any more"));
    }

    void aReasonGoesWithItsCause_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("reason");
        QTest::newRow("a lock") << int(CommandRename) << int(ReasonListLocked);
        QTest::newRow("a block") << int(CommandScan) << int(ReasonRefreshBlocked);
        QTest::newRow("a job") << int(CommandImport) << int(ReasonBusy);
    }

    void aReasonGoesWithItsCause()
    {
        QFETCH(int, command);
        QFETCH(int, reason);
        CScene scene;
        scene.host.SetListLocked(true);
        scene.host.SetRefreshBlocked(true);
        scene.host.ChangeBusy(true);
        scene.Refuse(Refusal(EnListCommand(command), EnRefusalReason(reason)));
        emit scene.host.StateChanged();
        CScene::Settle();
        QVERIFY(scene.Note()->isVisible());

        scene.host.SetListLocked(false);
        scene.host.SetRefreshBlocked(false);
        emit scene.host.StateChanged();
        scene.host.ChangeBusy(false);
        CScene::Settle();
        QVERIFY(!scene.Note()->isVisible());
    }

    void aScanThatRunsIsRefusedNoMore()
    {
        CScene scene;
        scene.Refuse(Refusal(CommandScan, ReasonNotSupported));
        scene.host.vecJob = { { "Scanning the network", QDateTime::currentDateTime(), 0, 0 } };
        emit scene.host.JobsChanged(scene.host.GetRunningJobs());
        CScene::Settle();
        QVERIFY(!scene.Note()->isVisible());
    }

    void aListThatWasSavedIsRefusedNoMore()
    {
        CScene scene;
        scene.host.strListTrouble = "Cannot save";
        scene.Refuse(Refusal(CommandSave, ReasonFileNotWritten, "no space"));
        emit scene.host.ListTroubleChanged();
        CScene::Settle();
        QVERIFY(scene.Note()->isVisible());

        scene.host.strListTrouble.clear();
        emit scene.host.ListTroubleChanged();
        CScene::Settle();
        QVERIFY(!scene.Note()->isVisible());
    }

    void detailsInEnglishStayInTheJournal()
    {
        CLanguage language;
        language.Set("de");
        for (int n = ReasonFileInvalid; n <= ReasonFileUnreadable; ++n) {
            const QString strText = RefusalText::GetReason(Refusal(CommandImport, EnRefusalReason(n), "in English"));
            QVERIFY2(!strText.contains("English"), qPrintable(strText));
        }
        language.Set("en");
    }

    void aMessageOfTheBarDoesNotHideIt()
    {
        CScene scene;
        scene.Refuse(Refusal(CommandScan, ReasonRefreshBlocked));
        scene.pWindow->statusBar()->showMessage("Something else");
        QVERIFY(scene.Note()->isVisible());
    }

    void aRefusedUndoNamesItsStep()
    {
        CScene scene;
        SListEdit edit = Edit(1);
        edit.strName = "Wall left";
        emit scene.host.ListEdited(edit);
        CScene::Settle();
        scene.host.reason = ReasonListFull;

        scene.Press("&Undo: Rename to Wall left");
        CScene::Settle();

        QCOMPARE(scene.Note()->text(),
                 QStringLiteral("Undo of “Rename to Wall left”: the list has all the processors that it can have"));
    }

    void aStepRefusedTwiceIsOfferedToBeLeftOut_data()
    {
        QTest::addColumn<QString>("strAnswer");
        QTest::addColumn<bool>("bLeftOut");
        QTest::newRow("yes") << "ButtonYes" << true;
        QTest::newRow("the default") << "key Return" << false;
    }

    void aStepRefusedTwiceIsOfferedToBeLeftOut()
    {
        QFETCH(QString, strAnswer);
        QFETCH(bool, bLeftOut);
        CScene scene;
        SListEdit edit = Edit(1);
        edit.strName = "Wall left";
        emit scene.host.ListEdited(edit);
        CScene::Settle();
        scene.host.reason = ReasonListFull;
        CDialogDriver driver;
        driver.Answer(strAnswer);

        scene.Press("&Undo: Rename to Wall left");
        QCOMPARE(driver.Shown(), QStringList());
        scene.Press("&Undo: Rename to Wall left");

        QVERIFY(driver.IsDone());
        QVERIFY2(driver.Shown().first().startsWith("Undo: “Rename to Wall left” cannot be taken back: the list has all"),
                 qPrintable(driver.Shown().first()));
        QCOMPARE(scene.Find("&Undo: Rename to Wall left") == nullptr, bLeftOut);
    }

    void itFollowsTheLanguage()
    {
        CScene scene;
        scene.Refuse(Refusal(CommandRename, ReasonListLocked));
        scene.language.Set("de");
        QTRY_COMPARE(scene.Note()->text(), QStringLiteral("Umbenennen in Wall left: die Liste ist gesperrt"));
        scene.language.Set("zh_CN");
        QTRY_COMPARE(scene.Note()->text(), QStringLiteral("重命名为 Wall left：列表已锁定"));
    }

    void everyReasonHasWords_data()
    {
        QTest::addColumn<QString>("strLanguage");
        for (const QString& strCode : CLanguage::GetCodes()) {
            QTest::newRow(qPrintable(strCode)) << strCode;
        }
    }

    void everyReasonHasWords()
    {
        QFETCH(QString, strLanguage);
        CLanguage language;
        language.Set(strLanguage);
        QStringList listText;
        for (int n = ReasonListLocked; n <= ReasonNothingWasRefused; ++n) {
            listText.append(RefusalText::GetReason(Refusal(CommandRename, EnRefusalReason(n), "§")));
            QVERIFY2(!listText.last().isEmpty() && !listText.last().contains("%1"), qPrintable(listText.last()));
        }
        QCOMPARE(listText.removeDuplicates(), 0);
        for (int n = CommandAddGroup; n <= CommandScan; ++n) {
            if (n == CommandRestore) { // named by its step
                continue;
            }
            const QString strText = RefusalText::Get(Refusal(EnListCommand(n), ReasonListLocked));
            QVERIFY2(!strText.startsWith(':') && !strText.contains('%'), qPrintable(strText));
        }
        language.Set("en");
    }

    void theReasonsOfTheLibraryEndWithTheLastThatHasWords()
    {
        QFile header(CONTROLHOST_FOLDER "/EnRefusalReason.h");
        QVERIFY(header.open(QIODevice::ReadOnly));
        QVERIFY(QRegularExpression("\\bReasonNothingWasRefused\\b[^\n]*\n\\};").match(header.readAll()).hasMatch());
    }

    void aReasonWithoutWordsIsTheLibrarysOwn()
    {
        for (const int nReason : { int(ReasonNone), ReasonNothingWasRefused + 1 }) {
            QCOMPARE(RefusalText::GetReason(Refusal(CommandRename, EnRefusalReason(nReason))), QStringLiteral("in English"));
        }
    }

    void aNameMayHoldAnything()
    {
        SRefusal refusal = Refusal(CommandRename, ReasonNameCharacters, "%1 /");
        refusal.strName = "a%1\nb";
        QCOMPARE(RefusalText::Get(refusal), QStringLiteral("Rename to a%1 b: a name may not hold any of %1 /"));
    }

    void longWorkSaysHowFarItIs()
    {
        CScene scene;
        scene.host.vecJob = { { "Scanning the network", QDateTime::currentDateTime(), 0, 0 } };
        scene.host.ChangeBusy(true);
        CScene::Settle();
        const QString strSince = scene.host.GetBusySince().toString("HH:mm:ss");
        QVERIFY2(scene.BusyText().startsWith("Scanning the network – since " + strSince), qPrintable(scene.BusyText()));

        scene.host.vecJob.first().nDone = 12;
        scene.host.vecJob.first().nAll = 40;
        emit scene.host.JobProgressed(scene.host.vecJob);
        CScene::Settle();
        QVERIFY2(scene.BusyText().startsWith("Scanning the network – 12 of 40, since " + strSince), qPrintable(scene.BusyText()));

        scene.language.Set("de");
        QTRY_VERIFY(scene.BusyText().contains("12 von 40"));
    }

    void theNumbersStandBehindTheirJob()
    {
        CScene scene;
        const QDateTime time = QDateTime::currentDateTime();
        scene.host.vecJob = { { "Scanning the network", time, 12, 40 }, { "Adding the processor at 10.0.0.7", time, 0, 1 } };
        scene.host.ChangeBusy(true);
        CScene::Settle();
        QVERIFY2(scene.BusyText().startsWith("Scanning the network – 12 of 40, Adding the processor at 10.0.0.7, since "),
                 qPrintable(scene.BusyText()));
    }

    void aGreyUndoSaysWhy()
    {
        CScene scene;
        const auto says = [&scene] {
            emit scene.host.StateChanged();
            CScene::Settle();
            return scene.Find("&Undo")->statusTip();
        };
        QCOMPARE(says(), QString());
        scene.host.ChangeBusy(true); // of a job that may have died
        QCOMPARE(says(), QStringLiteral("a job is still running"));
        scene.host.bLocked = true;
        QCOMPARE(says(), QStringLiteral("the list is locked"));
    }

    void listsAreNotTakenWhileBusyOrLocked()
    {
        CScene scene;
        scene.host.strListError = "refused";
        const auto areOn = [&scene](bool bOn) {
            emit scene.host.StateChanged();
            CScene::Settle();
            return scene.Find("&Earlier lists…")->isEnabled() == bOn
                && scene.Find("Use this list &nevertheless…")->isEnabled() == bOn;
        };
        QVERIFY(areOn(true));
        scene.host.bLocked = true;
        QVERIFY(areOn(false));
        scene.host.bLocked = false;
        scene.host.ChangeBusy(true);
        QVERIFY(areOn(false));
        scene.host.ChangeBusy(false);
        QVERIFY(areOn(true));
    }

    void jobsAreNamedInTheLanguage_data()
    {
        QTest::addColumn<QString>("strJob");
        QTest::addColumn<int>("nDone");
        QTest::addColumn<int>("nAll");
        QTest::addColumn<QString>("strBegin");
        QTest::newRow("scan") << "Scanning the network" << 0 << 0 << "Das Netz wird durchsucht – seit ";
        QTest::newRow("one device") << "Adding the processor at 10.0.0.7" << 0 << 1
                                    << "Prozessor 10.0.0.7 wird hinzugefügt – seit ";
        QTest::newRow("deletions") << "Deleting \"Wall\"" << 3 << 0 << "\"Wall\" wird gelöscht – 3 erledigt, seit ";
        QTest::newRow("group") << "Deleting \"Stage\" with its processors" << 0 << 5
                               << "\"Stage\" wird mit seinen Prozessoren gelöscht – 0 von 5, seit ";
    }

    void jobsAreNamedInTheLanguage()
    {
        QFETCH(QString, strJob);
        QFETCH(int, nDone);
        QFETCH(int, nAll);
        QFETCH(QString, strBegin);
        CScene scene;
        scene.language.Set("de");
        scene.host.vecJob = { { strJob, QDateTime::currentDateTime(), nDone, nAll } };
        scene.host.ChangeBusy(true);
        CScene::Settle();
        QVERIFY2(scene.BusyText().startsWith(strBegin), qPrintable(scene.BusyText()));
        scene.language.Set("en");
    }

    void fieldsShareTheirRoom_data()
    {
        QTest::addColumn<int>("nRoom");
        QTest::addColumn<QVector<int>>("listWidth");
        QTest::newRow("all whole") << 500 << QVector<int>{ 100, 200, 100, 50 };
        QTest::newRow("the last is elided") << 440 << QVector<int>{ 100, 200, 100, 40 };
        QTest::newRow("all but the first") << 260 << QVector<int>{ 100, 90, 40, 30 };
        QTest::newRow("all as far as they can") << 220 << QVector<int>{ 60, 90, 40, 30 };
        QTest::newRow("the last gives way to the mark") << 219 << QVector<int>{ 69, 90, 40, 0 };
        QTest::newRow("the next one too") << 209 << QVector<int>{ 99, 90, 0, 0 };
        QTest::newRow("who is kept never") << 100 << QVector<int>{ 60, 90, 0, 0 };
    }

    void fieldsShareTheirRoom()
    {
        QFETCH(int, nRoom);
        QFETCH(QVector<int>, listWidth);
        const QVector<FieldWidths::SField> listField{
            { 100, 60, true }, { 200, 90, true }, { 100, 40, false }, { 50, 30, false }
        };
        QCOMPARE(FieldWidths::Share(listField, nRoom, 20), listWidth);
    }

    void aMessageOfTheBarStandsWhereWorkIsNamed()
    {
        CScene scene;
        scene.pWindow->statusBar()->showMessage("Quitting");
        QCOMPARE(scene.BusyText(), QString("Quitting"));
        scene.host.ChangeBusy(true);
        CScene::Settle();
        QCOMPARE(scene.BusyText(), QString("Quitting"));
        scene.pWindow->statusBar()->clearMessage();
        QVERIFY(scene.BusyText().startsWith("Busy – since "));
    }

    void nothingIsLostInANarrowWindow_data()
    {
        QTest::addColumn<QString>("strLanguage");
        QTest::addColumn<int>("nWidth");
        QTest::addColumn<bool>("bAllShown");
        const QStringList listCode = CLanguage::GetCodes() << CLanguage::GetPseudoCode();
        for (const QString& strCode : listCode) {
            QTest::addRow("%s, narrow", qPrintable(strCode)) << strCode << 640 << false;
            QTest::addRow("%s, as usual", qPrintable(strCode)) << strCode << 1040 << true;
        }
    }

    void nothingIsLostInANarrowWindow()
    {
        QFETCH(QString, strLanguage);
        QFETCH(int, nWidth);
        QFETCH(bool, bAllShown);
        CScene scene;
        scene.theme.Apply(*qApp);
        scene.language.Set(strLanguage);
        scene.host.SetChiefMode(true);
        scene.host.SetRefreshBlocked(true);
        scene.host.SetListLocked(true);
        scene.host.OpenProject("Aurora");
        emit scene.host.StateChanged();
        scene.host.vecJob = { { "Adding the processor at 10.0.0.7", QDateTime::currentDateTime(), 12, 40 } };
        scene.host.ChangeBusy(true);
        scene.host.strListTrouble = "/lists/of/the/studio/own.kvtl: Permission denied";
        emit scene.host.ListTroubleChanged();
        scene.Refuse(Refusal(CommandRename, ReasonTooManyNumbers));
        scene.pWindow->findChild<CGuardField*>()->SetState(1, {});
        scene.pWindow->resize(nWidth, 400);
        CScene::Settle();

        QTRY_COMPARE(scene.pWindow->width(), nWidth);
        QCOMPARE(StatusFaults::Find(*scene.pWindow->statusBar()), QStringList());
        QCOMPARE(StatusFaults::GetGone(*scene.pWindow->statusBar()).isEmpty(), bAllShown);
        QCOMPARE(StatusFaults::CountTexts(*scene.pWindow->statusBar()), 8);
        scene.language.Set("en");
    }
};

PTV_TEST_MAIN(CStatusReasonsTest)
#include "tst_statusreasons.moc"
