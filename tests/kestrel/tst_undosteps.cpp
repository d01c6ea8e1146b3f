#include "CHostDouble.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/undo/CUndoSteps.h"
#include "TestMain.h"

#include <QSignalSpy>

namespace {

/// Undo on a host that does what the test says.
class CScene
{
public:
    CScene()
    {
        language.Set("en");
    }

    /// The list is at that edition and has so many groups and processors, in no group.
    static SListSnapshot At(quint64 nEdition, int nGroups = 0, int nProcessors = 0)
    {
        SListSnapshot snapshot;
        snapshot.nEdition = nEdition;
        for (int n = 0; n < nGroups; ++n) {
            snapshot.discovered.listGroup.append(SProcessorGroupNode());
        }
        for (int n = 0; n < nProcessors; ++n) {
            snapshot.discovered.listProcessor.append(SProcessorNode());
        }
        return snapshot;
    }

    void Edit(EnListCommand command, const QString& strName, const SListSnapshot& before, const SListSnapshot& after,
              quint64 nJob = 0)
    {
        emit host.ListEdited({ command, strName, 1, before, after, nJob });
    }

    /// One that leads to the next edition.
    void Edit(EnListCommand command, const QString& strName, quint64 nEdition, quint64 nJob = 0)
    {
        Edit(command, strName, At(nEdition), At(nEdition + 1), nJob);
    }

    /// As from another thread: deletes nProcessors, one after the other, the list at an edition before the first.
    void DeleteJob(int nProcessors, quint64 nEdition)
    {
        host.ChangeBusy(true);
        for (int n = nProcessors; n > 0; --n, ++nEdition) {
            Edit(CommandDelete, QStringLiteral("P%1").arg(n), At(nEdition, 0, n), At(nEdition + 1, 0, n - 1), 1);
            QCoreApplication::processEvents(); // each takes its time
        }
        host.ChangeBusy(false);
        Settle();
    }

    /// The edits and the end of their turn are delivered.
    static void Settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    /// The names that Undo would take back, newest first.
    QStringList Names()
    {
        Settle();
        QStringList listName;
        while (steps.CanUndo()) {
            listName.append(steps.GetUndoName());
            steps.Undo();
        }
        return listName;
    }

    CLanguage language;
    CHostDouble host;
    CUndoSteps steps{ host };
};

} // namespace

/// What counts as one step, and what happens to it.
class CUndoStepsTest : public QObject
{
    Q_OBJECT

private slots:
    void aDeletionJobIsOneStepWithItsCount()
    {
        CScene scene;
        scene.DeleteJob(3, 1);

        QCOMPARE(scene.Names(), QStringList{ "Delete 3 processors" });
        QCOMPARE(scene.host.Calls(), QStringList{ "restore 4>1" });
    }

    void twoDeletionJobsAreTwoSteps()
    {
        CScene scene;
        scene.DeleteJob(2, 1);
        scene.DeleteJob(1, 3);

        QCOMPARE(scene.Names(), (QStringList{ "Delete P1", "Delete 2 processors" }));
    }

    void aCommandDuringAJobKeepsItsPlace()
    {
        CScene scene;
        scene.host.ChangeBusy(true); // a scan, which outlasts all
        scene.Edit(CommandDelete, "A", CScene::At(1, 0, 3), CScene::At(2, 0, 2), 1);
        scene.Edit(CommandRename, "B", 2);
        scene.Edit(CommandDelete, "C", CScene::At(3, 0, 2), CScene::At(4, 0, 1), 2);
        CScene::Settle();
        scene.host.ChangeBusy(false);
        QCOMPARE(scene.Names(), (QStringList{ "Delete C", "Rename to B", "Delete A" }));
    }

    void twoDeletionJobsOfOneBusyStateAreTwoSteps()
    {
        CScene scene;
        scene.host.ChangeBusy(true);
        scene.Edit(CommandDelete, "A", CScene::At(1, 0, 3), CScene::At(2, 0, 2), 1);
        scene.Edit(CommandDelete, "B", CScene::At(2, 0, 2), CScene::At(3, 0, 1), 2);
        scene.host.ChangeBusy(false);
        QCOMPARE(scene.Names(), (QStringList{ "Delete B", "Delete A" }));
    }

