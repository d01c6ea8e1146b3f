#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/faults/CCallFaults.h"
#include "CorvidControl/faults/ControlCalls.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/SProjectInfo.h"
#include "journal/CControlJournal.h"

#include <QFile>
#include <QJsonDocument>

#include <thread>

namespace {

/// An operation, a call of it that says what has come back, and what that is when it throws.
struct SOperation
{
    const char* szCall;
    std::function<QString()> fnAsk;
    QString strAnswer;
};

class CNobody final : public CObserver
{
public:
    void Notify(int /*nMessage*/) override { }
};

CNobody nobody;

QUuid Alpha()
{
    return ProcessorId("alpha");
}

QString Text(bool bValue)
{
    return bValue ? QStringLiteral("true") : QStringLiteral("false");
}

QString Text(const std::vector<QUuid>& vecId)
{
    QStringList listName;
    for (const QUuid& id : vecId) {
        listName.append(id.isNull() ? QStringLiteral("root") : QStringLiteral("node"));
    }
    return listName.join(' ');
}

QString Text(const SProcessorAllNode& node)
{
    return QStringLiteral("%1 nodes").arg(node.listGroup.size() + node.listProcessor.size());
}

/// Of a call that returns nothing.
template <typename Call> std::function<QString()> Do(Call fnCall)
{
    return [fnCall] {
        fnCall();
        return QString();
    };
}

template <typename Object> QList<SOperation> Observe(const char* szAttach, const char* szDetach, Object*& pObject)
{
    return { { szAttach, Do([&pObject] { pObject->Attach(&nobody); }), {} },
             { szDetach, Do([&pObject] { pObject->Detach(&nobody); }), {} } };
}

QList<SOperation> Observers()
{
    return Observe("PrcBasicControl.Attach", "PrcBasicControl.Detach", g_pPrcBasicControl)
        + Observe("PrcListControl.Attach", "PrcListControl.Detach", g_pPrcListControl)
        + Observe("PrcRuntimeControl.Attach", "PrcRuntimeControl.Detach", g_pPrcRuntimeControl)
        + Observe("PreferenceControl.Attach", "PreferenceControl.Detach", g_pPreferenceControl)
        + Observe("ProjectManageControl.Attach", "ProjectManageControl.Detach", g_pProjectManageControl)
        + Observe("ProtocalControl.Attach", "ProtocalControl.Detach", g_pProtocalControl)
        + Observe("RuntimeControl.Attach", "RuntimeControl.Detach", g_pRuntimeControl);
}

QString AskTree(bool bSimulator)
{
    SProcessorAllNode node;
    bSimulator ? g_pPrcListControl->GetSimulatorTree(node) : g_pPrcListControl->GetDiscoveredTree(node);
    return Text(node);
}

QString AskProject()
{
    SProjectInfo info;
    g_pProjectManageControl->GetProjectInfo(info);
    return QString::fromStdString(info.strName);
}

QString AskReserved()
{
    QList<uint> listIP{ 7 };
    g_pConfigControl->GetReservedIPs(listIP);
    return QString::number(listIP.size());
}

QString AskAddresses()
{
    std::vector<uint> vecIP{ 7 };
    g_pPrcListControl->GetProcessorIPs(vecIP);
    return QString::number(vecIP.size());
}

QList<SOperation> Reads()
{
    const auto number = [](qint64 nValue) { return QString::number(nValue); };
    return {
        { "ConfigControl.GetReservedIPs", AskReserved, "1" },
        { "ConfigControl.GetListFilePath", [] { return g_pConfigControl->GetListFilePath(); }, "" },
        { "PrcBasicControl.GetTypeName", [] { return g_pPrcBasicControl->GetTypeName(12); }, "" },
        { "PrcBasicControl.GetLocalAddress", [=] { return number(g_pPrcBasicControl->GetLocalAddress().nIP); }, "0" },
        { "PrcBasicControl.IsListLocked", [] { return Text(g_pPrcBasicControl->IsListLocked()); }, "false" },
        { "PrcBasicControl.IsRefreshBlocked", [] { return Text(g_pPrcBasicControl->IsRefreshBlocked()); }, "false" },
        { "PrcListControl.GetDiscoveredTree", [] { return AskTree(false); }, "0 nodes" },
        { "PrcListControl.GetSimulatorTree", [] { return AskTree(true); }, "0 nodes" },
        { "PrcListControl.IsNodeActive", [] { return Text(g_pPrcListControl->IsNodeActive(Alpha())); }, "false" },
        { "PrcListControl.GetSimulatorCount", [=] { return number(g_pPrcListControl->GetSimulatorCount()); }, "0" },
        { "PrcListControl.GetNextGroupIndex", [=] { return number(g_pPrcListControl->GetNextGroupIndex()); }, "1" },
        { "PrcListControl.GetProcessorIPs", AskAddresses, "1" },
        { "PrcListControl.GetNodeType", [=] { return number(g_pPrcListControl->GetNodeType(Alpha())); }, "0" },
        { "PreferenceControl.IsChiefMode", [] { return Text(g_pPreferenceControl->IsChiefMode()); }, "false" },
        { "ProjectManageControl.GetProjectInfo", AskProject, "" },
        { "RuntimeControl.IsSimulatorPane", [] { return Text(g_pRuntimeControl->IsSimulatorPane()); }, "false" },
        { "RuntimeControl.GetSelectedNodes", [] { return Text(g_pRuntimeControl->GetSelectedNodes(false)); }, "node" },
        { "RuntimeControl.GetSelectedProcessors", [] { return Text(g_pRuntimeControl->GetSelectedProcessors()); }, "" },
        { "RuntimeControl.IsDeleteBlocked", [] { return Text(g_pRuntimeControl->IsDeleteBlocked(Alpha())); }, "false" },
        { "RuntimeControl.IsNodeInUse", [] { return Text(g_pRuntimeControl->IsNodeInUse(Alpha())); }, "false" },
    };
}

QList<SOperation> Commands(const QString& strFile)
{
    const auto number = [](qint64 nValue) { return QString::number(nValue); };
    return {
        { "PrcBasicControl.RefreshProcessors", Do([] { g_pPrcBasicControl->RefreshProcessors(); }), {} },
        { "PrcBasicControl.AddSimulators", Do([] { g_pPrcBasicControl->AddSimulators({}); }), {} },
        { "PrcBasicControl.AddProcessor", Do([] { g_pPrcBasicControl->AddProcessor(0x0A000009); }), {} },
        { "PrcBasicControl.RenameProcessor", Do([] { g_pPrcBasicControl->RenameProcessor(Alpha(), "New"); }), {} },
        { "PrcListControl.ExportList", [=] { return number(g_pPrcListControl->ExportList(strFile, 0)); }, "2" },
        { "PrcListControl.ImportList", [=] { return number(g_pPrcListControl->ImportList(strFile)); }, "3" },
        { "PrcListControl.AddGroup", Do([] { g_pPrcListControl->AddGroup(Group("Foyer"), true); }), {} },
        { "PrcListControl.DeleteGroup", Do([] { g_pPrcListControl->DeleteGroup(GroupId("Stage"), false); }), {} },
        { "PrcListControl.DeleteProcessor", Do([] { g_pPrcListControl->DeleteProcessor(Alpha(), false); }), {} },
        { "PrcListControl.MoveProcessor", Do([] { g_pPrcListControl->MoveProcessor(Alpha(), {}); }), {} },
        { "PrcListControl.RenameGroup", Do([] { g_pPrcListControl->RenameGroup(GroupId("Stage"), "New"); }), {} },
        { "PrcListControl.SetExpanded", Do([] { g_pPrcListControl->SetExpanded(GroupId("Stage"), false); }), {} },
        { "RuntimeControl.PostMessage", Do([] { g_pRuntimeControl->PostMessage(1); }), {} },
        { "RuntimeControl.SetSimulatorPane", Do([] { g_pRuntimeControl->SetSimulatorPane(false); }), {} },
        { "RuntimeControl.SetSelectedNodes", [] { return Text(g_pRuntimeControl->SetSelectedNodes({ Alpha() })); }, "false" },
        { "RuntimeControl.SetBusy", Do([] { g_pRuntimeControl->SetBusy(false); }), {} },
    };
}

/// A library in the Simulator pane with something to read in everything, and the decorators round it.
class CBrokenLibrary
{
public:
    CBrokenLibrary()
    {
        fixture.Start(Root({ Group("Stage", { Processor("alpha").Online().Project("Aurora") }) }, { Processor("loose") }));
        g_pPrcBasicControl->AddSimulators({ 12, 1, 1 });
        g_pRuntimeControl->SetSelectedNodes({ Alpha() });
        g_pRuntimeControl->SetSimulatorPane(true);
        g_pRuntimeControl->SetSelectedNodes({ CControlFixture::GetProcessor("Simulator 1", true).idNode });
        fixture.pHost->OpenProject("Aurora");
        fixture.pHost->SetChiefMode(true);
        fixture.pHost->SetRefreshBlocked(true);
        pJournal = std::make_unique<CControlJournal>(SControlPointers::Linked(), log, jobs, [](int) { return QString(); });
    }

