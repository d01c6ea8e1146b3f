#include "CListWindow.h"

#include "CMenuDriver.h"
#include "CQuiet.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "nodes/SProcessorGroupNode.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDataStream>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTreeView>

namespace {

constexpr int nWalls = 4;
constexpr int nDoors = 3;

/// The handler of drops, which is protected; the call is virtual.
class CDropAccess : public QTreeView
{
public:
    static auto Get()
    {
        return &CDropAccess::dropEvent;
    }
};

void AddGroup(const QString& strName)
{
    SProcessorGroupNode group;
    group.idNode = QUuid::createUuid();
    group.strName = strName;
    g_pPrcListControl->AddGroup(group, true);
}

QStringList Names(const QList<SProcessorNode>& listProcessor)
{
    QStringList listName;
    for (const SProcessorNode& processor : listProcessor) {
        listName.append(processor.strName);
    }
    return listName;
}

QUuid FindId(const SProcessorAllNode& node, const QString& strName)
{
    QList<SProcessorNode> listProcessor = node.listProcessor;
    for (const SProcessorGroupNode& group : node.listGroup) {
        if (group.strName == strName) {
            return group.idNode;
        }
        listProcessor += group.listProcessor;
    }
    for (const SProcessorNode& processor : std::as_const(listProcessor)) {
        if (processor.strName == strName) {
            return processor.idNode;
        }
    }
    return {};
}

} // namespace

CListWindow::CListWindow(ICallRecorder* pRecorder)
    : pHost(Start()), pJournal(Record(pRecorder)), window(*pHost, pointers, log, language, theme)
{
    language.Set(QStringLiteral("en"));
    pPanel = loader.Load({}, window);
    window.SetPanel(pPanel->GetWidget());
    window.show();
    QApplication::setActiveWindow(&window);
    pHost->StartLife();
    // A group, whose id is another in every run: what panels have read before lives as long as the process.
    const bool bShown = QTest::qWaitFor([this] { return Row(QStringLiteral("Empty")).isValid(); }, nPatience);
    if (!bShown) {
        qFatal("the panel does not show the list");
    }
    Focus();
}

void CListWindow::Focus()
{
    QApplication::setActiveWindow(&window);
    Tree()->setFocus();
}

bool CListWindow::IsOn(const QString& strBegin) const
{
    const QAction* pAction = Find(strBegin);
    return pAction && pAction->isEnabled();
}

QTreeView* CListWindow::Tree() const
{
    return PanelAccess::FindCurrentTree(pPanel->GetWidget());
}

QModelIndex CListWindow::Row(const QString& strName) const
{
    return PanelAccess::FindRow(pointers, Tree(), strName);
}

void CListWindow::Select(const QStringList& listName) const
{
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    for (const QString& strName : listName) {
        QVERIFY2(QTest::qWaitFor([&] { return Row(strName).isValid(); }, nPatience), qPrintable(strName));
        PanelAccess::ClickRow(Tree(), Row(strName), modifiers);
        modifiers = Qt::ControlModifier;
    }
}

void CListWindow::AndShown(const std::function<void()>& fnCommand) const
{
    const QSignalSpy spyRows(Tree()->model(), &QAbstractItemModel::rowsInserted);
    fnCommand();
    QTRY_VERIFY(!spyRows.isEmpty());
    CQuiet quiet([&] { return static_cast<quint64>(spyRows.size()); });
    QTRY_VERIFY(quiet.Is());
}

void CListWindow::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

void CListWindow::Type(const QString& strText) const
{
    for (const QChar& character : strText) {
        QTest::keyClick(window.windowHandle(), character.toLatin1());
    }
}

void CListWindow::Choose(const QStringList& listName, const QStringList& listPath) const
{
    Select(listName);
    OpenMenu(Row(listName.first()), [&](QMenu* pMenu) { CMenuDriver::Choose(pMenu, listPath); });
}

void CListWindow::OpenMenu(const QModelIndex& index, const std::function<void(QMenu*)>& fnAct) const
{
    const CMenuDriver driver(fnAct);
    const QPoint point = Tree()->visualRect(index).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, Tree()->viewport()->mapToGlobal(point));
    QApplication::sendEvent(Tree()->viewport(), &event);
    QTRY_VERIFY(driver.HasActed());
}