    void twoUngroupsDuringAJobAreTwoSteps()
    {
        CScene scene;
        QWidget widget;
        scene.host.ChangeBusy(true);
        scene.Edit(CommandUngroup, "Main stage", 1);
        QTest::keyClick(&widget, Qt::Key_Space);
        scene.Edit(CommandUngroup, "Foyer", 2);
        CScene::Settle();
        scene.host.ChangeBusy(false);
        QCOMPARE(scene.Names(), (QStringList{ "Ungroup Foyer", "Ungroup Main stage" }));
    }

    void aGroupIsNamedWithItsProcessors_data()
    {
        QTest::addColumn<int>("nMembers");
        QTest::addColumn<QString>("strName");
        QTest::newRow("empty") << 0 << QStringLiteral("Delete the group “Main stage”");
        QTest::newRow("one") << 1 << QStringLiteral("Delete the group “Main stage” with 1 processor");
        QTest::newRow("four") << 4 << QStringLiteral("Delete the group “Main stage” with 4 processors");
    }

    void aGroupIsNamedWithItsProcessors()
    {
        QFETCH(int, nMembers);
        QFETCH(QString, strName);
        CScene scene;
        scene.Edit(CommandDeleteGroup, "Main stage", CScene::At(1, 1, nMembers), CScene::At(2));
        QCOMPARE(scene.Names(), QStringList{ strName });
    }

    void groupsAndProcessorsAreCountedApart()
    {
        CScene scene;
        scene.host.ChangeBusy(true);
        scene.Edit(CommandDeleteGroup, "Main stage", CScene::At(1, 1, 5), CScene::At(2, 0, 2), 1);
        scene.Edit(CommandDelete, "Wall", CScene::At(2, 0, 2), CScene::At(3, 0, 1), 1);
        scene.host.ChangeBusy(false);
        QCOMPARE(scene.Names(), QStringList{ "Delete 1 group and 4 processors" });
    }

    void theMovesOfOneTurnAreOneStep()
    {
        CScene scene;
        for (quint64 n = 1; n <= 3; ++n) {
            scene.Edit(CommandMove, "Wall", n);
        }
        QCOMPARE(scene.Names(), QStringList{ "Move 3 processors" });
        QCOMPARE(scene.host.Calls(), QStringList{ "restore 4>1" });
    }

    void theMovesOfTwoInputsAreTwoSteps()
    {
        CScene scene;
        QWidget widget;
        scene.Edit(CommandMove, "Wall", 1);
        QTest::keyClick(&widget, Qt::Key_Space);
        scene.Edit(CommandMove, "Door", 2);
        QCOMPARE(scene.Names(), (QStringList{ "Move Door", "Move Wall" }));
    }

    void aGroupingIsOneStep()
    {
        CScene scene;
        scene.Edit(CommandAddGroup, "Group 1", 1);
        for (quint64 n = 2; n <= 4; ++n) {
            scene.Edit(CommandMove, "Wall", n);
        }
        QCOMPARE(scene.Names(), QStringList{ "Group 3 processors" });
    }

    void commandsOfOtherKindsAreStepsOfTheirOwn()
    {
        CScene scene;
        scene.Edit(CommandRename, "Wall left", 1);
        scene.Edit(CommandMove, "Wall left", 2);
        scene.Edit(CommandUngroup, "Main stage", 3);
        scene.Edit(CommandImport, "/lists/a.kvtl", 4);
        scene.Edit(CommandChief, "Main stage", 5);
        scene.Edit(CommandAddSimulators, "Simulator 1", 6);
        scene.Edit(CommandAddSimulators, "Simulator 2", 7);

        QCOMPARE(scene.Names(),
                 (QStringList{ "Add 2 simulators", "Chief of Main stage", "Import", "Ungroup Main stage", "Move Wall left",
                               "Rename to Wall left" }));
    }

