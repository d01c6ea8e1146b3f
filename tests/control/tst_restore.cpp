#include "Builders.h"
#include "CControlFixture.h"
#include "CEditRecorder.h"
#include "CFileFaults.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CControlLibrary.h"
#include "ListText.h"
#include "TestMain.h"

#include <QRandomGenerator>

#include <algorithm>
#include <random>
#include <thread>

using Command = std::function<void(CControlLibrary&)>;
Q_DECLARE_METATYPE(Command)

/// What undo and redo do to the list and to the devices behind it.
class CRestoreTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->options.nUnlistedDevices = 3;
        pFixture->Start(Root(
            { Group("Stage",
                    { Processor("alpha").Online().Project("Aurora").Ip("192.168.1.20"), Processor("beta").Ip("192.168.1.21") })
                  .Chief("alpha"),
              Group("Hall") },
            { Processor("loose").Ip("192.168.1.22").Online() }));
        pFixture->Stop();
        pLibrary.reset(new CControlLibrary(pFixture->options));
        pFixture->recorder.AttachAll();
        pFixture->recorder.Clear();
        pRecorder.reset(new CEditRecorder(&pLibrary->events));
    }

    void cleanup()
    {
        pRecorder.reset();
        if (pLibrary) {
            pFixture->recorder.DetachAll();
        }
        pLibrary.reset();
        pFixture.reset();
    }

    void eachCommandIsTakenBackAndMadeAgain_data()
    {
        QTest::addColumn<Command>("command");
        const auto row = [](const char* szRow, const Command& command) { QTest::newRow(szRow) << command; };
        row("add a group", [](CControlLibrary&) { g_pPrcListControl->AddGroup(Group("Foyer"), true); });
        row("add a processor", [](CControlLibrary&) { g_pPrcBasicControl->AddProcessor(0xC0A8010A); });
        row("add simulators", [](CControlLibrary&) { AddSimulators(2); });
        row("delete", [](CControlLibrary&) { Delete("alpha"); });
        row("delete a group", [](CControlLibrary&) { g_pPrcListControl->DeleteGroup(GroupId("Stage"), true); });
        row("ungroup", [](CControlLibrary&) { g_pPrcListControl->DeleteGroup(GroupId("Stage"), false); });
        row("rename", [](CControlLibrary&) { g_pPrcBasicControl->RenameProcessor(ProcessorId("beta"), "Wall"); });
        row("move", [](CControlLibrary&) { g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), {}); });
        row("the Chief", [](CControlLibrary& library) { library.processors.ChooseChief(GroupId("Stage"), ProcessorId("beta")); });
    }

    void eachCommandIsTakenBackAndMadeAgain()
    {
        QFETCH(Command, command);
        const QString strBefore = GetWholeText();
        command(*pLibrary);
        const QString strAfter = GetWholeText();
        QVERIFY(strAfter != strBefore);
        QVERIFY(Undo(0));
        QCOMPARE(GetWholeText(), strBefore);
        QVERIFY(Redo(0));
        QCOMPARE(GetWholeText(), strAfter);
        QVERIFY(Undo(0));
        QCOMPARE(GetWholeText(), strBefore);
    }

    void anImportIsTakenBack()
    {
        pFixture->Write("other.kvtl", pFixture->Read("list.kvtl"));
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        g_pPrcBasicControl->RenameProcessor(ProcessorId("loose"), "renamed");
        const QString strBefore = GetWholeText();
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        const QString strAfter = GetWholeText();
        QVERIFY(Undo(2));
        QCOMPARE(GetWholeText(), strBefore);
        QVERIFY(Redo(2));
        QCOMPARE(GetWholeText(), strAfter);
    }

    void anImportAndItsUndoLeaveWhatDevicesReport()
    {
        pFixture->Write("other.kvtl",
                        ListFormat::Write(Root({},
                                               { Processor("alpha").Ip("192.168.1.20"),
                                                 Processor("loose").Ip("192.168.1.22").Online().Project("Nocturne").Backup() })));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        pLibrary->network.SetRole(ProcessorId("alpha"), 1);
        for (const bool bUndone : { false, true }) {
            QVERIFY(!bUndone || Undo(0));
            const SProcessorNode alpha = CControlFixture::GetProcessor("alpha");
            QVERIFY(alpha.bOnline && alpha.strProject == "Aurora" && alpha.nFailover == 1);
            QVERIFY(CControlFixture::GetProcessor("loose").strProject.isEmpty());
            QCOMPARE(CControlFixture::GetProcessor("loose").nFailover, 0);
        }
    }

    void anImportTakesWhatIsHeardOfProcessorsThatCome()
    {
        const SProcessorNode newcomer = CSimulatedNetwork::BuildDevice(0xC0A80164, "Newcomer 1");
        pFixture->Write(
            "other.kvtl",
            ListFormat::Write(Root({}, { Processor("named").NodeId(newcomer.idNode).Ip(newcomer.nIP).Project("Aurora") })));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        const SProcessorNode named = CControlFixture::GetProcessor("named");
        QVERIFY(named.bOnline && named.strProject.isEmpty());
        pLibrary->network.SetOnline(named.idNode, false);
        QVERIFY(!CControlFixture::GetProcessor("named").bOnline);
        QVERIFY(Undo(0));
        pLibrary->network.SetOnline(ProcessorId("beta"), true);
        QVERIFY(CControlFixture::GetProcessor("beta").bOnline);
    }

    void anImportIsAJob()
    {
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Foyer") })));
        QStringList listJob;
        EnRefusalReason reason = ReasonNone;
        const SListSnapshot snapshot = pLibrary->processors.GetSnapshot();
        const CFileFaults faults(CFileFaults::CallRename, "*list.kvtl", [&] {
            listJob = pLibrary->jobs.GetRunning();
            reason = pLibrary->history.FindFault(snapshot, snapshot).reason;
        });
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        QCOMPARE(listJob, QStringList{ "Importing " + pFixture->GetPath("other.kvtl") });
        QCOMPARE(reason, ReasonBusy);
        QCOMPARE(pLibrary->jobs.GetRunning(), QStringList());
    }

    void whatIsDoneWhileAnImportWritesIsKept()
    {
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Foyer") })));
        {
            const CFileFaults faults(CFileFaults::CallRename, "*list.kvtl",
                                     [] { g_pPrcListControl->RenameGroup(GroupId("Hall"), "Meanwhile"); });
            QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        }
        const QStringList listEarlier = pFixture->ListFiles({ "list.2*.kvtl" });
        QCOMPARE(listEarlier.size(), 2);
        const bool bKept
            = pFixture->Read(listEarlier.at(0)).contains("Meanwhile") || pFixture->Read(listEarlier.at(1)).contains("Meanwhile");
        QVERIFY(bKept);
    }

    void aLockThatComesWhileAnImportWritesIsKept()
    {
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Foyer") })));
        const QByteArray bytes = pFixture->Read("list.kvtl");
        const QString strText = GetText();
        {
            const CFileFaults faults(CFileFaults::CallRename, "*list.kvtl", [&] { pLibrary->host.SetLocked(true); });
            QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 6);
        }
        QCOMPARE(pRecorder->GetRefusals().value(0).reason, ReasonListLocked);
        QCOMPARE(GetText(), strText);
        QCOMPARE(pFixture->Read("list.kvtl"), bytes);
    }

    void aRestoreThatTakesManyKeepsTheListBefore()
    {
        pFixture->Write("other.kvtl",
                        ListFormat::Write(Root({}, { Processor("p").Ip("10.0.0.1"), Processor("q").Ip("10.0.0.2") })));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        g_pPrcBasicControl->RenameProcessor(ProcessorId("p"), "renamed");
        const int nEarlier = pFixture->ListFiles({ "list.2*.kvtl" }).size();
        QVERIFY(Undo(0));
        const QStringList listEarlier = pFixture->ListFiles({ "list.2*.kvtl" });
        QCOMPARE(listEarlier.size(), nEarlier + 1);
        int nWithName = 0;
        for (const QString& strName : listEarlier) {
            nWithName += pFixture->Read(strName).contains("renamed") ? 1 : 0;
        }
        QCOMPARE(nWithName, 1);
    }

    void aRestoreThatTakesOneKeepsNothing()
    {
        g_pPrcBasicControl->AddProcessor(0xC0A8010A);
        QVERIFY(Undo(0));
        QCOMPARE(pFixture->ListFiles({ "list.2*.kvtl" }), QStringList());
    }

    void theNetworkKnowsTheTypeAndPortsThatComeBack()
    {
        SProcessorNode beta = Processor("beta").Ip("192.168.1.21").Ports(7, 8).Type(22, "KX");
        pFixture->Write("other.kvtl", ListFormat::Write(Root({}, { beta })));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        QVERIFY(Undo(0));
        const QList<SProcessorNode> listDevice = pLibrary->network.Scan([](int, int) { });
        for (const SProcessorNode& device : listDevice) {
            QVERIFY(device.idNode != beta.idNode || device.nPortA != 7);
        }
        QVERIFY(Redo(0));
        const QList<SProcessorNode> listAgain = pLibrary->network.Scan([](int, int) { });
        const auto isIt = [&](const SProcessorNode& device) { return device.idNode == beta.idNode && device.nPortA == 7; };
        QVERIFY(std::any_of(listAgain.cbegin(), listAgain.cend(), isIt));
    }

    void aProcessorThatWasFoundAgainGoesToItsPlace()
    {
        Delete("alpha");
        SProcessorNode found = Processor("alpha").Online().Ip("192.168.1.20");
        found.strName = "as it calls itself";
        QVERIFY(pLibrary->processors.AddProcessor(found, false, OriginLibrary));
        QVERIFY(Undo(0));
        const SProcessorGroupNode stage = CControlFixture::GetTree().listGroup.at(0);
        QCOMPARE(stage.listProcessor.size(), 2);
        QCOMPARE(stage.listProcessor.at(0).strName, QString("alpha"));
        QCOMPARE(stage.idChief, ProcessorId("alpha"));
        QVERIFY(Redo(0));
        QCOMPARE(pLibrary->processors.GetNodeType(ProcessorId("alpha")), 0);
    }

    void aChiefFromOutsideOutlivesARedo()
    {
        g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), GroupId("Hall"));
        QVERIFY(Undo(0));
        pLibrary->processors.SetChief(GroupId("Stage"), ProcessorId("beta"));
        QVERIFY(Redo(0));
        const SProcessorGroupNode stage = CControlFixture::GetTree().listGroup.at(0);
        QCOMPARE(stage.idChief, ProcessorId("beta"));
        QCOMPARE(stage.listProcessor.at(0).nChief, 1);
    }

    void severalEditsAreTakenBackAtOnce()
    {
        const QString strBefore = GetWholeText();
        g_pPrcListControl->AddGroup(Group("Foyer"), false);
        g_pPrcListControl->MoveProcessor(ProcessorId("loose"), GroupId("Foyer"));
        g_pPrcListControl->MoveProcessor(ProcessorId("beta"), GroupId("Foyer"));
        const QString strAfter = GetWholeText();
        const QVector<SListEdit> vecEdit = pRecorder->GetEdits();
        QVERIFY(pLibrary->history.Restore(vecEdit.last().after, vecEdit.first().before));
        QCOMPARE(GetWholeText(), strBefore);
        QVERIFY(pLibrary->history.Restore(vecEdit.first().before, vecEdit.last().after));
        QCOMPARE(GetWholeText(), strAfter);
    }

    void whatWasFoundAndHeardSinceStays()
    {
        Delete("beta");
        g_pPrcBasicControl->RefreshProcessors();
        pLibrary->network.SetOnline(ProcessorId("alpha"), false);
        pLibrary->network.SetProject(ProcessorId("loose"), "Nocturne");
        g_pPrcListControl->SetExpanded(GroupId("Hall"), false);
        QVERIFY(Undo(0));
        QCOMPARE(CControlFixture::GetText().section('\n', 1),
                 QString("  Stage\n    alpha\n    beta\n  Hall\n  loose\n  Newcomer 1\n  Newcomer 2\n  Newcomer 3"));
        QVERIFY(!CControlFixture::GetProcessor("alpha").bOnline);
        QCOMPARE(CControlFixture::GetProcessor("loose").strProject, QString("Nocturne"));
        QVERIFY(!CControlFixture::GetTree().listGroup.at(1).bExpanded);
    }

    void aProcessorThatComesBackIsHeardAgain()
    {
        Delete("alpha");
        pLibrary->network.SetOnline(ProcessorId("alpha"), false);
        QVERIFY(Undo(0));
        QVERIFY2(CControlFixture::GetProcessor("alpha").bOnline, "as it was recorded: nobody has heard of it since");
        pLibrary->network.SetOnline(ProcessorId("alpha"), false);
        QVERIFY(!CControlFixture::GetProcessor("alpha").bOnline);
    }

    void aProcessorComesBackAsTheNetworkHearsIt()
    {
        g_pPrcBasicControl->AddProcessor(0xC0A8010A);
        const SProcessorNode added = CControlFixture::GetTree().listProcessor.last();
        pLibrary->network.SetProject(added.idNode, "Aurora");
        g_pPrcListControl->DeleteProcessor(added.idNode, false);
        QCOMPARE(pRecorder->GetEdits().last().before.discovered.listProcessor.last().strProject, QString("Aurora"));
        pLibrary->network.Appear(added.nIP, "restarted");
        QVERIFY(Undo(1));
        const SProcessorNode back = CControlFixture::GetTree().listProcessor.last();
        QCOMPARE(back.strName, added.strName);
        QCOMPARE(back.strProject, QString());
    }

    void aProcessorThatGoesIsForgottenAndFoundByTheNextScan()
    {
        pLibrary->network.Appear(0xC0A8010A, "Wall");
        g_pPrcBasicControl->AddProcessor(0xC0A8010A);
        const QUuid id = CControlFixture::GetProcessor("Wall").idNode;
        QVERIFY(Undo(0));
        pLibrary->network.SetOnline(id, false); // of a device that no list knows nothing is heard
        QVERIFY(!g_pPrcListControl->IsNodeActive(id));
        pLibrary->network.Appear(0xC0A8010A, "Wall");
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetProcessor("Wall").idNode, id);
        QVERIFY2(Redo(0), "it is there");
        QCOMPARE(CControlFixture::GetTree().listProcessor.size(), 5);
    }

    void aRestoreIsSavedToldAndCounted()
    {
        Delete("beta");
        const quint64 nEdition = pLibrary->processors.GetSnapshot().nEdition;
        const quint64 nEdit = pLibrary->processors.GetEdition().nEdit;
        pFixture->recorder.Clear();
        QVERIFY(Undo(0));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageListChanged });
        QCOMPARE(pLibrary->processors.GetSnapshot().nEdition, nEdition + 1);
        QCOMPARE(pLibrary->processors.GetEdition().nEdit, nEdit + 1);
        QTRY_VERIFY(pFixture->Read("list.kvtl").contains("\"beta\""));
    }

    void aRestoreOfNothingIsNotTold()
    {
        Delete("beta");
        QVERIFY(Undo(0));
        const quint64 nEdition = pLibrary->processors.GetSnapshot().nEdition;
        pFixture->recorder.Clear();
        QVERIFY(Undo(0));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>());
        QCOMPARE(pLibrary->processors.GetSnapshot().nEdition, nEdition);
    }

    void whatGoesLeavesTheSelection()
    {
        g_pPrcListControl->AddGroup(Group("Foyer"), true);
        g_pRuntimeControl->SetSelectedNodes({ GroupId("Foyer") });
        QVERIFY(Undo(0));
        QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false), std::vector<QUuid>{ QUuid() });
    }

    void aRefusedRestoreChangesNothing_data()
    {
        QTest::addColumn<Command>("edit");
        QTest::addColumn<Command>("obstacle");
        QTest::addColumn<int>("nReason");
        QTest::addColumn<QString>("strDetail");
        const auto row = [](const char* szRow, EnRefusalReason reason, const QString& strDetail, const Command& edit,
                            const Command& obstacle) { QTest::newRow(szRow) << edit << obstacle << int(reason) << strDetail; };
        const Command deletion = [](CControlLibrary&) { Delete("beta"); };
        const Command addition = [](CControlLibrary&) { g_pPrcBasicControl->AddProcessor(0xC0A8010A); };
        row("the list is locked", ReasonListLocked, {}, deletion, [](CControlLibrary& library) { library.host.SetLocked(true); });
        row("a job of the panel is under way", ReasonBusy, {}, deletion,
            [](CControlLibrary&) { g_pRuntimeControl->SetBusy(true); });
        row("a call is under way", ReasonBusy, {}, deletion,
            [this](CControlLibrary& library) { nJob = library.jobs.Begin("a scan"); });
        row("its address is another's now", ReasonAddressTaken, "192.168.1.21", deletion,
            [](CControlLibrary&) { g_pPrcBasicControl->AddProcessor(0xC0A80115); });
        row("the list is full by now", ReasonListFull, {}, deletion, [](CControlLibrary& library) {
            for (int n = 0; n < 254; ++n) {
                library.processors.AddProcessor(Processor(QStringLiteral("p%1").arg(n)), false, OriginLibrary);
            }
        });
        row(
            "all groups are there by now", ReasonGroupsFull, {},
            [](CControlLibrary&) { g_pPrcListControl->DeleteGroup(GroupId("Hall"), true); },
            [](CControlLibrary&) {
                for (int n = 0; n < 255; ++n) {
                    g_pPrcListControl->AddGroup(Group(QStringLiteral("g%1").arg(n)), true);
                }
            });
        row(
            "there are two simulators by now", ReasonSimulatorsFull, {},
            [](CControlLibrary&) {
                AddSimulators(1);
                g_pPrcListControl->DeleteProcessor(CControlFixture::GetProcessor("Simulator 1", true).idNode, false);
            },
            [](CControlLibrary&) { AddSimulators(2); });
        row("what would go is in use", ReasonInUse, "Processor 192.168.1.10", addition, [](CControlLibrary& library) {
            library.network.SetProject(CControlFixture::GetTree().listProcessor.last().idNode, "Aurora");
            library.host.SetProject("Aurora");
        });
    }

    void aRefusedRestoreChangesNothing()
    {
        QFETCH(Command, edit);
        QFETCH(Command, obstacle);
        edit(*pLibrary);
        const int nEdit = pRecorder->GetEdits().size() - 1;
        obstacle(*pLibrary);
        const QString strText = GetText();
        pFixture->recorder.Clear();
        const SListEdit undone = pRecorder->GetEdits().at(nEdit);
        QTEST(int(pLibrary->history.FindFault(undone.after, undone.before).reason), "nReason");
        QVERIFY(!Undo(nEdit));
        QCOMPARE(GetText(), strText);
        QCOMPARE(pRecorder->GetRefusals().size(), 1);
        QCOMPARE(pRecorder->GetRefusals().first().command, CommandRestore);
        QTEST(int(pRecorder->GetRefusals().first().reason), "nReason");
        QTEST(pRecorder->GetRefusals().first().strDetail, "strDetail");
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageCommandRefused });
        pLibrary->jobs.SetBusy(false);
        pLibrary->jobs.End(nJob);
    }

    void aRestoreThatWouldBePossibleHasNoFault()
    {
        Delete("beta");
        const SListEdit edit = pRecorder->GetEdits().first();
        const QString strText = GetText();
        QVERIFY(pLibrary->history.FindFault(edit.after, edit.before).IsNone());
        QCOMPARE(GetText(), strText);
        QCOMPARE(pRecorder->GetRefusals().size(), 0);
    }

    void anIdThatIsInBothPanesAlreadyDoesNotForbidIt()
    {
        QVERIFY(pLibrary->processors.AddProcessor(Processor("twin"), true, OriginLibrary));
        QVERIFY(pLibrary->processors.ReplaceList(Root({ Group("Hall") }, { Processor("twin") })).fault.IsNone());
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        QVERIFY(Undo(0));
        QCOMPARE(CControlFixture::GetText().section('\n', 1), QString("  Hall\n  twin"));
    }

    void anIdThatTheRestoreWouldDoubleForbidsIt()
    {
        Delete("beta");
        QVERIFY(pLibrary->processors.AddProcessor(Processor("beta"), true, OriginLibrary));
        QVERIFY(!Undo(0));
        QCOMPARE(pRecorder->GetRefusals().first().reason, ReasonAlreadyListed);
    }

    void aListWithTheIdOfASimulatorIsNotImported()
    {
        AddSimulators(1);
        const SProcessorNode simulator = CControlFixture::GetProcessor("Simulator 1", true);
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Foyer", { simulator }) })));
        const QString strText = GetText();
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 2);
        QCOMPARE(pRecorder->GetRefusals().first().reason, ReasonAlreadyListed);
        QCOMPARE(GetText(), strText);
    }

    void whatAnImportBroughtAndRunsTheProjectStays()
    {
        pFixture->Write("other.kvtl", ListFormat::Write(Root({}, { Processor("p").Ip("10.0.0.1").Online() })));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        pLibrary->network.SetProject(ProcessorId("p"), "Aurora");
        pLibrary->host.SetProject("Aurora");
        const QString strText = GetText();
        QVERIFY(!Undo(0));
        QCOMPARE(pRecorder->GetRefusals().first().reason, ReasonInUse);
        QCOMPARE(GetText(), strText);
        pLibrary->host.SetProject({});
        QVERIFY(Undo(0));
    }

    void twoSimulatorsComeBackBothOrNot()
    {
        AddSimulators(2);
        QVERIFY(Undo(0));
        AddSimulators(1);
        const QString strText = GetText();
        QVERIFY(!Redo(0));
        QCOMPARE(pRecorder->GetRefusals().first().reason, ReasonSimulatorsFull);
        QCOMPARE(GetText(), strText);
    }

    void simulatorsThatAreOneTooManyInTheEndAreRefusedAsSuch()
    {
        const auto build
            = [](const CNodeTree&) { return QList<SProcessorNode>{ Processor("s1"), Processor("s2"), Processor("s3") }; };
        QVERIFY(!pLibrary->processors.AddSimulators(3, build));
        QCOMPARE(pRecorder->GetRefusals().first().reason, ReasonSimulatorsFull);
    }

    void aReceiverMayTakeItsEditBackAtOnce()
    {
        const QString strText = GetText();
        connect(
            &pLibrary->events, &CHostEvents::ListEdited, this,
            [this](const SListEdit& edit) { QVERIFY(pLibrary->history.Restore(edit.after, edit.before)); }, Qt::DirectConnection);
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        QCOMPARE(pRecorder->GetEdits().size(), 1);
        QCOMPARE(GetText(), strText);
    }

    void aDayOfWorkIsTakenBackAndMadeAgain_data()
    {
        QTest::addColumn<quint32>("nSeed");
        const quint32 nFirst = QRandomGenerator::global()->generate();
        for (quint32 n = 0; n < 12; ++n) {
            QTest::addRow("seed %u", nFirst + n) << nFirst + n;
        }
    }

    // What was found meanwhile is in neither the first list nor in what the edits hold of it.
    void aDayOfWorkIsTakenBackAndMadeAgain()
    {
        QFETCH(quint32, nSeed);
        std::mt19937 random(nSeed);
        const SListSnapshot first = pLibrary->processors.GetSnapshot();
        while (pRecorder->GetEdits().size() < 30) {
            Work(random);
        }
        const SListSnapshot last = pLibrary->processors.GetSnapshot();
        const int nEdits = pRecorder->GetEdits().size();
        for (int n = nEdits - 1; n >= 0; --n) {
            QVERIFY2(Undo(n), qPrintable(GetLastRefusal()));
            Report(random);
        }
        QCOMPARE(GetTextWithoutFound(), GetText(first));
        for (int n = 0; n < nEdits; ++n) {
            QVERIFY2(Redo(n), qPrintable(GetLastRefusal()));
            Report(random);
        }
        QCOMPARE(GetText(), GetText(last));
    }

