#include "shell/CProcessorTreeView.h"

#include "data/CProcessorTreeData.h"
#include "data/CProcessorTreeThread.h"
#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/widgets/CSearchBox.h"
#include "interfaces/widgets/CSeperator.h"
#include "shell/PanelParts.h"
#include "shell/WindowTitle.h"
#include "shell/commands/CAddCommands.h"
#include "shell/commands/CListFileCommands.h"
#include "shell/commands/FinalListSave.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QButtonGroup>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QStackedLayout>
#include <QStyleOption>
#include <QThread>
#include <QToolButton>
#include <QtConcurrent>

namespace {

enum EnPane
{
    PaneDiscovered = 0, ///< index of its tree in the stacked layout
    PaneSimulator = 1,
};

constexpr int nRightMargin = 1;
constexpr int nHeaderSpacing = 2;

} // namespace

CProcessorTreeView::CProcessorTreeView(QWidget* parent) : QWidget(parent, Qt::WindowFlags())
{
    Q_ASSERT(GuiThread::IsCurrent() && parent);
    setStyleSheet(parent->styleSheet());
    InitMember();
    InitWidget();
    InitLayout();
    SetConnection();
    UpdateText();
    StartWorker();
}

CProcessorTreeView::~CProcessorTreeView()
{
    Q_ASSERT(GuiThread::IsCurrent());
    StopWorker();
    FinalListSave::Save();
}

void CProcessorTreeView::paintEvent(QPaintEvent*)
{
    // Lets the style sheet paint what is no plain QWidget.
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}

// Does not call the base: the contract with the host leaves its share out.
void CProcessorTreeView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
}

QWidget* CProcessorTreeView::GetWidgetAlias1()
{
    return this;
}

QWidget* CProcessorTreeView::GetWidgetAlias2()
{
    return this;
}

void CProcessorTreeView::UpdateWidget()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (bRefreshing) {
        return;
    }
    pRefreshButton->setEnabled(g_pProcessorTreeData->IsRefreshEnabled());
    GetCurrentTree()->RefreshTree();
    pToolBar->UpdateToolBarState();
    // Keeps a rebuilt tree filtered.
    const QString strSearch = pSearchBox ? pSearchBox->GetText() : QString();
    if (!strSearch.isEmpty()) {
        GetCurrentTree()->SetSearchText(strSearch);
    }
}

QWidget* CProcessorTreeView::GetWidget()
{
    return this;
}

void CProcessorTreeView::DealToolBarButton(int id)
{
    Q_ASSERT(GuiThread::IsCurrent());
    switch (id) {
    case ToolBarAddGroup:
        AddCommands().AddGroup();
        break;
    case ToolBarAddProcessor:
        Add();
        break;
    case ToolBarDelete:
        DeleteNodes();
        break;
    case ToolBarSearch:
        ShowSearch();
        break;
    case ToolBarImport:
        ListFileCommands().Import();
        break;
    case ToolBarExport:
        ListFileCommands().Export();
        break;
    default:
        break;
    }
}

void CProcessorTreeView::Update()
{
    QWidget::update();
}

void CProcessorTreeView::UpdateTreeToolbar()
{
    pToolBar->UpdateToolBarState();
}

void CProcessorTreeView::DealMenuBar(int id, QVariant value)
{
    Q_ASSERT(GuiThread::IsCurrent());
    GetCurrentTree()->DealMenuBar(id, value);
}

void CProcessorTreeView::InitMember()
{
    pDiscoveredTab = new QPushButton(this);
    pSimulatorTab = new QPushButton(this);
    pHeader = new QLabel(this);
    pRefreshButton = new QToolButton(this);
    pDiscoveredTree = new CProcessorTree(this, true);
    pSimulatorTree = new CProcessorTree(this, false);
    pToolBar = new CProcessorTreeToolBar(this);
    pSearchBox = new CSearchBox(this, false);
    pCloseSearchButton = new QToolButton(this);
}