    void whatCameBetweenStaysOutOfTheSnapshots()
    {
        CScene scene;
        scene.host.ChangeBusy(true);
        scene.Edit(CommandDelete, "Wall", CScene::At(1, 0, 2), CScene::At(2, 0, 1), 1);
        scene.Edit(CommandDelete, "Door", CScene::At(3, 0, 2), CScene::At(4, 0, 1), 1); // a found node made it 3
        scene.host.ChangeBusy(false);
        CScene::Settle();

        scene.steps.Undo();
        QCOMPARE(scene.host.Calls(), (QStringList{ "restore 4>3", "restore 2>1" }));
        scene.host.ClearCalls();

        scene.steps.Redo();
        QCOMPARE(scene.host.Calls(), (QStringList{ "restore 1>2", "restore 3>4" }));
    }

    void aStepIsTakenBackWholeOrNotAtAll()
    {
        CScene scene;
        scene.host.ChangeBusy(true);
        scene.Edit(CommandDelete, "Wall", CScene::At(1, 0, 2), CScene::At(2, 0, 1), 1);
        scene.Edit(CommandDelete, "Door", CScene::At(3, 0, 2), CScene::At(4, 0, 1), 1);
        scene.host.ChangeBusy(false);
        CScene::Settle();
        scene.host.fnReason = [](quint64 nTo) { return nTo == 1 ? ReasonAddressTaken : ReasonNone; };

        scene.steps.Undo();

        QCOMPARE(scene.host.Calls(), (QStringList{ "restore 4>3", "restore 3>4" }));
        QCOMPARE(scene.steps.GetUndoName(), QStringLiteral("Delete 2 processors"));
    }

    void aRefusedUndoStaysAndSaysWhy()
    {
        CScene scene;
        scene.Edit(CommandRename, "Wall left", 1);
        CScene::Settle();
        QSignalSpy spyRefused(&scene.steps, &CUndoSteps::RestoreRefused);
        scene.host.reason = ReasonListFull;

        scene.steps.Undo();

        QCOMPARE(spyRefused.size(), 1);
        QCOMPARE(spyRefused.first().at(2).value<SRefusal>().reason, ReasonListFull);
        QCOMPARE(scene.steps.GetUndoName(), QStringLiteral("Rename to Wall left"));
        QVERIFY(!scene.steps.CanRedo());
        scene.host.reason = ReasonNone;
        scene.steps.Undo();
        QCOMPARE(scene.steps.GetRedoName(), QStringLiteral("Rename to Wall left"));
    }

    void theReasonIsTheOneOfTheAttempt()
    {
        CScene scene;
        scene.Edit(CommandRename, "Wall left", 1);
        CScene::Settle();
        QSignalSpy spyRefused(&scene.steps, &CUndoSteps::RestoreRefused);
        scene.host.reasonLate = ReasonInUse;

        scene.steps.Undo();

        QCOMPARE(spyRefused.value(0).value(2).value<SRefusal>().reason, ReasonInUse);
    }

    void aStepRefusedTwiceCanBeLeftOut()
    {
        CScene scene;
        scene.Edit(CommandRename, "First", 1);
        CScene::Settle();
        scene.Edit(CommandRename, "Second", 2);
        CScene::Settle();
        scene.host.reason = ReasonAddressTaken;
        scene.steps.Undo();
        QVERIFY(!scene.steps.IsStuck());
        scene.steps.Skip(); // not yet
        QCOMPARE(scene.steps.GetUndoName(), QStringLiteral("Rename to Second"));

        scene.steps.Undo();
        QVERIFY(scene.steps.IsStuck());
        scene.steps.Skip();

        QCOMPARE(scene.steps.GetUndoName(), QStringLiteral("Rename to First"));
        QVERIFY(!scene.steps.IsStuck() && !scene.steps.CanRedo());
        QCOMPARE(scene.host.Calls(), QStringList());
    }

