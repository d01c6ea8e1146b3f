#include "toolbar/CProcessorTreeToolBar.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/widgets/CIconButton.h"
#include "interfaces/widgets/CMenu.h"
#include "nodes/SProcessorAllNode.h"
#include "toolbar/SToolBarState.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QPointer>

#include <algorithm>

namespace {

constexpr int nStripHeight = 32;
constexpr int nStripMargin = 2;
constexpr int nButtonSpacing = 4;
constexpr int nButtonSize = 28;

constexpr char szImportDisabledIcon[] = ":/image/projectManage/importProject/importProjectDisable.svg";
constexpr char szExportDisabledIcon[] = ":/image/projectManage/exportProject/exportProjectDisable.svg";

} // namespace

CProcessorTreeToolBar::CProcessorTreeToolBar(QWidget* parent) : QLabel(parent)
{
    Q_ASSERT(parent);
    setObjectName(QStringLiteral("ProcessorTreeToolBar"));
    setFixedHeight(nStripHeight);
    setStyleSheet(parent->styleSheet());
    InitWidget();
    InitLayout();
    SetConnection();
    UpdateText();
    UpdateToolBarState();
}

CProcessorTreeToolBar::~CProcessorTreeToolBar() = default;

void CProcessorTreeToolBar::UpdateToolBarState()
{
    Q_ASSERT(GuiThread::IsCurrent());
    SProcessorAllNode tree;
    g_pProcessorTreeData->GetCurrentTree(tree);
    const bool bSimulator = g_pProcessorTreeData->IsSimulatorPane();
    const bool bLocked = g_pProcessorTreeData->IsListLocked();
    const SToolBarState state = SToolBarState::Compute(tree, bSimulator, bLocked);

    mapButton.value(ToolBarAddProcessor)->setToolTip(bSimulator ? tr("Add simulators") : GetToolTip(ToolBarAddProcessor));
    mapButton.value(ToolBarAddProcessor)->setEnabled(state.bAddProcessor);
    mapAction.value(ToolBarImport)->setEnabled(state.bImport);
    mapAction.value(ToolBarExport)->setEnabled(state.bExport);
    mapButton.value(ToolBarAddGroup)->setEnabled(state.bAddGroup);
    UpdateActionIcon(ToolBarImport, QString::fromLatin1(szImportDisabledIcon));
    UpdateActionIcon(ToolBarExport, QString::fromLatin1(szExportDisabledIcon));
    mapButton.value(ToolBarDelete)->setEnabled(IsDeleteEnabled(g_pProcessorTreeData->GetSelectedNodes(), bLocked));
}

void CProcessorTreeToolBar::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
}

void CProcessorTreeToolBar::InitWidget()
{
    InitButtons();
    InitActions();
    InitMenu();
}

void CProcessorTreeToolBar::InitButtons()
{
    for (int id = ToolBarMenu; id <= ToolBarDelete; ++id) {
        auto* pButton = new CIconButton(this);
        mapButton.insert(id, pButton);
        pButton->AddIcon(GetNormalIcon(id), QIcon::Normal, QIcon::Off);
        pButton->AddIcon(GetDisableIcon(id), QIcon::Disabled, QIcon::Off);
        pButton->setFixedSize(nButtonSize, nButtonSize);
        pButton->setIconSize(nButtonSize, nButtonSize);
    }
}

void CProcessorTreeToolBar::InitActions()
{
    for (int id = ToolBarSearch; id <= ToolBarExport; ++id) {
        auto* pAction = new QAction(this);
        mapAction.insert(id, pAction);
        pAction->setText(GetToolTip(id));
        pAction->setIcon(QIcon(GetNormalIcon(id)));
    }
}

void CProcessorTreeToolBar::InitMenu()
{
    auto* pMenu = new CMenu(this);
    pMenu->addAction(mapAction.value(ToolBarSearch));
    pMenu->addSeparator();
    pMenu->addAction(mapAction.value(ToolBarImport));
    pMenu->addAction(mapAction.value(ToolBarExport));

    CIconButton* pButton = mapButton.value(ToolBarMenu);
    pButton->setProperty("MenuIndicator", QStringLiteral("None"));
    delete pButton->menu();
    pButton->setMenu(pMenu);
    pMenu->SetControlWidget(pButton);
    pButton->setPopupMode(QToolButton::InstantPopup);
}

void CProcessorTreeToolBar::InitLayout()
{
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(nStripMargin, nStripMargin, nStripMargin, nStripMargin);
    pLayout->setSpacing(nButtonSpacing);
    pLayout->addWidget(mapButton.value(ToolBarMenu));
    pLayout->addStretch();
    pLayout->addWidget(mapButton.value(ToolBarAddGroup));
    pLayout->addWidget(mapButton.value(ToolBarAddProcessor));
    pLayout->addWidget(mapButton.value(ToolBarDelete));
}

