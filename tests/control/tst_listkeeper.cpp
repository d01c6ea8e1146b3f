#include "Builders.h"
#include "CControlFixture.h"
#include "CHandClock.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/CListKeeper.h"
#include "CorvidControl/file/CListStore.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/list/CDeletionWatch.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"

#include <QSemaphore>

using Command = std::function<void()>;
using SiteCommand = std::function<void(CProcessorList&)>;
Q_DECLARE_METATYPE(Command)
Q_DECLARE_METATYPE(SiteCommand)

using namespace std::chrono_literals;

namespace {

/// A keeper with a clock of its own, which counts its saves instead of saving.
class CCountingKeeper
{
public:
    CCountingKeeper() : keeper([this] { return Save(); }, clock) { }

    void Pass(std::chrono::milliseconds timePassed)
    {
        clock.Turn(timePassed);
    }

    /// As Pass, while changes wait. True when the keeper has looked at the clock and goes on waiting.
    bool PassUnsaved(std::chrono::milliseconds timePassed)
    {
        const int nSavesBefore = nSaves;
        const int nWaits = clock.Turn(timePassed);
        return QTest::qWaitFor([&] { return clock.GetWaits() > nWaits || nSaves != nSavesBefore; }) && nSaves == nSavesBefore;
    }

    bool AwaitSave()
    {
        return semaphore.tryAcquire(1, 10000);
    }

    CHandClock clock;
    std::atomic<bool> bWorks{ true };
    std::atomic<int> nSaves{ 0 };
    std::atomic<std::thread::id> thread;
    QSemaphore semaphore;
    CListKeeper keeper;

private:
    bool Save()
    {
        thread = std::this_thread::get_id();
        ++nSaves;
        semaphore.release();
        return bWorks;
    }
};

/// The library's list without the library.
class CBareList
{
public:
    explicit CBareList(const QString& strPath)
        : host(dispatcher, events), processors(dispatcher, events, host, {}), store(processors, jobs, events, strPath)
    {
        processors.SetEditListener([this] { ++nEdits; });
    }

    CMessageDispatcher dispatcher;
    CHostEvents events;
    const CHostState host;
    CProcessorList processors;
    CJobs jobs;
    CListStore store;
    int nEdits = 0;
};

} // namespace

/// When the list is saved by itself.
class CListKeeperTest : public QObject
{
    Q_OBJECT

private slots:
    void aChangeIsSavedASecondLater()
    {
        CCountingKeeper counting;
        counting.keeper.Touch();
        QVERIFY(counting.PassUnsaved(999ms));
        counting.keeper.Touch(); // and another
        QVERIFY(counting.PassUnsaved(999ms));
        counting.Pass(1ms);
        QVERIFY(counting.AwaitSave());
        QVERIFY(counting.thread.load() != std::this_thread::get_id());
        counting.Pass(1h);
        counting.keeper.Stop();
        QCOMPARE(counting.nSaves.load(), 1);
    }

    void changesWithoutAPauseAreSavedAfterFiveSeconds()
    {
        CCountingKeeper counting;
        for (int n = 0; n < 9; ++n) {
            counting.keeper.Touch();
            QVERIFY(counting.PassUnsaved(500ms));
        }
        counting.keeper.Touch();
        counting.Pass(500ms);
        QVERIFY(counting.AwaitSave());
        counting.keeper.Stop();
        QCOMPARE(counting.nSaves.load(), 1);
    }

    void aFailedSaveIsTriedAgainAfterFiveSeconds()
    {
        CCountingKeeper counting;
        counting.bWorks = false;
        counting.keeper.Touch();
        counting.Pass(1s);
        QVERIFY(counting.AwaitSave());
        std::chrono::milliseconds timePassed = 0ms;
        while (!counting.semaphore.tryAcquire(1, 10)) {
            counting.Pass(100ms);
            timePassed += 100ms;
            QVERIFY(timePassed < 1h);
        }
        QVERIFY2(timePassed >= 5s, "it was tried again at once");
    }

    void aChangeAfterAFailureDoesNotWaitThatLong()
    {
        CCountingKeeper counting;
        counting.bWorks = false;
        counting.keeper.Touch();
        counting.Pass(1s);
        QVERIFY(counting.AwaitSave());
        counting.keeper.Touch();
        counting.Pass(1s);
        QVERIFY(counting.AwaitSave());
    }

    void theEndSavesWhatWaits()
    {
        CCountingKeeper counting;
        counting.keeper.Touch();
        counting.keeper.Stop();
        QCOMPARE(counting.nSaves.load(), 1);
    }