    QString Break(const QByteArray& step) const
    {
        return fixture.pHost->TakeFault(QJsonDocument::fromJson('{' + QByteArray(step).replace('\'', '"') + '}').object());
    }

    static QString State()
    {
        return CControlFixture::GetText(false) + CControlFixture::GetText(true) + AskProject()
            + Text(g_pRuntimeControl->IsSimulatorPane());
    }

    CControlFixture fixture;
    CCallLog log{ 256 };
    CJobs jobs;
    std::unique_ptr<CControlJournal> pJournal;
};

} // namespace

/// Faults of calls: what the library does with them, and what its decorators make of what it throws.
class CCallFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void whatIsThrownIsAnsweredLoggedAndChangesNothing_data()
    {
        QTest::addColumn<QString>("strCall");
        QTest::addColumn<QString>("strThrown");
        for (const QString& strCall : ControlCalls::GetAll()) {
            QTest::newRow(qPrintable(strCall + ", error")) << strCall << "error";
            QTest::newRow(qPrintable(strCall + ", other")) << strCall << "other";
        }
    }

    void whatIsThrownIsAnsweredLoggedAndChangesNothing()
    {
        QFETCH(QString, strCall);
        QFETCH(QString, strThrown);
        CBrokenLibrary library;
        const SOperation operation = Find(strCall, library.fixture.GetPath("out.kvtl"));
        const QString strState = CBrokenLibrary::State();
        const quint64 nBefore = library.log.GetLastNumber();
        QCOMPARE(library.Break(QStringLiteral("'do':'throw','call':'%1','thrown':'%2'").arg(strCall, strThrown).toUtf8()),
                 QString());

        QCOMPARE(operation.fnAsk(), operation.strAnswer);

        QStringList listNote;
        for (const SCallRecord& record : library.log.ReadAfter(nBefore)) {
            if (record.kind == RecordNote) {
                listNote.append(QString(record.pObject) + '.' + record.strText);
            }
        }
        const QString strWhat
            = strThrown == "error" ? "an exception: " + strCall + " was to fail" : QString("something that is no std::exception");
        QCOMPARE(listNote, QStringList{ strCall + " threw " + strWhat });
        QCOMPARE(CBrokenLibrary::State(), strState);
        QVERIFY(!QFile::exists(library.fixture.GetPath("out.kvtl")));
        operation.fnAsk(); // once only
        if (strCall.endsWith("Attach")) {
            Find(strCall.section('.', 0, 0) + ".Detach", {}).fnAsk();
        }
    }

    void theAnswersWithoutAFaultAreOthers()
    {
        CBrokenLibrary library;
        QStringList listSame;
        for (const SOperation& operation : Reads()) {
            if (operation.fnAsk() == operation.strAnswer) {
                listSame.append(operation.szCall);
            }
        }
        QCOMPARE(listSame,
                 (QStringList{ "PrcBasicControl.IsListLocked", "PrcListControl.GetNextGroupIndex",
                               "RuntimeControl.GetSelectedNodes" }));
    }

    void aCallOnTheGuiThreadIsNotHeld()
    {
        CBrokenLibrary library;
        QCOMPARE(library.Break("'do':'hang','call':'PrcListControl.GetDiscoveredTree','for':3600"), QString());
        QCOMPARE(AskTree(false), QString("2 nodes"));
    }

    void aLateCallTakesItsTimeAndNoneBehindTheFault()
    {
        CCallFaults faults;
        const auto fnTake = [&] {
            QElapsedTimer timer;
            timer.start();
            std::thread([&] { faults.Hold("a.b"); }).join();
            return timer.elapsed();
        };
        faults.Delay("a.b", std::chrono::milliseconds(50), std::chrono::hours(1));
        QVERIFY(fnTake() >= 50);
        faults.Delay("a.b", std::chrono::hours(1), std::chrono::milliseconds(0));
        fnTake(); // comes back
        faults.Hang("a.b", std::chrono::hours(1));
        faults.Release();
        fnTake();
    }

    void onlyWhatThePanelCallsOffTheGuiThreadIsHeld()
    {
        CBrokenLibrary library;
        for (const char* szVerb : { "latency", "hang" }) {
            for (const QString& strCall : ControlCalls::GetAll()) {
                const QByteArray ms = QByteArray(szVerb) == "latency" ? ",'ms':1" : "";
                const QString strFault
                    = library.Break("'do':'" + QByteArray(szVerb) + "','call':'" + strCall.toLatin1() + "','for':0" + ms);
                const QString strSentence
                    = QStringLiteral("\"call\" of \"%1\" must be an operation that the panel calls off the GUI thread")
                          .arg(szVerb);
                QCOMPARE(strFault, ControlCalls::GetHeld().contains(strCall) ? QString() : strSentence);
            }
        }
    }

    void theDocumentNamesWhatCanBeHeldAndRefused()
    {
        QFile file(QStringLiteral(PTV_DOCS "/scenarios.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString strDocument = QString::fromUtf8(file.readAll()).simplified();
        QVERIFY2(strDocument.contains('`' + ControlCalls::GetHeld().join("`, `") + '`'),
                 qPrintable(ControlCalls::GetHeld().join("`, `")));
        QVERIFY2(strDocument.contains('`' + ControlCalls::GetCommands().join("`, `") + '`'),
                 qPrintable(ControlCalls::GetCommands().join("`, `")));
    }

    void onlyFaultsAreTakenOutsideAScenario()
    {
        CBrokenLibrary library;
        QCOMPARE(library.Break("'do':'scan'"), QString("that is no fault"));
        QCOMPARE(library.Break("'do':'throw','call':'x'"),
                 QString("\"call\" of \"throw\" must be an operation with its object, as PrcListControl.AddGroup"));
    }

private:
    static SOperation Find(const QString& strCall, const QString& strFile)
    {
        for (const SOperation& operation : Observers() + Reads() + Commands(strFile)) {
            if (strCall == operation.szCall) {
                return operation;
            }
        }
        return { "", [] { return QStringLiteral("no such operation"); }, {} };
    }
};

PTV_TEST_MAIN_CORE(CCallFaultsTest)
#include "tst_callfaults.moc"