// The host's style sheet relies on the object names and on the values of "Position", also on the last tab
// being a "middle" one.
void CProcessorTreeView::InitWidget()
{
    setFocusPolicy(Qt::ClickFocus);
    setObjectName(QStringLiteral("ProcessorTreeView"));
    pHeader->setObjectName(QStringLiteral("Header"));
    PanelParts::DressTab(pDiscoveredTab, QStringLiteral("first"));
    PanelParts::DressTab(pSimulatorTab, QStringLiteral("middle"));
    PanelParts::DressRefreshButton(pRefreshButton);
    PanelParts::DressCloseSearchButton(pCloseSearchButton);

    auto* pTabs = new QButtonGroup(this);
    pTabs->addButton(pDiscoveredTab, -1);
    pTabs->addButton(pSimulatorTab, -1);
    pTabs->setExclusive(true);
    pDiscoveredTab->setCheckable(true);
    pSimulatorTab->setCheckable(true);
    pDiscoveredTab->setChecked(true);

    pSearchBox->SetBackgroudGray();
    pSearchBox->hide();
    pCloseSearchButton->hide();
}

void CProcessorTreeView::InitLayout()
{
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, nRightMargin, 0);
    pLayout->setSpacing(0);

    PanelParts::LayOutHeader(pHeader, pDiscoveredTab, pSimulatorTab, pRefreshButton);
    pLayout->addWidget(pHeader);
    pLayout->addSpacing(nHeaderSpacing);

    pStackedLayout = new QStackedLayout;
    pStackedLayout->setContentsMargins(0, 0, 0, 0);
    pStackedLayout->setStackingMode(QStackedLayout::StackAll);
    pStackedLayout->addWidget(pDiscoveredTree);
    pStackedLayout->addWidget(pSimulatorTree);
    pLayout->addLayout(pStackedLayout, 1);
    setFocusProxy(pStackedLayout->currentWidget());

    pSearchLayout = PanelParts::NewSearchLayout(pSearchBox, pCloseSearchButton);
    pLayout->addLayout(pSearchLayout, 0);
    pLayout->addWidget(new CSeperator(this, QFrame::HLine, CSeperator::StyleLine));
    pLayout->addWidget(pToolBar);
}

void CProcessorTreeView::SetConnection()
{
    ConnectStore();
    ConnectWidgets();
}

// Emitted on the worker's thread, so these arrive as queued calls.
void CProcessorTreeView::ConnectStore()
{
    const CProcessorTreeData* pStore = g_pProcessorTreeData;
    connect(pStore, &CProcessorTreeData::NotifyNodeInfo, this, &CProcessorTreeView::UpdateWidget);
    connect(pStore, &CProcessorTreeData::NotifyChiefChanged, this, &CProcessorTreeView::Update);
    connect(pStore, &CProcessorTreeData::NotifyButton, this, &CProcessorTreeView::DealButtonChanged);
    connect(pStore, &CProcessorTreeData::NotifyNodeSelectChanged, this, &CProcessorTreeView::DealNodeSelectChanged);
    connect(pStore, &CProcessorTreeData::NotifyWindowTitle, this, &CProcessorTreeView::UpdateWindowTitle);
}

void CProcessorTreeView::ConnectWidgets()
{
    const auto switchOn = [this](int nPane) {
        return [this, nPane](bool bChecked) {
            if (bChecked) {
                SwitchPane(nPane);
            }
        };
    };
    connect(pDiscoveredTab, &QPushButton::toggled, this, switchOn(PaneDiscovered));
    connect(pSimulatorTab, &QPushButton::toggled, this, switchOn(PaneSimulator));
    connect(pToolBar, &CProcessorTreeToolBar::SignalToolBar, this, &CProcessorTreeView::DealToolBarButton);
    connect(pSearchBox, &CSearchBox::SignalSearch, this,
            [this](const QString& strText) { GetCurrentTree()->SetSearchText(strText); });
    connect(pCloseSearchButton, &QToolButton::clicked, this, &CProcessorTreeView::CloseSearch);
    connect(this, &CProcessorTreeView::RefreshEnable, this, &CProcessorTreeView::FinishRefresh);
    connect(this, &CProcessorTreeView::ImportFinished, this, [this] { ListFileCommands().ShowImportFinished(); });
    connect(pRefreshButton, &QToolButton::clicked, this, &CProcessorTreeView::StartRefresh);
}