    void theEndOfAQuietKeeperSavesNothing()
    {
        CCountingKeeper counting;
        counting.keeper.Stop();
        QCOMPARE(counting.nSaves.load(), 0);
    }

    void changesFromManyThreadsAreAllSaved()
    {
        std::atomic<int> nChanged{ 0 };
        std::atomic<int> nSaved{ 0 };
        CHandClock clock;
        CListKeeper keeper(
            [&] {
                nSaved = nChanged.load();
                return true;
            },
            clock);
        std::vector<std::thread> vecThread;
        for (int nThread = 0; nThread < 4; ++nThread) {
            vecThread.emplace_back([&] {
                for (int n = 0; n < 500; ++n) {
                    ++nChanged;
                    keeper.Touch();
                    clock.Turn(10ms);
                }
            });
        }
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        keeper.Stop();
        QCOMPARE(nSaved.load(), 2000);
    }

    void whatACommandChangesIsAReasonToSave_data()
    {
        QTest::addColumn<SiteCommand>("command");
        QTest::addColumn<int>("nEdits");
        const auto row
            = [](const char* szName, const SiteCommand& command, int nEdits) { QTest::newRow(szName) << command << nEdits; };
        row("a new group", [](CProcessorList& processors) { processors.AddGroup(Group("Hall")); }, 1);
        row("a name", [](CProcessorList& processors) { processors.RenameNode(GroupId("Stage"), "Hall"); }, 1);
        row("a move", [](CProcessorList& processors) { processors.MoveProcessor(ProcessorId("alpha"), QUuid()); }, 1);
        row("an ungrouping", [](CProcessorList& processors) { processors.RemoveGroup(GroupId("Stage"), false); }, 1);
        row("a deletion", [](CProcessorList& processors) { processors.RemoveProcessor(ProcessorId("alpha")); }, 1);
        row("a folding", [](CProcessorList& processors) { processors.SetExpanded(GroupId("Stage"), false); }, 1);
        row("the Chief", [](CProcessorList& processors) { processors.SetChief(GroupId("Stage"), ProcessorId("alpha")); }, 1);
        row("a found node", [](CProcessorList& processors) { processors.AddProcessor(Processor("found"), false); }, 1);
        row("the same name", [](CProcessorList& processors) { processors.RenameNode(GroupId("Stage"), "Stage"); }, 0);
        row("a name that is refused", [](CProcessorList& processors) { processors.RenameNode(GroupId("Stage"), "="); }, 0);
        row("the same folding", [](CProcessorList& processors) { processors.SetExpanded(GroupId("Stage"), true); }, 0);
        row(
            "a move to where it is",
            [](CProcessorList& processors) { processors.MoveProcessor(ProcessorId("alpha"), GroupId("Stage")); }, 0);
        row("a selection", [](CProcessorList& processors) { processors.SetSelection({ GroupId("Stage") }); }, 0);
        row("a simulator", [](CProcessorList& processors) { processors.AddProcessor(Processor("simulator"), true); }, 0);
    }

    void whatACommandChangesIsAReasonToSave()
    {
        QFETCH(SiteCommand, command);
        QFETCH(int, nEdits);
        CControlFixture fixture;
        CBareList list(fixture.GetPath());
        list.processors.ReplaceList(Root({ Group("Stage", { Processor("alpha") }) }));
        const quint64 nBefore = list.processors.GetEdition().nEdit;
        command(list.processors);
        QCOMPARE(list.nEdits, nEdits);
        QCOMPARE(list.processors.GetEdition().nEdit, nBefore + static_cast<quint64>(nEdits));
    }

    void whatDevicesSayIsNone_data()
    {
        QTest::addColumn<SProcessorNode>("report");
        QTest::newRow("online") << SProcessorNode(Processor("alpha").Online());
        QTest::newRow("role") << SProcessorNode(Processor("alpha").Primary());
        QTest::newRow("project") << SProcessorNode(Processor("alpha").Project("Aurora"));
        QTest::newRow("of a device that is not listed") << SProcessorNode(Processor("beta").Online());
    }

    void whatDevicesSayIsNone()
    {
        QFETCH(SProcessorNode, report);
        CControlFixture fixture;
        const QByteArray before = ListFormat::Write(Root({}, { Processor("alpha") }));
        fixture.Write("list.kvtl", before);
        CBareList list(fixture.GetPath());
        QVERIFY(list.store.Load());
        list.processors.ApplyReport(report);
        QCOMPARE(list.nEdits, 0);
        QVERIFY(list.store.SaveSoon());
        QCOMPARE(fixture.Read("list.kvtl"), before);
    }

