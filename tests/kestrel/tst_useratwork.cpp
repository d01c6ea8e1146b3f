#include "CorvidControl/objects/CControlHost.h"
#include "Kestrel/CKestrel.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/CPanelLoader.h"
#include "Kestrel/keys/CUserWatch.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/widgets/CObserver.h"
#include "journal/CCallLog.h"
#include "journal/SControlPointers.h"
#include "nodes/SProcessorAllNode.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeView>

#include <algorithm>
#include <atomic>

namespace {

/// A folder with a list of the examples and a day on which ten devices a second change.
struct SStormyFolder
{
    explicit SStormyFolder(double dBegin)
    {
        QFile::copy(EXAMPLES_FOLDER "/studio.kvtl", GetList());
        QFile file(GetDay());
        file.open(QIODevice::WriteOnly);
        file.write(QStringLiteral(R"({"steps": [{"at": %1, "do": "storm", "rate": 10, "for": 60}]})").arg(dBegin).toUtf8());
    }

    QString GetList() const
    {
        return folder.filePath("list.kvtl");
    }

    QByteArray ReadList() const
    {
        QFile file(GetList());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString GetDay() const
    {
        return folder.filePath("day.json");
    }

    QTemporaryDir folder;
};

SControlOptions Options(const SStormyFolder& folder)
{
    SControlOptions options;
    options.strListFile = folder.GetList();
    options.strScenarioFile = folder.GetDay();
    return options;
}

/// The Discovered pane as the library has it.
SProcessorAllNode GetList()
{
    SProcessorAllNode node;
    g_pPrcListControl->GetDiscoveredTree(node);
    return node;
}

/// Returns when devices have changed for longer than a single input protects anybody.
bool AwaitChanges()
{
    constexpr int nChanges = 6;
    bool bCame = true;
    for (int n = 0; bCame && n < nChanges; ++n) {
        const SProcessorAllNode before = GetList();
        const auto IsOther = [&] {
            const SProcessorAllNode now = GetList();
            return now.listGroup != before.listGroup || now.listProcessor != before.listProcessor;
        };
        bCame = QTest::qWaitFor(IsOther, nPatience);
    }
    return bCame;
}

/// Types as a slow user does, wherever the focus is, while devices change between the keys.
bool TypeSlowly(QWindow* pWindow, const QString& strText)
{
    return std::all_of(strText.cbegin(), strText.cend(), [pWindow](const QChar& character) {
        QTest::keyClick(pWindow, character.toLatin1());
        return AwaitChanges();
    });
}

QLineEdit* FindEditor(const QTreeView* pTree)
{
    return pTree->viewport()->findChild<QLineEdit*>();
}

/// As a user does who looks whether it has opened: a refresh may fall between the click and the key.
bool OpenEditor(QWindow* pWindow, QTreeView* pTree, const QString& strName)
{
    return QTest::qWaitFor(
        [&] {
            PanelAccess::ClickRow(pTree, PanelAccess::FindRow(SControlPointers::Linked(), pTree, strName), Qt::NoModifier);
            QTest::keyClick(pWindow, Qt::Key_F2);
            return FindEditor(pTree) != nullptr;
        },
        nPatience);
}

bool AwaitRow(const QTreeView* pTree, const QString& strName)
{
    return QTest::qWaitFor([&] { return PanelAccess::FindRow(SControlPointers::Linked(), pTree, strName).isValid(); }, nPatience);
}

constexpr int nSelectionChanged = 9; // the number of the library's message

/// Hears that the selection has changed.
class CSelectionObserver : public CObserver
{
public:
    virtual ~CSelectionObserver() = default;

    void Notify(int nMessage) override
    {
        bHeard = bHeard || nMessage == nSelectionChanged;
    }

    std::atomic<bool> bHeard{ false };
};

/// Kestrel's window with the real panel on the real library. One processor is selected, and the panel has
/// read everything and reads nothing more until the storm, which begins with StartLife.
struct SKestrel
{
    SKestrel()
    {
        // Known to no panel before: what those have read lives as long as the process.
        SProcessorGroupNode group;
        group.idNode = QUuid::createUuid();
        group.strName = QStringLiteral("New");
        g_pPrcListControl->AddGroup(group, true);
        CSelectionObserver observer;
        g_pRuntimeControl->Attach(&observer);
        g_pRuntimeControl->SetSelectedNodes({ GetList().listProcessor.first().idNode });
        bReady = QTest::qWaitFor([&] { return observer.bHeard.load(); }, nPatience);
        g_pRuntimeControl->Detach(&observer);
        pPanel = loader.Load({}, window);
        window.SetPanel(pPanel->GetWidget());
        window.show();
        QApplication::setActiveWindow(&window);
        bReady = bReady && AwaitRow(Tree(), group.strName);
    }