void CProcessorTreeView::UpdateText()
{
    PanelParts::NamePart(pHeader, tr("Panes"));
    pDiscoveredTab->setText(tr("Discovered"));
    pSimulatorTab->setText(tr("Simulator"));
    PanelParts::NameButton(pRefreshButton, tr("Refresh"));
    PanelParts::NameButton(pCloseSearchButton, tr("Close search box"));
}

void CProcessorTreeView::StartWorker()
{
    pThread = new QThread(this);
    pWorker = new CProcessorTreeThread(nullptr);
    connect(pThread, &QThread::started, pWorker, &CProcessorTreeThread::ThreadStart);
    connect(pThread, &QThread::finished, pWorker, &QObject::deleteLater);
    pWorker->moveToThread(pThread);
    pThread->start(QThread::InheritPriority);
}

// When it returns the worker has been destroyed, on its own thread, and is detached from all controls.
void CProcessorTreeView::StopWorker()
{
    pWorker->ThreadExit();
    pThread->quit();
    pThread->wait();
}

CProcessorTree* CProcessorTreeView::GetCurrentTree() const
{
    return g_pProcessorTreeData->IsSimulatorPane() ? pSimulatorTree : pDiscoveredTree;
}

void CProcessorTreeView::DealButtonChanged()
{
    pRefreshButton->setEnabled(g_pProcessorTreeData->IsRefreshEnabled());
    pToolBar->UpdateToolBarState();
}

void CProcessorTreeView::DealNodeSelectChanged()
{
    GetCurrentTree()->RestoreSelection();
    GetCurrentTree()->UpdateCurrentNode();
    pToolBar->UpdateToolBarState();
}

void CProcessorTreeView::UpdateWindowTitle()
{
    WindowTitle::ShowProject(g_pProcessorTreeData->GetProjectName());
}

void CProcessorTreeView::SwitchPane(int nPane)
{
    g_pProcessorTreeData->SetSimulatorPane(nPane == PaneSimulator);
    g_pRuntimeControl->SetSimulatorPane(nPane == PaneSimulator);
    pStackedLayout->setCurrentIndex(nPane);
    setFocusProxy(pStackedLayout->currentWidget());
    UpdateWidget();
}

// Clearing the box emits its empty text, which shows all rows again.
void CProcessorTreeView::CloseSearch()
{
    pSearchBox->ClearText();
    pSearchBox->hide();
    pCloseSearchButton->hide();
}

void CProcessorTreeView::StartRefresh()
{
    if (bRefreshing) {
        return;
    }
    bRefreshing = true;
    pRefreshButton->blockSignals(true);
    g_pRuntimeControl->SetBusy(true);
    QtConcurrent::run([this] {
        g_pPrcBasicControl->RefreshProcessors();
        emit RefreshEnable();
        g_pRuntimeControl->SetBusy(false);
    });
}

void CProcessorTreeView::FinishRefresh()
{
    bRefreshing = false;
    const QPointer<CProcessorTreeView> pAlive = this; // the host may end the panel in its slot
    emit NodeSelectChanged();
    if (!pAlive) {
        return;
    }
    UpdateWidget();
    pRefreshButton->blockSignals(false);
}

CAddCommands CProcessorTreeView::AddCommands()
{
    return { this, [this] { UpdateTreeToolbar(); }, [this] { emit NodeSelectChanged(); } };
}

CListFileCommands CProcessorTreeView::ListFileCommands()
{
    return { this, [this] { emit ImportFinished(); } };
}

void CProcessorTreeView::Add()
{
    if (g_pProcessorTreeData->IsSimulatorPane()) {
        AddCommands().AddSimulators();
    } else {
        AddCommands().AddProcessor();
    }
}

// Goes on also when the user has declined, and without waiting for the deletion.
void CProcessorTreeView::DeleteNodes()
{
    const QPointer<CProcessorTreeView> pAlive = this; // the host may end the panel under the open question
    GetCurrentTree()->DeleteNode(true);
    if (!pAlive) {
        return;
    }
    UpdateWidget();
    emit NodeSelectChanged();
}

void CProcessorTreeView::ShowSearch()
{
    pSearchBox->show();
    pCloseSearchButton->show();
}