private:
    static void AddSimulators(int nCount)
    {
        SSimulatorRequest request;
        request.nType = 12;
        request.nCount = nCount;
        g_pPrcBasicControl->AddSimulators(request);
    }

    static void Delete(const QString& strName)
    {
        g_pPrcListControl->DeleteProcessor(ProcessorId(strName), false);
    }

    static QString GetText(const SListSnapshot& snapshot)
    {
        return ListText::BuildExact(snapshot.discovered) + '\n' + ListText::BuildExact(snapshot.simulators);
    }
    QString GetText() const
    {
        return GetText(pLibrary->processors.GetSnapshot());
    }
    QString GetWholeText() const
    {
        const SListSnapshot snapshot = pLibrary->processors.GetSnapshot();
        return ListText::BuildWhole(snapshot.discovered) + '\n' + ListText::BuildWhole(snapshot.simulators);
    }
    QString GetTextWithoutFound() const
    {
        QStringList listLine = GetText().split('\n');
        for (int n = listLine.size() - 1; n >= 0; --n) {
            if (listLine.at(n).contains("192.168.1.10")) { // .100 to .102
                listLine.removeAt(n);
            }
        }
        return listLine.join('\n');
    }

    QString GetLastRefusal() const
    {
        const QVector<SRefusal> vecRefusal = pRecorder->GetRefusals();
        return vecRefusal.isEmpty() ? QString() : vecRefusal.last().strLine;
    }

    bool Undo(int nEdit)
    {
        const SListEdit edit = pRecorder->GetEdits().at(nEdit);
        return pLibrary->history.Restore(edit.after, edit.before);
    }
    bool Redo(int nEdit)
    {
        const SListEdit edit = pRecorder->GetEdits().at(nEdit);
        return pLibrary->history.Restore(edit.before, edit.after);
    }

    static QUuid Pick(const QList<QUuid>& listId, std::mt19937& random)
    {
        return listId.isEmpty() ? QUuid() : listId.at(static_cast<int>(random() % static_cast<unsigned>(listId.size())));
    }

    QList<QUuid> GetProcessors() const
    {
        QList<QUuid> listId;
        for (const bool bSimulator : { false, true }) {
            const QList<SProcessorNode> listProcessor = pLibrary->processors.CopyTree(bSimulator).GetProcessors();
            for (const SProcessorNode& processor : listProcessor) {
                listId.append(processor.idNode);
            }
        }
        return listId;
    }

    QList<QUuid> GetGroups() const
    {
        QList<QUuid> listId;
        for (const bool bSimulator : { false, true }) {
            const QList<SProcessorGroupNode> listGroup = pLibrary->processors.GetTree(bSimulator).listGroup;
            for (const SProcessorGroupNode& group : listGroup) {
                listId.append(group.idNode);
            }
        }
        return listId;
    }

    // One command, scan or report.
    void Work(std::mt19937& random)
    {
        const QUuid idProcessor = Pick(GetProcessors(), random);
        const QUuid idGroup = Pick(GetGroups(), random);
        const QString strName = QStringLiteral("name %1").arg(random() % 1000);
        switch (random() % 13) {
        case 0:
            g_pRuntimeControl->SetSimulatorPane(random() % 2 != 0);
            break;
        case 1:
            g_pPrcListControl->AddGroup(Group(strName).NodeId(QUuid::createUuid()), true);
            break;
        case 2:
            g_pPrcBasicControl->AddProcessor(0xC0A80132 + random() % 20); // from 192.168.1.50 on
            break;
        case 3:
            AddSimulators(1);
            break;
        case 4:
            g_pPrcListControl->DeleteProcessor(idProcessor, false);
            break;
        case 5:
            g_pPrcListControl->DeleteGroup(idGroup, random() % 2 != 0);
            break;
        case 6:
            g_pPrcBasicControl->RenameProcessor(random() % 2 != 0 ? idProcessor : idGroup, strName);
            break;
        case 7:
            pLibrary->processors.ChooseChief(idGroup, FindMember(idGroup, random));
            break;
        case 8:
            g_pPrcBasicControl->RefreshProcessors();
            break;
        default:
            g_pPrcListControl->MoveProcessor(idProcessor, random() % 4 != 0 ? idGroup : QUuid());
        }
        Report(random);
    }

    QUuid FindMember(const QUuid& idGroup, std::mt19937& random) const
    {
        QList<QUuid> listId{ QUuid() };
        const QList<SProcessorNode> listProcessor = pLibrary->processors.CopyGroup(idGroup).listProcessor;
        for (const SProcessorNode& processor : listProcessor) {
            listId.append(processor.idNode);
        }
        return Pick(listId, random);
    }

    void Report(std::mt19937& random)
    {
        const QUuid id = Pick(GetProcessors(), random);
        pLibrary->network.SetOnline(id, random() % 2 != 0);
        pLibrary->network.SetProject(id, random() % 2 != 0 ? QStringLiteral("Aurora") : QString());
    }

    QScopedPointer<CControlFixture> pFixture;
    QScopedPointer<CControlLibrary> pLibrary;
    QScopedPointer<CEditRecorder> pRecorder;
    int nJob = 0; ///< that is under way
};

PTV_TEST_MAIN_CORE(CRestoreTest)
#include "tst_restore.moc"
