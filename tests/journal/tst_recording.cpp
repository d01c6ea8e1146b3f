#include "CRecording.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "double/CControlDouble.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "journal/CControlJournal.h"
#include "journal/recording/CJournalRecorder.h"
#include "journal/recording/CRecordedCall.h"
#include "journal/recording/TreeChange.h"

#include <QJsonDocument>

#include <stdexcept>
#include <thread>

namespace {

const QUuid id("{1c0ffee0-0000-0000-0000-000000000001}");
const QUuid idGroup("{dec0de00-0000-0000-0000-000000000002}");

/// A control library under decorators that are recorded into a folder.
class CRecordedLibrary
{
public:
    CRecordedLibrary()
    {
        log.SetRecorder(&recorder);
        pJournal = std::make_unique<CControlJournal>(SControlPointers::Linked(), log, jobs,
                                                     [](int nMessage) { return nMessage == 7 ? "Devices" : QString(); });
        writer.Open(recording.GetFolder(), {}, false);
    }

    QList<QJsonObject> Read(const QString& strKind)
    {
        return CRecording::Pick(recording.Read(writer), strKind);
    }

    /// The only line of a call of that operation.
    QJsonObject Call(const QString& strOperation)
    {
        QList<QJsonObject> listFound;
        for (const QJsonObject& line : Read("call")) {
            if (line.value("operation").toString() == strOperation) {
                listFound.append(line);
            }
        }
        return listFound.size() == 1 ? listFound[0] : QJsonObject();
    }

    CControlDouble control;
    CRecording recording;
    CJournalWriter writer;
    CJournalRecorder recorder{ writer };
    CCallLog log{ 64 };
    CJobs jobs;
    std::unique_ptr<CControlJournal> pJournal;
};

/// "[arguments] = result", as JSON.
QString Text(const QJsonObject& line)
{
    const QByteArray text = QJsonDocument(QJsonArray{ line.value("args"), line.value("result") }).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(text.mid(1, text.size() - 2));
}

/// Calls every operation once, with other arguments than the defaults.
void CallAll()
{
    QList<uint> listIP;
    std::vector<uint> vecIP;
    SProcessorAllNode node;
    SProjectInfo info;
    g_pConfigControl->GetReservedIPs(listIP);
    g_pConfigControl->GetListFilePath();
    g_pPrcBasicControl->RefreshProcessors();
    g_pPrcBasicControl->AddSimulators({ 12, 2, 1 });
    g_pPrcBasicControl->AddProcessor(0x0A000007);
    g_pPrcBasicControl->RenameProcessor(id, "alpha");
    g_pPrcBasicControl->GetTypeName(12);
    g_pPrcBasicControl->GetLocalAddress();
    g_pPrcBasicControl->IsListLocked();
    g_pPrcBasicControl->IsRefreshBlocked();
    g_pPrcListControl->ExportList("/a.kvtl", 0);
    g_pPrcListControl->ImportList("/b.kvtl");
    g_pPrcListControl->GetDiscoveredTree(node);
    g_pPrcListControl->GetSimulatorTree(node);
    g_pPrcListControl->AddGroup(Group("Stage", {}), true);
    g_pPrcListControl->DeleteGroup(idGroup, true);
    g_pPrcListControl->DeleteProcessor(id, false);
    g_pPrcListControl->MoveProcessor(id, QUuid());
    g_pPrcListControl->RenameGroup(idGroup, "Hall");
    g_pPrcListControl->IsNodeActive(id);
    g_pPrcListControl->SetExpanded(id, false);
    g_pPrcListControl->GetSimulatorCount();
    g_pPrcListControl->GetNextGroupIndex();
    g_pPrcListControl->GetProcessorIPs(vecIP);
    g_pPrcListControl->GetNodeType(id);
    g_pPreferenceControl->IsChiefMode();
    g_pProjectManageControl->GetProjectInfo(info);
    g_pRuntimeControl->PostMessage(14);
    g_pRuntimeControl->IsSimulatorPane();
    g_pRuntimeControl->SetSimulatorPane(true);
    g_pRuntimeControl->SetSelectedNodes(std::vector<QUuid>(5, id));
    g_pRuntimeControl->GetSelectedNodes(true);
    g_pRuntimeControl->GetSelectedProcessors();
    g_pRuntimeControl->IsDeleteBlocked(id);
    g_pRuntimeControl->IsNodeInUse(id);
    g_pRuntimeControl->SetBusy(true);
    g_pRuntimeControl->SetBusy(false);
}

} // namespace