    /// Of the selected processor.
    static QString GetName()
    {
        return GetList().listProcessor.first().strName;
    }

    QWindow* Handle() const
    {
        return window.windowHandle();
    }

    QTreeView* Tree() const
    {
        return PanelAccess::FindCurrentTree(pPanel->GetWidget());
    }

    SStormyFolder folder{ 0 };
    std::unique_ptr<CControlHost> pHost = CControlHost::Start(Options(folder));
    CUserWatch watch{ *pHost };
    CCallLog log{ 4096 };
    CLanguage language;
    CTheme theme;
    const SControlPointers pointers = SControlPointers::Linked();
    CMainWindow window{ *pHost, pointers, log, language, theme };
    CPanelLoader loader;
    std::unique_ptr<ICorvidWidget> pPanel;
    bool bReady = false;
};

} // namespace

/// The user at work in the real panel while devices storm.
class CUserAtWorkTest : public QObject
{
    Q_OBJECT

private slots:
    // The first one: its rows come from its own reading, what others have read lives as long as the process.
    void theProgramItselfWatchesItsUser()
    {
        const SStormyFolder folder(1);
        SKestrelOptions options;
        options.strListFile = folder.GetList();
        options.strScenarioFile = folder.GetDay();
        QTimer::singleShot(0, qApp, [] {
            RenameUnderStorm();
            QApplication::closeAllWindows();
        });
        QCOMPARE(CKestrel(options).Run(), 0);
        QVERIFY(folder.ReadList().contains("Bar"));
    }

    void aRenameSurvivesAStormOfDevices()
    {
        SKestrel kestrel;
        QVERIFY(kestrel.bReady);
        QTest::keyClick(kestrel.Handle(), Qt::Key_F2);
        const QPointer<QLineEdit> pEditor = FindEditor(kestrel.Tree());
        const QSignalSpy rebuilds(kestrel.Tree()->model(), &QAbstractItemModel::rowsInserted);
        kestrel.pHost->StartLife();

        QVERIFY(TypeSlowly(kestrel.Handle(), "Bar"));

        QVERIFY(pEditor);
        QCOMPARE(pEditor->text(), QString("Bar"));
        QCOMPARE(rebuilds.size(), 0);
        QTest::keyClick(kestrel.Handle(), Qt::Key_Return);
        QCOMPARE(SKestrel::GetName(), QString("Bar"));
        QTRY_VERIFY(!rebuilds.isEmpty());
    }

    void theRowsStandStillWhileAButtonIsDown()
    {
        SKestrel kestrel;
        QVERIFY(kestrel.bReady);
        const QModelIndex index = PanelAccess::FindRow(SControlPointers::Linked(), kestrel.Tree(), SKestrel::GetName());
        kestrel.Tree()->scrollTo(index);
        const QRect rcRow = kestrel.Tree()->visualRect(index);
        const QPoint point = kestrel.Tree()->viewport()->mapTo(&kestrel.window, rcRow.center());
        QTest::mousePress(kestrel.Handle(), Qt::LeftButton, {}, point);
        const QSignalSpy rebuilds(kestrel.Tree()->model(), &QAbstractItemModel::rowsInserted);
        kestrel.pHost->StartLife();
        QVERIFY(AwaitChanges());
        QCOMPARE(rebuilds.size(), 0);
        QTest::mouseRelease(kestrel.Handle(), Qt::LeftButton, {}, point);
        QTRY_VERIFY(!rebuilds.isEmpty());
    }

    void theRowsStandStillForAMomentAfterAKey()
    {
        SKestrel kestrel;
        QVERIFY(kestrel.bReady);
        const QSignalSpy rebuilds(kestrel.Tree()->model(), &QAbstractItemModel::rowsInserted);
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(kestrel.Handle(), Qt::Key_Shift);
        kestrel.pHost->StartLife();
        QTRY_VERIFY(!rebuilds.isEmpty());
        QVERIFY(timer.elapsed() >= 400);
    }

private:
    static void RenameUnderStorm()
    {
        QTRY_VERIFY(qobject_cast<CMainWindow*>(QApplication::activeWindow()));
        const auto* pWindow = qobject_cast<CMainWindow*>(QApplication::activeWindow());
        QTreeView* pTree = PanelAccess::FindCurrentTree(pWindow->GetPanel());
        QVERIFY(AwaitRow(pTree, "Floor"));
        QVERIFY(OpenEditor(pWindow->windowHandle(), pTree, "Floor"));
        QVERIFY(TypeSlowly(pWindow->windowHandle(), "Bar"));
        QTest::keyClick(pWindow->windowHandle(), Qt::Key_Return);
    }
};

PTV_TEST_MAIN(CUserAtWorkTest)
#include "tst_useratwork.moc"