void CListWindow::Drop(const QStringList& listName, const QString& strTarget) const
{
    Select(listName);
    DropOnto(Row(strTarget));
}

// The platform of the tests runs no drag, and without one the application hands no drop on.
void CListWindow::DropOnto(const QModelIndex& indexTarget) const
{
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << true;
    QMimeData data;
    data.setData(QStringLiteral("PROCESSOR DATA"), bytes);
    const QPoint point = Tree()->visualRect(indexTarget).center();
    QDropEvent event(point, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    (Tree()->*CDropAccess::Get())(&event);
}

QAction* CListWindow::Action(const QString& strBegin) const
{
    QAction* pAction = Find(strBegin);
    if (!pAction) {
        qFatal("no entry %s", qPrintable(strBegin));
    }
    return pAction;
}

QAction* CListWindow::Find(const QString& strBegin) const
{
    const QList<QMenu*> listMenu = window.menuBar()->findChildren<QMenu*>();
    for (const QMenu* pMenu : listMenu) {
        const QList<QAction*> listAction = pMenu->actions();
        for (QAction* pAction : listAction) {
            if (QString(pAction->text()).remove('&').startsWith(strBegin)) {
                return pAction;
            }
        }
    }
    return nullptr;
}

QLabel* CListWindow::Label(const QString& strObject, const QString& strBegin) const
{
    const QList<QLabel*> listLabel = window.statusBar()->findChildren<QLabel*>(strObject);
    for (QLabel* pLabel : listLabel) {
        if (pLabel->isVisible() && pLabel->text().startsWith(strBegin)) {
            return pLabel;
        }
    }
    return nullptr;
}

QString CListWindow::ListText()
{
    QStringList listLine;
    const SProcessorAllNode node = List();
    for (const SProcessorGroupNode& group : node.listGroup) {
        const QString strChief = group.idChief.isNull() ? QString() : QStringLiteral(" (Chief)");
        listLine.append(group.strName + strChief + ": " + Names(group.listProcessor).join(", "));
    }
    listLine.append(Names(node.listProcessor).join(", "));
    listLine.append("~ " + Names(List(true).listProcessor).join(", "));
    return listLine.join('\n');
}

SProcessorAllNode CListWindow::List(bool bSimulator)
{
    SProcessorAllNode node;
    bSimulator ? g_pPrcListControl->GetSimulatorTree(node) : g_pPrcListControl->GetDiscoveredTree(node);
    return node;
}

QUuid CListWindow::Id(const QString& strName)
{
    const QUuid id = FindId(List(), strName);
    return id.isNull() ? FindId(List(true), strName) : id;
}

std::unique_ptr<CControlJournal> CListWindow::Record(ICallRecorder* pRecorder)
{
    if (!pRecorder) {
        return {};
    }
    log.SetRecorder(pRecorder);
    return std::make_unique<CControlJournal>(pointers, log, jobs,
                                             [this](int nMessage) { return pHost->GetMessageName(nMessage); });
}

// The devices are found by a scan, and named before anybody listens.
std::unique_ptr<CControlHost> CListWindow::Start() const
{
    SControlOptions options;
    options.strListFile = folder.filePath(QStringLiteral("list.kvtl"));
    options.bQuietDay = false;
    options.nUnlistedDevices = nWalls + nDoors;
    options.nScanMs = options.nAnswerMs = options.nReleaseMs = 5;
    options.nTimeoutMs = 20;
    std::unique_ptr<CControlHost> pStarted = CControlHost::Start(options);
    g_pPrcBasicControl->RefreshProcessors();
    AddGroup(QStringLiteral("Main stage"));
    AddGroup(QStringLiteral("Empty"));
    const SProcessorAllNode node = List();
    for (int n = 0; n < node.listProcessor.size(); ++n) {
        const QUuid id = node.listProcessor.at(n).idNode;
        const bool bWall = n < nWalls;
        g_pPrcBasicControl->RenameProcessor(
            id, (bWall ? QString("Wall %1") : QString("Door %1")).arg(bWall ? n + 1 : n - nWalls + 1));
        if (bWall) {
            g_pPrcListControl->MoveProcessor(id, node.listGroup.first().idNode);
        }
    }
    return pStarted;
}
