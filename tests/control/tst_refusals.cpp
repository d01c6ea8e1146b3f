#include "Builders.h"
#include "CControlFixture.h"
#include "CEditRecorder.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/list/FaultText.h"
#include "TestMain.h"

#include <QDir>

using Command = std::function<void(CControlHost&)>;
Q_DECLARE_METATYPE(Command)

/// What an application hears of the commands of its user that were refused or have failed.
class CRefusalsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start(Root(
            { Group("Stage",
                    { Processor("alpha").Online().Project("Aurora").Ip("192.168.1.20"), Processor("beta").Ip("192.168.1.21") }),
              Group("Hall") },
            { Processor("loose").Ip("192.168.1.22") }));
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
    }

    void cleanup()
    {
        pRecorder.reset();
        pFixture.reset();
    }

    void aRefusalSaysWhatAndWhy_data()
    {
        QTest::addColumn<Command>("command");
        QTest::addColumn<int>("nCommand");
        QTest::addColumn<QString>("strName");
        QTest::addColumn<int>("nReason");
        QTest::addColumn<QString>("strDetail");
        AddTexts();
        AddNodes();
        AddDevices();
    }

    void aRefusalSaysWhatAndWhy()
    {
        QFETCH(Command, command);
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        command(*pFixture->pHost);
        QCOMPARE(pRecorder->GetRefusals().size(), 1);
        const SRefusal refusal = pRecorder->GetRefusals().first();
        QTEST(int(refusal.command), "nCommand");
        QTEST(refusal.strName, "strName");
        QTEST(int(refusal.reason), "nReason");
        QTEST(refusal.strDetail, "strDetail");
        QCOMPARE(logged.count(), 1);
        QCOMPARE(refusal.strLine, logged.at(0).at(0).toString());
    }

    void aLockedListSaysSoToEachCommand_data()
    {
        QTest::addColumn<Command>("command");
        QTest::addColumn<int>("nCommand");
        const auto row = [](const char* szRow, EnListCommand nCommand, const Command& command) {
            QTest::newRow(szRow) << command << int(nCommand);
        };
        row("add a group", CommandAddGroup, [](CControlHost&) { g_pPrcListControl->AddGroup(Group("x"), true); });
        row("add a processor", CommandAddProcessor, [](CControlHost&) { g_pPrcBasicControl->AddProcessor(0xC0A8010A); });
        row("add simulators", CommandAddSimulators, [](CControlHost&) { AddSimulators(2); });
        row("delete", CommandDelete, [](CControlHost&) { g_pPrcListControl->DeleteProcessor(ProcessorId("beta"), false); });
        row("delete a group", CommandDeleteGroup, [](CControlHost&) { g_pPrcListControl->DeleteGroup(GroupId("Stage"), true); });
        row("ungroup", CommandUngroup, [](CControlHost&) { g_pPrcListControl->DeleteGroup(GroupId("Stage"), false); });
        row("rename", CommandRename, [](CControlHost&) { Rename("beta", "x"); });
        row("move", CommandMove, [](CControlHost&) { g_pPrcListControl->MoveProcessor(ProcessorId("beta"), {}); });
        row("the Chief", CommandChief, [](CControlHost& host) { host.SetChief(GroupId("Stage"), ProcessorId("beta")); });
        row("import", CommandImport, [](CControlHost&) { g_pPrcListControl->ImportList("other.kvtl"); });
        row("scan", CommandScan, [](CControlHost&) { g_pPrcBasicControl->RefreshProcessors(); });
        row("restore", CommandRestore, [](CControlHost& host) { host.RestoreList({}, host.GetSnapshot()); });
        row("use the refused list", CommandUseRefused, [](CControlHost& host) { host.UseRefusedList(); });
    }

    void aLockedListSaysSoToEachCommand()
    {
        QFETCH(Command, command);
        pFixture->pHost->SetListLocked(true);
        command(*pFixture->pHost);
        QCOMPARE(pRecorder->GetRefusals().size(), 1);
        QTEST(int(pRecorder->GetRefusals().first().command), "nCommand");
        QCOMPARE(pRecorder->GetRefusals().first().reason, ReasonListLocked);
        QCOMPARE(pRecorder->GetEdits().size(), 0);
    }

    void aFileThatCannotBeImportedIsRefused_data()
    {
        QTest::addColumn<QString>("strFile");
        QTest::addColumn<int>("nReason");
        QTest::newRow("not there") << "nowhere.kvtl" << int(ReasonFileGone);
        QTest::newRow("no list") << "text.kvtl" << int(ReasonFileInvalid);
        QTest::newRow("too large") << "large.kvtl" << int(ReasonFileTooLarge);
    }

    void aFileThatCannotBeImportedIsRefused()
    {
        QFETCH(QString, strFile);
        pFixture->Write("text.kvtl", "text");
        SProcessorAllNode node;
        for (int n = 0; n < 257; ++n) {
            node.listProcessor.append(Processor(QStringLiteral("p%1").arg(n)));
        }
        pFixture->Write("large.kvtl", ListFormat::Write(node));
        g_pPrcListControl->ImportList(pFixture->GetPath(strFile));
        QCOMPARE(pRecorder->GetRefusals().size(), 1);
        const SRefusal refusal = pRecorder->GetRefusals().first();
        QCOMPARE(refusal.command, CommandImport);
        QCOMPARE(refusal.strName, pFixture->GetPath(strFile));
        QTEST(int(refusal.reason), "nReason");
    }

    void anExportThatFailsIsRefusedWithItsReason()
    {
        const QString strPath = pFixture->GetPath("folder.kvtl");
        QVERIFY(QDir().mkdir(strPath));
        ExpectWarning("The list was not exported");
        QCOMPARE(g_pPrcListControl->ExportList(strPath, 0), 6);
        const SRefusal refusal = pRecorder->GetRefusals().value(0);
        QCOMPARE(refusal.command, CommandExport);
        QCOMPARE(refusal.reason, ReasonFileNotWritten);
        QCOMPARE(refusal.strName, strPath);
        QVERIFY(!refusal.strDetail.isEmpty() && refusal.strLine.endsWith(refusal.strDetail));
    }

    void aSaveThatFailsIsRefusedWithItsReason()
    {
        pFixture->Write("list.kvtl", "somebody else's");
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        ExpectWarning("The list is not being saved");
        const QString strReason = pFixture->pHost->SaveList();
        QVERIFY(!strReason.isEmpty());
        const SRefusal refusal = pRecorder->GetRefusals().value(0);
        QCOMPARE(refusal.command, CommandSave);
        QCOMPARE(refusal.reason, ReasonFileNotReplaced);
        QCOMPARE(refusal.strLine, strReason);
    }

    void eachReasonHasItsWords()
    {
        for (int nReason = ReasonNone + 1; nReason <= ReasonNothingWasRefused; ++nReason) {
            const QString strText = FaultText::Build({ static_cast<EnRefusalReason>(nReason), "detail" });
            QVERIFY2(!strText.isEmpty() && !strText.contains('%'), qPrintable(QString::number(nReason)));
        }
        QCOMPARE(FaultText::Build({}), QString());
    }