void CProcessorTreeToolBar::SetConnection()
{
    for (int id = ToolBarAddGroup; id <= ToolBarDelete; ++id) {
        connect(mapButton.value(id), &QAbstractButton::clicked, this, [this, id] { Send(id, mapButton.value(id)); });
    }
    for (int id = ToolBarSearch; id <= ToolBarExport; ++id) {
        connect(mapAction.value(id), &QAction::triggered, this, [this, id] { Send(id, mapButton.value(ToolBarMenu)->menu()); });
    }
}

// The host may end the panel under a dialog of the command. Qt's handler of the click goes on using what was
// clicked, and nobody else deletes the menu that Qt's button runs: so an ending tool bar leaves it behind. The
// deletion is asked for here, to come after that handler; asked for where the tool bar ends, the event loop of
// the dialog could carry it out too early.
void CProcessorTreeToolBar::Send(int id, QWidget* pClicked)
{
    Q_ASSERT(id != ToolBarMenu);
    const QPointer<CProcessorTreeToolBar> pSelf = this;
    const auto leave = connect(this, &QObject::destroyed, pClicked, [pClicked] { pClicked->setParent(nullptr); });
    emit SignalToolBar(id);
    if (pSelf) {
        disconnect(leave);
    } else {
        pClicked->deleteLater();
    }
}

// Ignores the pane: the next UpdateToolBarState() corrects the tip of Add.
void CProcessorTreeToolBar::UpdateText()
{
    for (auto it = mapButton.cbegin(); it != mapButton.cend(); ++it) {
        it.value()->setToolTip(GetToolTip(it.key()));
    }
    for (auto it = mapAction.cbegin(); it != mapAction.cend(); ++it) {
        it.value()->setText(GetToolTip(it.key()));
    }
}

// The icon of an action has one form only, so its enabled state picks none by itself.
void CProcessorTreeToolBar::UpdateActionIcon(int id, const QString& strDisabledIcon)
{
    QAction* pAction = mapAction.value(id);
    pAction->setIcon(QIcon(pAction->isEnabled() ? GetNormalIcon(id) : strDisabledIcon));
}

bool CProcessorTreeToolBar::IsDeleteEnabled(const std::vector<QUuid>& vecId, bool bLocked) const
{
    if (vecId.empty()) {
        return false;
    }
    if (vecId.size() == 1) {
        return !vecId.front().isNull() && !bLocked && !g_pRuntimeControl->IsDeleteBlocked(vecId.front());
    }
    const bool bInUse
        = std::any_of(vecId.cbegin(), vecId.cend(), [](const QUuid& id) { return g_pRuntimeControl->IsNodeInUse(id); });
    return !bInUse && !bLocked;
}

QString CProcessorTreeToolBar::GetToolTip(int id) const
{
    switch (id) {
    case ToolBarMenu:
        return tr("Menu");
    case ToolBarAddGroup:
        return tr("Add group");
    case ToolBarAddProcessor:
        return tr("Add a processor");
    case ToolBarDelete:
        return tr("Delete");
    case ToolBarSearch:
        return tr("Search");
    case ToolBarImport:
        return tr("Import");
    case ToolBarExport:
        return tr("Export");
    default:
        return QString();
    }
}

QString CProcessorTreeToolBar::GetNormalIcon(int id) const
{
    switch (id) {
    case ToolBarMenu:
        return QStringLiteral(":/image/control/hamburgeMenu/normal.svg");
    case ToolBarAddGroup:
        return QStringLiteral(":/image/treeView/toolBar/addGroup/normal.svg");
    case ToolBarAddProcessor:
        return QStringLiteral(":/image/treeView/toolBar/addProc/normal.svg");
    case ToolBarDelete:
        return QStringLiteral(":/image/treeView/toolBar/delete/normal.svg");
    case ToolBarSearch:
        return QStringLiteral(":/image/control/searchBox/search.svg");
    case ToolBarImport:
        return QStringLiteral(":/image/projectManage/importProject/importProject.svg");
    case ToolBarExport:
        return QStringLiteral(":/image/projectManage/exportProject/exportProject.svg");
    default:
        return QString();
    }
}

QString CProcessorTreeToolBar::GetDisableIcon(int id) const
{
    switch (id) {
    case ToolBarMenu:
        return QStringLiteral(":/image/control/hamburgeMenu/disable.svg");
    case ToolBarAddGroup:
        return QStringLiteral(":/image/treeView/toolBar/addGroup/disable.svg");
    case ToolBarAddProcessor:
        return QStringLiteral(":/image/treeView/toolBar/addProc/disable.svg");
    case ToolBarDelete:
        return QStringLiteral(":/image/treeView/toolBar/delete/disable.svg");
    default:
        return QString();
    }
}