    void whatDevicesSaidIsWrittenAlong()
    {
        CControlFixture fixture;
        fixture.Write("list.kvtl", ListFormat::Write(Root({ Group("Stage", { Processor("alpha") }) })));
        CBareList list(fixture.GetPath());
        QVERIFY(list.store.Load());
        list.processors.ApplyReport(Processor("alpha").Online());
        list.processors.RenameNode(GroupId("Stage"), "Hall");
        QVERIFY(list.store.SaveSoon());
        const SProcessorAllNode node = ListFormat::Read(fixture.Read("list.kvtl"), {}).node;
        QCOMPARE(node.listGroup.value(0).strName, QString("Hall"));
        QVERIFY(node.listGroup.at(0).listProcessor.at(0).bOnline);
    }

    void aLibraryThatIsKilledHasSavedTheLastCommand()
    {
        CControlFixture fixture;
        fixture.Start(Root({ Group("Stage") }));
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Hall");
        // Nothing saves but the library itself, which would be killed now.
        QTRY_VERIFY(fixture.Read("list.kvtl").contains("\"Hall\""));
    }

    void theEndOfTheLibrarySavesWithoutThePanel()
    {
        CControlFixture fixture;
        fixture.Start(Root({ Group("Stage") }));
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Hall");
        fixture.Stop();
        QVERIFY(fixture.Read("list.kvtl").contains("\"Hall\""));
        QVERIFY(!QFile::exists(fixture.GetPath("list.kvtl.lock")));
    }

    void everythingAtOnceLeavesAWholeList()
    {
        CControlFixture fixture;
        SProcessorAllNode node = Root({ Group("Stage") });
        for (int n = 0; n < 40; ++n) {
            node.listProcessor.append(Processor(QStringLiteral("p%1").arg(n)));
        }
        fixture.Write("other.kvtl", ListFormat::Write(node));
        fixture.Start(node);
        CListKeeper keeper([&] { return fixture.pHost->SaveList().isEmpty(); });
        const QString strPath = fixture.GetPath();
        const std::vector<Command> vecCommand{
            [&] { g_pPrcListControl->ExportList(strPath, 0); },
            [&] { g_pPrcListControl->ImportList(fixture.GetPath("other.kvtl")); },
            [&] { fixture.pHost->SaveList(); },
            [&] { fixture.pHost->GetListTrouble(); },
            [&] { g_pPrcListControl->SetExpanded(GroupId("Stage"), false); },
            [&] { g_pPrcListControl->SetExpanded(GroupId("Stage"), true); },
            [&] { g_pRuntimeControl->SetBusy(true), g_pRuntimeControl->SetBusy(false); },
            [&] { g_pPrcListControl->DeleteProcessor(ProcessorId("p1"), false); },
            [&] { g_pPrcListControl->DeleteProcessor(ProcessorId("p2"), false); },
            [&] { keeper.Touch(); },
        };
        std::vector<std::thread> vecThread;
        for (const Command& command : vecCommand) {
            vecThread.emplace_back([&command] {
                for (int n = 0; n < 20; ++n) {
                    command();
                }
            });
        }
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        keeper.Stop();
        QCOMPARE(fixture.pHost->SaveList(), QString());
        QCOMPARE(fixture.pHost->GetListTrouble(), QString());
        QCOMPARE(fixture.Read("list.kvtl"), ListFormat::Write(CControlFixture::GetTree()));
        QCOMPARE(fixture.ListFiles({ "list.kvtl*" }), QStringList{ "list.kvtl" });
    }

    void aDeletionOnManyThreadsKeepsTheListOnce()
    {
        CControlFixture fixture;
        CBareList list(fixture.GetPath());
        CJobs jobs;
        std::atomic<int> nKept{ 0 };
        CDeletionWatch watch(list.processors, jobs, [&](const SListEdition& /*edition*/) { ++nKept; });
        for (int nJob = 1; nJob <= 50; ++nJob) {
            jobs.SetBusy(true);
            watch.EndJob();
            std::vector<std::thread> vecThread;
            for (int nThread = 0; nThread < 4; ++nThread) {
                vecThread.emplace_back([&] { watch.BeforeDeletion(1); });
            }
            for (std::thread& thread : vecThread) {
                thread.join();
            }
            jobs.SetBusy(false);
            QCOMPARE(nKept.load(), nJob);
        }
    }
};

PTV_TEST_MAIN_CORE(CListKeeperTest)
#include "tst_listkeeper.moc"