private:
    static void AddRow(const char* szRow, EnListCommand nCommand, const QString& strName, EnRefusalReason reason,
                       const QString& strDetail, const Command& command)
    {
        QTest::newRow(szRow) << command << int(nCommand) << strName << int(reason) << strDetail;
    }

    static void AddName(const char* szRow, const QString& strName, EnRefusalReason reason, const QString& strDetail = {})
    {
        AddRow(szRow, CommandRename, strName, reason, strDetail, [=](CControlHost&) { Rename("alpha", strName); });
    }

    static void AddTexts()
    {
        AddName("an empty name", "", ReasonNameEmpty);
        AddName("half a character", QString(QChar(0xD800)), ReasonNameControl);
        AddName("a joiner alone", QChar(0x200D), ReasonNameInvisible);
        AddName("an override", QString("a") + QChar(0x202E) + "b", ReasonNameDirection);
        AddName("an equals sign", "a=b", ReasonNameCharacters, QString::fromUtf8("=}·~+{【】《》‘’“”，。、；：？—"));
        AddName("a long name", QString(65, 'x'), ReasonNameLength, "64");
        AddRow("a name of two lines", CommandRename, "a= b", ReasonNameCharacters,
               QString::fromUtf8("=}·~+{【】《》‘’“”，。、；：？—"), [](CControlHost&) { Rename("alpha", " a=\nb"); });
        AddRow("a file of two lines", CommandImport, "no where", ReasonFileGone, {},
               [](CControlHost&) { g_pPrcListControl->ImportList("no\nwhere"); });
    }

    static void AddNodes()
    {
        AddRow("renaming what is gone", CommandRename, "x", ReasonGone, {}, [](CControlHost&) { Rename("nobody", "x"); });
        AddRow("moving what is gone", CommandMove, {}, ReasonGone, {},
               [](CControlHost&) { g_pPrcListControl->MoveProcessor(ProcessorId("nobody"), {}); });
        AddRow("moving into nowhere", CommandMove, "loose", ReasonGroupGone, {},
               [](CControlHost&) { g_pPrcListControl->MoveProcessor(ProcessorId("loose"), GroupId("nobody")); });
        AddRow("a group that is there", CommandAddGroup, "Hall", ReasonIdTaken, {},
               [](CControlHost&) { g_pPrcListControl->AddGroup(Group("Hall"), true); });
        AddRow("deleting what is in use", CommandDelete, "alpha", ReasonInUse, "alpha", [](CControlHost& host) {
            host.OpenProject("Aurora");
            g_pPrcListControl->DeleteProcessor(ProcessorId("alpha"), false);
        });
        AddRow("its group", CommandDeleteGroup, "Stage", ReasonInUse, "alpha", [](CControlHost& host) {
            host.OpenProject("Aurora");
            g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        });
        AddRow("a Chief of another group", CommandChief, "Hall", ReasonNotMember, {},
               [](CControlHost& host) { host.SetChief(GroupId("Hall"), ProcessorId("alpha")); });
        AddRow("the Chief of a group that is gone", CommandChief, {}, ReasonGone, {},
               [](CControlHost& host) { host.SetChief(GroupId("nobody"), {}); });
    }

    static void AddDevices()
    {
        AddRow("a reserved address", CommandAddProcessor, "192.168.1.1", ReasonAddressReserved, {},
               [](CControlHost&) { g_pPrcBasicControl->AddProcessor(0xC0A80101); });
        AddRow("an address that is taken", CommandAddProcessor, "192.168.1.20", ReasonAddressTaken, {},
               [](CControlHost&) { g_pPrcBasicControl->AddProcessor(0xC0A80114); });
        AddRow("an address where nothing answers", CommandAddProcessor, "8.8.8.8", ReasonAddressNoAnswer, {},
               [](CControlHost&) { g_pPrcBasicControl->AddProcessor(0x08080808); });
        AddRow("three simulators", CommandAddSimulators, {}, ReasonSimulatorsFull, {}, [](CControlHost&) { AddSimulators(3); });
        AddRow("an unknown type", CommandAddSimulators, {}, ReasonNoSuchSimulator, {},
               [](CControlHost&) { g_pPrcBasicControl->AddSimulators({}); });
        AddRow("a blocked refresh", CommandScan, {}, ReasonRefreshBlocked, {}, [](CControlHost& host) {
            host.SetRefreshBlocked(true);
            g_pPrcBasicControl->RefreshProcessors();
        });
    }

    static void Rename(const QString& strNode, const QString& strName)
    {
        g_pPrcBasicControl->RenameProcessor(ProcessorId(strNode), strName);
    }

    static void AddSimulators(int nCount)
    {
        SSimulatorRequest request;
        request.nType = 12;
        request.nCount = nCount;
        g_pPrcBasicControl->AddSimulators(request);
    }

    QScopedPointer<CControlFixture> pFixture;
    QScopedPointer<CEditRecorder> pRecorder;
};

PTV_TEST_MAIN_CORE(CRefusalsTest)
#include "tst_refusals.moc"