/// Every call and message in full, in a file.
class CRecordingTest : public QObject
{
    Q_OBJECT

private slots:
    void everyCallThatReachesTheLibraryIsALine()
    {
        CRecordedLibrary library;
        library.control.ClearJournal();

        CallAll();

        QStringList listCall;
        for (const QJsonObject& line : library.Read("call")) {
            listCall.append("g_p" + line.value("object").toString() + '.' + line.value("operation").toString());
        }
        QStringList listExpected;
        for (const QString& strCall : library.control.Calls()) {
            listExpected.append(strCall.section('(', 0, 0));
        }
        QCOMPARE(listCall.mid(listCall.size() - listExpected.size()), listExpected);
        QCOMPARE(listExpected.size(), 37);
    }

    void argumentsAndResultsAreWhole_data()
    {
        QTest::addColumn<QString>("strOperation");
        QTest::addColumn<QString>("strExpected");

        const QString strId = id.toString(QUuid::WithoutBraces);
        const QString strGroup = idGroup.toString(QUuid::WithoutBraces);
        const QString strIds = QStringList{ strId, strId, strId, strId, strId }.join("\",\"");
        QTest::newRow("ids") << "SetSelectedNodes" << "[[\"" + strIds + "\"]],true";
        QTest::newRow("texts") << "RenameGroup" << "[\"" + strGroup + "\",\"Hall\"],null";
        QTest::newRow("address") << "AddProcessor" << "[\"10.0.0.7\"],null";
        QTest::newRow("addresses") << "GetReservedIPs" << "[],[\"10.0.0.1\",\"10.0.0.2\"]";
        QTest::newRow("request") << "AddSimulators" << "[{\"count\":2,\"output\":1,\"type\":12}],null";
        QTest::newRow("path") << "ImportList" << "[\"/b.kvtl\"],5";
        QTest::newRow("a null id") << "MoveProcessor"
                                   << "[\"" + strId + "\",\"" + QUuid().toString(QUuid::WithoutBraces) + "\"],null";
    }

    void argumentsAndResultsAreWhole()
    {
        QFETCH(QString, strOperation);
        QFETCH(QString, strExpected);
        CRecordedLibrary library;
        library.control.Set([](SControlAnswers& answers) {
            answers.nImportResult = 5;
            answers.listReservedIP = { 0x0A000001, 0x0A000002 };
        });
        CallAll();
        QCOMPARE(Text(library.Call(strOperation)), strExpected);
    }

    void aSelectionOfAnySizeIsWholeAndInItsOrder()
    {
        CRecordedLibrary library;
        std::vector<QUuid> vecId;
        QJsonArray expected;
        for (int n = 0; n < 512; ++n) {
            vecId.push_back(QUuid::createUuid());
            expected.append(vecId.back().toString(QUuid::WithoutBraces));
        }
        library.control.Set([&](SControlAnswers& answers) { answers.vecDiscoveredSelection = vecId; });
        g_pRuntimeControl->SetSelectedNodes(vecId);
        g_pRuntimeControl->GetSelectedNodes(false);
        QCOMPARE(library.Call("SetSelectedNodes").value("args").toArray(), QJsonArray{ expected });
        QCOMPARE(library.Call("GetSelectedNodes").value("result").toArray(), expected);
    }

    void aGroupIsHandedOverWhole()
    {
        CRecordedLibrary library;
        g_pPrcListControl->AddGroup(Group("Stage", { Processor("alpha") }), true);
        const QJsonObject group = library.Call("AddGroup").value("args").toArray().at(0).toObject();
        QCOMPARE(group.value("name").toString(), QString("Stage"));
        QCOMPARE(group.value("processors").toArray().at(0).toObject().value("name").toString(), QString("alpha"));
    }

    void aTreeIsTheDifferenceToTheLastReading()
    {
        CRecordedLibrary library;
        SProcessorAllNode nodePlayed;
        for (const char* szName : { "alpha", "beta", "beta" }) {
            library.control.Set(
                [&](SControlAnswers& answers) { answers.nodeDiscovered = Root({ Group("Stage", { Processor(szName) }) }); });
            SProcessorAllNode node;
            g_pPrcListControl->GetDiscoveredTree(node);
        }
        QStringList listKey;
        for (const QJsonObject& line : library.Read("call")) {
            const QJsonObject result = line.value("result").toObject();
            listKey += result.keys();
            TreeChange::Apply(result, nodePlayed);
        }
        QCOMPARE(listKey, (QStringList{ "whole", "change", "same" }));
        QCOMPARE(nodePlayed.listGroup[0].listProcessor[0].strName, QString("beta"));
    }

