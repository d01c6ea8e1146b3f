#include "Builders.h"
#include "CControlFixture.h"
#include "CEditRecorder.h"
#include "CNameRegistry.h"
#include "CorvidControl/list/CListEdits.h"
#include "ListText.h"
#include "TestMain.h"

#include <stdexcept>
#include <thread>

using Command = std::function<void(CControlHost&)>;
Q_DECLARE_METATYPE(Command)

/// What an application hears of the commands of its user that have changed the list.
class CListEditsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start(Root(
            { Group("Stage", { Processor("alpha").Ip("192.168.1.20"), Processor("beta").Ip("192.168.1.21") }), Group("Hall") },
            { Processor("loose").Ip("192.168.1.22") }));
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
    }

    void cleanup()
    {
        pRecorder.reset();
        pFixture.reset();
    }

    void theCommandsOfOneJobShareANumber()
    {
        const auto rename = [](const char* szName) {
            g_pPrcBasicControl->RenameProcessor(ProcessorId("alpha"), szName);
            g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), GroupId("Foyer")); // refused: there is none
        };
        rename("One");
        for (const char* szName : { "Two", "Three" }) {
            std::thread([&] {
                rename(szName);
                rename("Again");
            }).join();
        }
        QVector<quint64> vecJob;
        for (const SListEdit& edit : pRecorder->GetEdits()) {
            vecJob.append(edit.nJob);
        }
        QVector<quint64> vecRefused;
        for (const SRefusal& refusal : pRecorder->GetRefusals()) {
            vecRefused.append(refusal.nJob);
        }
        QCOMPARE(vecJob.size(), 5);
        QCOMPARE(vecJob, vecRefused);
        QCOMPARE(vecJob.at(0), quint64(0));
        QVERIFY(vecJob.at(1) != 0 && vecJob.at(1) == vecJob.at(2) && vecJob.at(3) == vecJob.at(4)
                && vecJob.at(1) != vecJob.at(3));
    }

    void aCommandOfTheUserIsOneEdit_data()
    {
        QTest::addColumn<Command>("command");
        QTest::addColumn<int>("nCommand");
        QTest::addColumn<QString>("strName");
        QTest::addColumn<int>("nNodes");
        QTest::newRow("add a group") << Command([](CControlHost&) { g_pPrcListControl->AddGroup(Group("Foyer"), true); })
                                     << int(CommandAddGroup) << "Foyer" << 1;
        QTest::newRow("add a processor") << Command([](CControlHost&) { g_pPrcBasicControl->AddProcessor(0xC0A8010A); })
                                         << int(CommandAddProcessor) << "192.168.1.10" << 1;
        QTest::newRow("add two simulators") << Command([](CControlHost&) { AddSimulators(2); }) << int(CommandAddSimulators)
                                            << "Simulator 1" << 2;
        QTest::newRow("delete a processor") << Command([](CControlHost&) {
            g_pPrcListControl->DeleteProcessor(ProcessorId("alpha"), false);
        }) << int(CommandDelete) << "alpha" << 1;
        QTest::newRow("delete a group with its processors")
            << Command([](CControlHost&) { g_pPrcListControl->DeleteGroup(GroupId("Stage"), true); }) << int(CommandDeleteGroup)
            << "Stage" << 3;
        QTest::newRow("delete an empty group")
            << Command([](CControlHost&) { g_pPrcListControl->DeleteGroup(GroupId("Hall"), true); }) << int(CommandDeleteGroup)
            << "Hall" << 1;
        QTest::newRow("ungroup") << Command([](CControlHost&) { g_pPrcListControl->DeleteGroup(GroupId("Stage"), false); })
                                 << int(CommandUngroup) << "Stage" << 3;
        QTest::newRow("rename a processor") << Command([](CControlHost&) {
            g_pPrcBasicControl->RenameProcessor(ProcessorId("alpha"), "Wall");
        }) << int(CommandRename) << "Wall" << 1;
        QTest::newRow("rename a group") << Command(
            [](CControlHost&) { g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer"); })
                                        << int(CommandRename) << "Foyer" << 1;
        QTest::newRow("rename in two lines")
            << Command([](CControlHost&) { g_pPrcListControl->RenameGroup(GroupId("Hall"), " New\nfoyer "); })
            << int(CommandRename) << "New foyer" << 1;
        QTest::newRow("add a group with blanks")
            << Command([](CControlHost&) { g_pPrcListControl->AddGroup(Group(" Foyer "), true); }) << int(CommandAddGroup)
            << "Foyer" << 1;
        QTest::newRow("move") << Command(
            [](CControlHost&) { g_pPrcListControl->MoveProcessor(ProcessorId("loose"), GroupId("Hall")); })
                              << int(CommandMove) << "loose" << 1;
        QTest::newRow("the Chief") << Command([](CControlHost& host) { host.SetChief(GroupId("Stage"), ProcessorId("beta")); })
                                   << int(CommandChief) << "Stage" << 1;
    }

    void aCommandOfTheUserIsOneEdit()
    {
        QFETCH(Command, command);
        const SListSnapshot before = pFixture->pHost->GetSnapshot();
        command(*pFixture->pHost);
        const SListSnapshot after = pFixture->pHost->GetSnapshot();
        QCOMPARE(pRecorder->GetEdits().size(), 1);
        const SListEdit edit = pRecorder->GetEdits().first();
        QTEST(int(edit.command), "nCommand");
        QTEST(edit.strName, "strName");
        QTEST(edit.nNodes, "nNodes");
        QCOMPARE(GetText(edit.before), GetText(before));
        QCOMPARE(GetText(edit.after), GetText(after));
        QVERIFY(GetText(before) != GetText(after));
        QCOMPARE(edit.before.nEdition, before.nEdition);
        QCOMPARE(edit.after.nEdition, before.nEdition + 1);
    }

    void anImportIsOneEditOfTheWholeList()
    {
        pFixture->Write("other.kvtl", pFixture->Read("list.kvtl"));
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        const SListEdit edit = pRecorder->GetEdits().value(1);
        QCOMPARE(edit.command, CommandImport);
        QCOMPARE(edit.strName, pFixture->GetPath("other.kvtl"));
        QCOMPARE(edit.nNodes, 5);
        QCOMPARE(GetText(edit.before), GetText(pRecorder->GetEdits().first().after));
        QCOMPARE(GetText(edit.after), GetText(pRecorder->GetEdits().first().before));
    }

    void whatIsNoCommandOfTheUserIsNoEdit_data()
    {
        QTest::addColumn<Command>("command");
        const auto row = [](const char* szName, const Command& command) { QTest::newRow(szName) << command; };
        row("folding", [](CControlHost&) { g_pPrcListControl->SetExpanded(GroupId("Stage"), false); });
        row("selecting", [](CControlHost&) { g_pRuntimeControl->SetSelectedNodes({ GroupId("Stage") }); });
        row("the same name", [](CControlHost&) { g_pPrcListControl->RenameGroup(GroupId("Hall"), "Hall"); });
        row("the same group", [](CControlHost&) { g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), GroupId("Stage")); });
        row("a command that was refused", [](CControlHost&) { g_pPrcListControl->RenameGroup(GroupId("Hall"), "="); });
        row("deleting what is gone", [](CControlHost&) { g_pPrcListControl->DeleteGroup(GroupId("Gone"), true); });
        row("the Chief that it has", [](CControlHost& host) { host.SetChief(GroupId("Stage"), {}); });
        row("a project", [](CControlHost& host) { host.OpenProject("Aurora"); });
    }

    void whatIsNoCommandOfTheUserIsNoEdit()
    {
        QFETCH(Command, command);
        command(*pFixture->pHost);
        QCOMPARE(pRecorder->GetEdits().size(), 0);
    }

    void whatAScanHasFoundIsNoEdit()
    {
        Restart([this] { pFixture->options.nUnlistedDevices = 3; });
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetTree().listProcessor.size(), 4);
        QCOMPARE(pRecorder->GetEdits().size(), 0);
    }

    void theStepsOfAScenarioAreNoEdits()
    {
        Restart([this] {
            pFixture->Write("day.json", R"({ "steps": [
                { "at": 0, "do": "add-group", "name": "Foyer" }, { "at": 0, "do": "rename", "node": "Hall", "name": "Bar" },
                { "at": 0, "do": "move", "node": "loose", "group": "Bar" }, { "at": 0, "do": "chief", "group": "Stage", "node": "beta" },
                { "at": 0, "do": "add-simulators", "count": 2 }, { "at": 0, "do": "online", "node": "alpha" },
                { "at": 0, "do": "rename", "node": "Foyer", "name": "=" },
                { "at": 0.01, "do": "add-processor", "ip": "192.168.1.10" }, { "at": 0.01, "do": "delete", "node": "Stage" } ] })");
            pFixture->options.strScenarioFile = pFixture->GetPath("day.json");
        });
        QCOMPARE(pFixture->pHost->GetScenarioError(), QString());
        pFixture->pHost->StartLife();
        QTRY_COMPARE(ListText::Build(CControlFixture::GetTree()).section('\n', 1),
                     QString("  Bar\n    loose 192.168.1.22\n  Foyer\n  Processor 192.168.1.10 192.168.1.10"));
        QCOMPARE(CControlFixture::GetTree(true).listProcessor.size(), 2);
        QCOMPARE(pRecorder->GetEdits().size(), 0);
        QCOMPARE(pRecorder->GetRefusals().size(), 0);
    }

    void aRestoreIsNoEdit()
    {
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        const SListEdit edit = pRecorder->GetEdits().value(0);
        QVERIFY(pFixture->pHost->RestoreList(edit.after, edit.before));
        QCOMPARE(pRecorder->GetEdits().size(), 1);
    }

    void whatComesBetweenTwoEditsShowsInTheirNumbers()
    {
        Restart([this] { pFixture->options.nUnlistedDevices = 1; });
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        g_pPrcListControl->SetExpanded(GroupId("Hall"), false);
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Bar");
        g_pPrcBasicControl->RefreshProcessors();
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Hall");
        const QVector<SListEdit> vecEdit = pRecorder->GetEdits();
        QCOMPARE(vecEdit.size(), 3);
        QCOMPARE(vecEdit.at(1).before.nEdition, vecEdit.at(0).after.nEdition);
        QVERIFY(vecEdit.at(2).before.nEdition > vecEdit.at(1).after.nEdition);
    }

    void editsOfManyThreadsComeInTheOrderOfTheChanges()
    {
        std::vector<std::thread> vecThread;
        for (int nThread = 0; nThread < 4; ++nThread) {
            vecThread.emplace_back([nThread] {
                for (int n = 0; n < 50; ++n) {
                    g_pPrcListControl->RenameGroup(GroupId("Hall"), QStringLiteral("%1 %2").arg(nThread).arg(n));
                }
            });
        }
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        const QVector<SListEdit> vecEdit = pRecorder->GetEdits();
        QCOMPARE(vecEdit.size(), 200);
        for (int n = 1; n < vecEdit.size(); ++n) {
            QCOMPARE(vecEdit.at(n).before.nEdition, vecEdit.at(n - 1).after.nEdition);
            QCOMPARE(GetText(vecEdit.at(n).before), GetText(vecEdit.at(n - 1).after));
        }
    }

    void aReceiverMayCommandTheListItself()
    {
        int nDepth = 0;
        int nMost = 0;
        connect(
            pFixture->pHost.get(), &CControlHost::ListEdited, this,
            [&](const SListEdit& edit) {
                nMost = std::max(nMost, ++nDepth);
                if (edit.strName == "Foyer") {
                    g_pPrcListControl->RenameGroup(GroupId("Hall"), "Bar");
                }
                --nDepth;
            },
            Qt::DirectConnection);
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        QCOMPARE(pRecorder->GetEdits().size(), 2);
        QCOMPARE(pRecorder->GetEdits().last().strName, QString("Bar"));
        QCOMPARE(nMost, 1);
    }

    void aReceiverThatThrowsIsNotTheLast()
    {
        QStringList listName;
        CListEdits edits([&](const SListEdit& edit) {
            listName.append(edit.strName);
            if (edit.strName == "first") {
                throw std::runtime_error("a receiver");
            }
        });
        edits.Append({ CommandRename, "first", 1, {}, {} });
        edits.Append({ CommandRename, "second", 1, {}, {} });
        QVERIFY_EXCEPTION_THROWN(edits.Deliver(), std::runtime_error);
        edits.Deliver();
        QCOMPARE(listName, (QStringList{ "first", "second" }));
    }

    void aSnapshotStaysAsItWas()
    {
        const SListSnapshot snapshot = pFixture->pHost->GetSnapshot();
        const QString strText = GetText(snapshot);
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        g_pPrcListControl->MoveProcessor(ProcessorId("loose"), GroupId("Stage"));
        QCOMPARE(GetText(snapshot), strText);
    }

private:
    static void AddSimulators(int nCount)
    {
        SSimulatorRequest request;
        request.nType = 12;
        request.nCount = nCount;
        g_pPrcBasicControl->AddSimulators(request);
    }

    static QString GetText(const SListSnapshot& snapshot)
    {
        return ListText::BuildWhole(snapshot.discovered) + ListText::BuildWhole(snapshot.simulators);
    }

    void Restart(const std::function<void()>& prepare)
    {
        pRecorder.reset();
        pFixture->Stop();
        prepare();
        pFixture->StartAsIs();
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
    }

    QScopedPointer<CControlFixture> pFixture;
    QScopedPointer<CEditRecorder> pRecorder;
};

PTV_TEST_MAIN_CORE(CListEditsTest)
#include "tst_listedits.moc"