    void aReasonThatPassesLeavesNothingOut()
    {
        CScene scene;
        scene.Edit(CommandRename, "Wall", 1);
        CScene::Settle();
        scene.host.reason = ReasonBusy;
        for (int n = 0; n < 5; ++n) {
            scene.steps.Undo();
        }
        QVERIFY(!scene.steps.IsStuck());
    }

    void aRefusedRedoStaysAsWell()
    {
        CScene scene;
        scene.Edit(CommandRename, "Wall", 1);
        CScene::Settle();
        scene.steps.Undo();
        scene.host.reason = ReasonListFull;

        scene.steps.Redo();

        QCOMPARE(scene.steps.GetRedoName(), QStringLiteral("Rename to Wall"));
        QVERIFY(!scene.steps.CanUndo());
    }

    void aNewCommandDropsWhatCouldBeDoneAgain()
    {
        CScene scene;
        scene.Edit(CommandRename, "Wall", 1);
        CScene::Settle();
        scene.steps.Undo();
        QVERIFY(scene.steps.CanRedo());

        scene.Edit(CommandRename, "Door", 3);
        CScene::Settle();

        QVERIFY(!scene.steps.CanRedo());
        QCOMPARE(scene.Names(), QStringList{ "Rename to Door" });
    }

    void theLastHundredStepsAreKept()
    {
        CScene scene;
        for (quint64 n = 1; n <= 101; ++n) {
            scene.Edit(CommandRename, QString::number(n), n);
            CScene::Settle();
        }
        const QStringList listName = scene.Names();
        QCOMPARE(listName.size(), 100);
        QCOMPARE(listName.last(), QStringLiteral("Rename to 2"));
    }

    void nothingIsTakenBackWhileBusyOrLocked()
    {
        CScene scene;
        scene.Edit(CommandRename, "Wall", 1);
        CScene::Settle();
        const auto isOff = [&] {
            scene.steps.Undo();
            return !scene.steps.CanUndo() && scene.host.Calls().isEmpty() && !scene.steps.GetUndoName().isEmpty();
        };
        scene.host.bLocked = true;
        QVERIFY(isOff());
        scene.host.bLocked = false;
        scene.host.ChangeBusy(true);
        QVERIFY(isOff());
        scene.host.ChangeBusy(false);
        scene.host.vecJob = { SRunningJob() };
        QVERIFY(isOff());
        scene.host.vecJob.clear();
        QVERIFY(scene.steps.CanUndo());
    }

    void undoRightBehindACommandTakesThatCommandBack()
    {
        CScene scene;
        scene.Edit(CommandRename, "First", 1);
        CScene::Settle();
        scene.Edit(CommandMove, "Second", 2); // nothing was delivered yet

        scene.steps.Undo();

        QCOMPARE(scene.host.Calls(), QStringList{ "restore 3>2" });
        QCOMPARE(scene.steps.GetUndoName(), QStringLiteral("Rename to First"));
    }

    void namesFollowTheLanguage_data()
    {
        QTest::addColumn<QString>("strLanguage");
        QTest::addColumn<QString>("strMany");
        QTest::addColumn<QString>("strOne");
        QTest::newRow("English") << "en" << "Group 3 processors" << "Group 1 processor";
        QTest::newRow("German") << "de" << "3 Prozessoren gruppieren" << "1 Prozessor gruppieren";
        QTest::newRow("Chinese") << "zh_CN" << QStringLiteral("将 3 台处理器编组") << QStringLiteral("将 1 台处理器编组");
    }

    void namesFollowTheLanguage()
    {
        QFETCH(QString, strLanguage);
        QFETCH(QString, strMany);
        QFETCH(QString, strOne);
        CScene scene;
        for (const int nMoves : { 1, 3 }) {
            scene.Edit(CommandAddGroup, "Group 1", 1);
            for (int n = 0; n < nMoves; ++n) {
                scene.Edit(CommandMove, "Wall", quint64(2 + n));
            }
            CScene::Settle();
        }

        scene.language.Set(strLanguage);

        QCOMPARE(scene.Names(), (QStringList{ strMany, strOne }));
    }
};

PTV_TEST_MAIN(CUndoStepsTest)
#include "tst_undosteps.moc"