    void eachLineSaysWhenHowLongAndOnWhichThread()
    {
        CRecordedLibrary library;
        g_pRuntimeControl->SetBusy(true);
        std::thread([] { g_pRuntimeControl->SetBusy(false); }).join();
        const QList<QJsonObject> listCall = library.Read("call");
        const int nCount = listCall.size();
        QCOMPARE(listCall[nCount - 2].value("thread").toString(), QString("gui"));
        QVERIFY(listCall[nCount - 1].value("thread").toString().startsWith("other-"));
        QVERIFY(listCall[nCount - 1].value("n").toInt() > listCall[nCount - 2].value("n").toInt());
        QVERIFY(listCall[nCount - 1].value("t").toDouble() >= listCall[nCount - 2].value("t").toDouble());
        QVERIFY(listCall[nCount - 1].contains("us"));
        const QDateTime date = QDateTime::fromString(listCall[nCount - 1].value("date").toString(), Qt::ISODateWithMs);
        QVERIFY(qAbs(date.msecsTo(QDateTime::currentDateTimeUtc())) < 3600 * 1000);
    }

    void aCallThatBlocksIsThereFromItsBeginning()
    {
        CRecordedLibrary library;
        library.control.Hold("RefreshProcessors");
        std::thread job([] { g_pPrcBasicControl->RefreshProcessors(); });
        const bool bHeld = library.control.WaitForHeld("RefreshProcessors");
        const QList<QJsonObject> listBegin = library.Read("begin");
        library.control.Release("RefreshProcessors");
        job.join();

        QVERIFY(bHeld);
        QCOMPARE(listBegin.size(), 1);
        const QJsonObject call = library.Call("RefreshProcessors");
        QCOMPARE(call.value("n"), listBegin[0].value("n"));
        QCOMPARE(call.value("t"), listBegin[0].value("t"));
    }

    void aMessageSaysWhatMayHaveCausedIt()
    {
        CRecordedLibrary library;
        g_pPrcListControl->MoveProcessor(id, idGroup);
        g_pPrcBasicControl->IsListLocked();
        library.log.Write(RecordNote, "Devices", "alpha goes offline");
        library.control.Raise(7, "g_pProtocalControl");
        QVERIFY(library.control.WaitForDelivery());
        library.control.Raise(3, "g_pRuntimeControl");
        QVERIFY(library.control.WaitForDelivery());

        const QList<QJsonObject> listMessage = library.Read("message");

        QCOMPARE(listMessage.size(), 2);
        QCOMPARE(listMessage[0].value("message").toInt(), 7);
        QCOMPARE(listMessage[0].value("name").toString(), QString("Devices"));
        QCOMPARE(listMessage[0].value("object").toString(), QString("ProtocalControl"));
        const QJsonArray cause{ library.Call("MoveProcessor").value("n"), library.Read("note")[0].value("n") };
        QCOMPARE(listMessage[0].value("cause").toArray(), cause);
        QCOMPARE(listMessage[1].value("cause").toArray(), QJsonArray());
    }

    void whatIsThrownEndsThereAndIsSaid()
    {
        CRecordedLibrary library;
        const CCallWriter writer(library.log, "RuntimeControl");
        {
            CRecordedCall call(writer, RecordRead, "IsNodeInUse", id);
            QVERIFY(!call.Carry([] { throw std::runtime_error("broken"); }));
        }
        QVERIFY(library.Call("IsNodeInUse").value("threw").toBool());
        QVERIFY(!library.Call("IsNodeInUse").contains("result"));
        const QJsonObject note = library.Read("note")[0];
        QCOMPARE(note.value("object").toString(), QString("RuntimeControl"));
        QCOMPARE(note.value("text").toString(), QString("IsNodeInUse threw an exception: broken"));
    }

    void notesOfTheHostAreLines()
    {
        CRecordedLibrary library;
        library.log.Write(RecordNote, "Library", "refused");
        QCOMPARE(library.Read("note")[0].value("text").toString(), QString("refused"));
    }
};

PTV_TEST_MAIN_CORE(CRecordingTest)
#include "tst_recording.moc"
