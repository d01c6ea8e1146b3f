#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/CListStore.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "CorvidControl/objects/CHostEvents.h"
#include "CorvidControl/objects/CHostState.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"

#include <QDir>
#include <QProcess>

#include <csignal>
#include <ctime>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// While it lives, no file can be written beyond nBytes: a full disk.
class CFullDisk
{
public:
    explicit CFullDisk(rlim_t nBytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit now{ nBytes, before.rlim_max };
        setrlimit(RLIMIT_FSIZE, &now);
    }
    ~CFullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before);
    }
    Q_DISABLE_COPY_MOVE(CFullDisk)

private:
    rlimit before{};
};

/// While it lives, nothing can be created in the folder; also for root, who gives up its rights.
class CReadOnlyFolder
{
public:
    explicit CReadOnlyFolder(const QString& strPathIn) : strPath(strPathIn)
    {
        const QFile::Permissions seeing = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup;
        QFile::setPermissions(strPath, seeing | QFile::ReadOther | QFile::ExeOther);
        if (geteuid() == 0) {
            bLowered = seteuid(65534) == 0;
        }
    }
    ~CReadOnlyFolder()
    {
        if (bLowered && seteuid(0) != 0) {
            qFatal("the test cannot get its rights back");
        }
        QFile::setPermissions(strPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    Q_DISABLE_COPY_MOVE(CReadOnlyFolder)

private:
    const QString strPath;
    bool bLowered = false;
};

// What this thread has worked, whatever else the machine does.
double GetThreadMs()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace

/// The list file: read at the start, replaced as a whole or left alone.
class CListFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aSavedListIsBackAfterTheNextStart()
    {
        pFixture->Start(Root({ Group("Stage", { Processor("alpha") }) }, { Processor("beta") }));
        g_pPrcListControl->MoveProcessor(ProcessorId("beta"), GroupId("Stage"));
        g_pPrcListControl->SetExpanded(GroupId("Stage"), false);
        g_pPrcListControl->RenameGroup(GroupId("Stage"), QString::fromUtf8("舞台"));
        QCOMPARE(g_pPrcListControl->ExportList(g_pConfigControl->GetListFilePath(), 0), 0);
        pFixture->Stop();
        pFixture->StartAsIs();
        QCOMPARE(CControlFixture::GetText(), QString::fromUtf8("all*\n  舞台\n    alpha\n    beta"));
        QVERIFY(!CControlFixture::GetTree().listGroup.at(0).bExpanded);
    }

    void aMissingFileIsAnEmptyListWithoutAFault()
    {
        pFixture->StartAsIs();
        QCOMPARE(pFixture->pHost->GetListError(), QString());
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        QCOMPARE(g_pPrcListControl->ExportList(g_pConfigControl->GetListFilePath(), 0), 0);
        QCOMPARE(ReadBack().verdict, SListReading::Valid);
    }

    void namesOfTheOwnListAreMendedWithALineEach()
    {
        const QByteArray bytes = ListFormat::Write(Root({ Group(" Stage ", { Processor("al\npha") }), Group("Hall") }));
        pFixture->Write("list.kvtl", bytes);
        ExpectWarning("A name in the list was mended. group 1: it is \"Stage\" now");
        ExpectWarning("A name in the list was mended. processor 1 of group 1: it is \"al pha\" now");
        pFixture->StartAsIs();
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage\n    al pha\n  Hall"));
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 0);
        pFixture->Write("other.kvtl", bytes);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 2);
    }

    void aFileThatCannotBeReadIsNamedAndLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("strReason");
        SProcessorAllNode large;
        for (int n = 0; n < 257; ++n) {
            large.listProcessor.append(Processor(QStringLiteral("p%1").arg(n)));
        }
        QTest::newRow("not a list") << QByteArray("hello\n") << "it is not a list file";
        QTest::newRow("damaged") << ListFormat::Write(Root({})).replace("true", "True") << "it is damaged or cut short";
        QTest::newRow("newer") << QByteArray("kvtl 9\n") << "it is of version 9";
        QTest::newRow("over the limit") << ListFormat::Write(large) << "it holds more than 256 processors";
    }

    void aFileThatCannotBeReadIsNamedAndLeftAlone()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, strReason);
        pFixture->Write("list.kvtl", bytes);
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        QVERIFY(pFixture->pHost->GetListError().startsWith(pFixture->GetPath() + ": " + strReason));
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        g_pPrcListControl->AddGroup(Group("Stage"), true);
        ExpectWarning("The list is not being saved");
        QCOMPARE(g_pPrcListControl->ExportList(g_pConfigControl->GetListFilePath(), 0), 7);
        QCOMPARE(pFixture->Read("list.kvtl"), bytes);
    }

    void aFileThatWasRefusedIsNotImportedOver()
    {
        pFixture->Write("list.kvtl", "hello\n");
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Stage") })));
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 3);
        QCOMPARE(pFixture->Read("list.kvtl"), QByteArray("hello\n"));
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
    }

    void anotherFileIsStillExportedWhenTheOwnWasRefused()
    {
        pFixture->Write("list.kvtl", "hello\n");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Stage"), true);
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath("other.kvtl"), 0), 0);
        QCOMPARE(ReadBack("other.kvtl").node.listGroup.size(), 1);
        ExpectWarning("The list is not being saved"); // at the end, it is kept aside
        pFixture->Stop();
    }

    void exportImportExportGivesTheSameBytes()
    {
        pFixture->Start(Root({ Group("Stage", { Processor("alpha").Online().Primary() }).Aux({ 3, 1, 2 }).Expanded(false) },
                             { Processor("beta").Chief() }));
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath("first"), 0), 0);
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("first")), 0);
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath("second"), 0), 0);
        QCOMPARE(pFixture->Read("second"), pFixture->Read("first"));
        QVERIFY(!pFixture->Read("first").isEmpty());
    }

    void anImportReplacesTheListAndTheOwnFile()
    {
        pFixture->Start(Root({ Group("Stage") }, { Processor("alpha") }));
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall", { Processor("beta") }) })));
        g_pRuntimeControl->SetSelectedNodes({ ProcessorId("alpha") });
        pFixture->recorder.Clear();
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Hall\n    beta"));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageListChanged });
        QCOMPARE(pFixture->Read("list.kvtl"), pFixture->Read("other.kvtl"));
        QCOMPARE(pFixture->ListFiles({ "list.2*.kvtl" }).size(), 1);
        QCOMPARE(pFixture->ListFiles().size(), 3);
    }

    void anImportTakesTheDevicesWithIt()
    {
        pFixture->Start(Root({}, { Processor("alpha") }));
        pFixture->Write("other.kvtl", ListFormat::Write(Root({}, { Processor("beta") })));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        g_pPrcBasicControl->RefreshProcessors();
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  beta"));
    }

    void theLongestListHoldsTheCallerForLessThan50Milliseconds()
    {
        if (!qEnvironmentVariableIsEmpty("PTV_SANITIZE")) {
            QSKIP("the sanitizers take time of their own");
        }
        SProcessorAllNode node = BuildLongestList();
        pFixture->Start(node);
        double dLeast = 1000;
        for (int n = 0; n < 5; ++n) {
            node.bExpanded = !node.bExpanded;
            pFixture->Write("other.kvtl", ListFormat::Write(node));
            const double dBefore = GetThreadMs();
            QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
            dLeast = qMin(dLeast, GetThreadMs() - dBefore);
        }
        QVERIFY2(dLeast < 50, qPrintable(QString::number(dLeast)));
    }

    void anImportThatFailsLeavesListAndFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("nResult");
        SProcessorAllNode large;
        for (int n = 0; n < 257; ++n) {
            large.listProcessor.append(Processor(QStringLiteral("p%1").arg(n)));
        }
        const QByteArray twice = ListFormat::Write(Root({ Group("a"), Group("b").NodeId(GroupId("a")) }));
        QTest::newRow("not there") << QByteArray() << 2;
        QTest::newRow("not a list") << QByteArray("hello\n") << 2;
        QTest::newRow("damaged") << ListFormat::Write(Root({})).replace("true", "True") << 2;
        QTest::newRow("newer") << QByteArray("kvtl 2\n") << 2;
        QTest::newRow("an id twice") << twice << 2;
        QTest::newRow("a bad name") << ListFormat::Write(Root({ Group("a=b") })) << 2;
        QTest::newRow("over the limit") << ListFormat::Write(large) << 5;
    }

    void anImportThatFailsLeavesListAndFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, nResult);
        pFixture->Start(Root({ Group("Stage") }));
        const QByteArray before = pFixture->Read("list.kvtl");
        if (!bytes.isEmpty()) {
            pFixture->Write("other.kvtl", bytes);
        }
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), nResult);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage"));
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QVERIFY(logged.value(0).value(0).toString().contains("other.kvtl was refused: "));
    }

    void anImportOverAnOwnListThatIsALinkKeepsTheLink()
    {
        QVERIFY(QDir(pFixture->folder.path()).mkpath("network"));
        pFixture->Write("network/ours.kvtl", ListFormat::Write(Root({ Group("Stage") })));
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        QVERIFY(QFile::link("network/ours.kvtl", pFixture->GetPath()));
        pFixture->StartAsIs();
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        QVERIFY(QFileInfo(pFixture->GetPath()).isSymLink());
        QCOMPARE(pFixture->Read("network/ours.kvtl"), pFixture->Read("other.kvtl"));
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 0);
        QVERIFY(QFileInfo(pFixture->GetPath()).isSymLink());
        const QStringList listBeside{ "ours.2*.kvtl", "ours.kvtl", "ours.kvtl.lock" };
        const QDir network(pFixture->GetPath("network"));
        QCOMPARE(network.entryList(QDir::Files).size(), 3);
        QCOMPARE(network.entryList(listBeside, QDir::Files).size(), 3);
    }

    void anImportThatCannotCopyLeavesListAndFiles_data()
    {
        QTest::addColumn<bool>("bReadOnly");
        QTest::newRow("full disk") << false;
        QTest::newRow("read-only folder") << true;
    }

    void anImportThatCannotCopyLeavesListAndFiles()
    {
        QFETCH(bool, bReadOnly);
        pFixture->Start(Root({ Group("Stage") }));
        const QByteArray before = pFixture->Read("list.kvtl");
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall", { Processor("beta") }) })));
        {
            const QScopedPointer<CFullDisk> pFull(bReadOnly ? nullptr : new CFullDisk(64));
            const QScopedPointer<CReadOnlyFolder> pReadOnly(bReadOnly ? new CReadOnlyFolder(pFixture->folder.path()) : nullptr);
            QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 4);
        }
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage"));
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QCOMPARE(pFixture->ListFiles(), (QStringList{ "list.kvtl", "other.kvtl" }));
    }

    void anImportOverAnOwnListThatIsAFolderLeavesListAndFiles()
    {
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        pFixture->StartAsIs();
        QVERIFY(QDir(pFixture->folder.path()).mkpath("list.kvtl/inside"));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 3);
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        QCOMPARE(pFixture->ListFiles(), QStringList{ "other.kvtl" });
    }

    void aLockedListIsNotImportedOver()
    {
        pFixture->Start(Root({ Group("Stage") }));
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        pFixture->pHost->SetListLocked(true);
        const int nResult = g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl"));
        QVERIFY2(!(QVector<int>{ 0, 2, 3, 4, 5 }.contains(nResult)), "no word is right for it");
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage"));
    }

    void aFailedExportLeavesTheOldFile_data()
    {
        QTest::addColumn<QString>("strHow");
        QTest::newRow("full disk") << "full";
        QTest::newRow("read-only folder") << "readonly";
        QTest::newRow("a folder of that name") << "folder";
        QTest::newRow("no such folder") << "nowhere";
        QTest::newRow("no name") << "";
    }

    void aFailedExportLeavesTheOldFile()
    {
        QFETCH(QString, strHow);
        pFixture->Start(Root({ Group("Stage", { Processor("alpha") }) }));
        const QByteArray before = pFixture->Read("list.kvtl");
        g_pPrcListControl->AddGroup(Group("Hall"), true);
        QDir(pFixture->folder.path()).mkpath("folder");
        const QString strPath = strHow == "folder" ? pFixture->GetPath("folder")
            : strHow == "nowhere"                  ? pFixture->GetPath("nowhere/list.kvtl")
            : strHow.isEmpty()                     ? QString()
                                                   : pFixture->GetPath();
        const bool bOwn = strPath == pFixture->GetPath();
        ExpectWarning(bOwn ? "The list is not being saved" : "The list was not exported");
        int nResult = 0;
        {
            const QScopedPointer<CFullDisk> pFull(strHow == "full" ? new CFullDisk(64) : nullptr);
            const QScopedPointer<CReadOnlyFolder> pReadOnly(strHow == "readonly" ? new CReadOnlyFolder(pFixture->folder.path())
                                                                                 : nullptr);
            nResult = g_pPrcListControl->ExportList(strPath, 0);
        }
        QCOMPARE(nResult, 6);
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QCOMPARE(pFixture->ListFiles(), QStringList{ "list.kvtl" });
        QVERIFY(!QDir(pFixture->folder.path()).exists("nowhere"));
    }

    void aListThatCouldNotBeReadBackIsNotWritten()
    {
        const QByteArray before = ListFormat::Write(Root({}, { Processor("alpha") }));
        pFixture->Write("list.kvtl", before);
        CMessageDispatcher dispatcher;
        CHostEvents events;
        const CHostState host(dispatcher, events);
        CProcessorList processors(dispatcher, events, host, {});
        CJobs jobs;
        CListStore store(processors, jobs, events, pFixture->GetPath());
        QVERIFY(store.Load());
        processors.ReplaceList(Root({}, { Processor("alpha=beta") }));
        ExpectWarning("The list is not being saved");
        QCOMPARE(store.Export(pFixture->GetPath()), CListStore::ExportNotWritten);
        QCOMPARE(pFixture->Read("list.kvtl"), before);
    }

    void whatADeviceSaysNeverKeepsTheListFromBeingSaved_data()
    {
        QTest::addColumn<SProcessorNode>("device");
        QTest::newRow("a control character") << SProcessorNode(Processor("alpha").Project("a\tb"));
        QTest::newRow("over its length") << SProcessorNode(Processor("alpha").Project(QString(257, 'x')));
        QTest::newRow("wide characters") << SProcessorNode(Processor("alpha").Project(QString(100, QChar(0x5DE6))));
        QTest::newRow("half a character") << SProcessorNode(Processor("alpha").Project(QChar(0xD800)));
        QTest::newRow("a role that is not there") << SProcessorNode(Processor("alpha").Failover(7));
        QTest::newRow("a new one with a bad name") << SProcessorNode(Processor("a=b"));
        QTest::newRow("a new one without a name") << SProcessorNode(Processor(QString(QChar(0x200B))).Id("new"));
        QTest::newRow("a new one with a long type") << SProcessorNode(Processor("new").Type(12, QString(300, 'x')));
    }

    void whatADeviceSaysNeverKeepsTheListFromBeingSaved()
    {
        QFETCH(SProcessorNode, device);
        pFixture->Write("list.kvtl", ListFormat::Write(Root({}, { Processor("alpha") })));
        CMessageDispatcher dispatcher;
        CHostEvents events;
        const CHostState host(dispatcher, events);
        CProcessorList processors(dispatcher, events, host, {});
        CJobs jobs;
        CListStore store(processors, jobs, events, pFixture->GetPath());
        QVERIFY(store.Load());
        processors.ApplyReport(device);
        if (device.idNode != ProcessorId("alpha")) {
            QVERIFY(processors.AddProcessor(device, false));
        }
        QCOMPARE(store.Export(pFixture->GetPath()), CListStore::ExportDone);
        QCOMPARE(ListFormat::Write(ReadBack().node), ListFormat::Write(processors.GetTree(false)));
    }

    void aKillAtAnyMomentLeavesAWholeList()
    {
        SProcessorAllNode node = Root({}, { Processor("Version 0") });
        for (int n = 0; n < 200; ++n) {
            node.listProcessor.append(Processor(QStringLiteral("p%1").arg(n)));
        }
        pFixture->Write("list.kvtl", ListFormat::Write(node));
        for (int n = 0; n < 20; ++n) {
            QProcess saver;
            saver.start(QCoreApplication::applicationDirPath() + "/list_saver", { pFixture->GetPath() });
            for (int nSaved = 0; nSaved <= n % 5; ++nSaved) {
                QTRY_VERIFY(saver.canReadLine() || saver.waitForReadyRead(100));
                QCOMPARE(saver.readLine(), QByteArray("0\n"));
            }
            saver.kill();
            QVERIFY(saver.waitForFinished());
            const SListReading reading = ReadBack();
            QCOMPARE(reading.strReason, QString());
            QCOMPARE(reading.node.listProcessor.size(), 201);
        }
    }

private:
    SListReading ReadBack(const QString& strName = QStringLiteral("list.kvtl")) const
    {
        return ListFormat::Read(pFixture->Read(strName), {});
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CListFilesTest)
#include "tst_listfiles.moc"
