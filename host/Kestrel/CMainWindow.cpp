#include "Kestrel/CMainWindow.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/CHostMenu.h"
#include "Kestrel/journal/CJournalDock.h"
#include "Kestrel/keys/CKeyWays.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/status/CHostStatus.h"
#include "Kestrel/theme/CTheme.h"
#include "Kestrel/theme/CThemeMenu.h"
#include "Kestrel/undo/CUndoMenu.h"
#include "controlhost/IControlHost.h"

#include <QAction>
#include <QCloseEvent>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr QSize sizeWindow(1040, 720);
constexpr int nPanelLeastWidth = 240;
constexpr int nJournalWidth = 680;
constexpr int nSelectAllId = 18; ///< the panel's number for the host's "select all"
constexpr int nGraceMs = 2000;

} // namespace

CMainWindow::CMainWindow(IControlHost& hostIn, const SControlPointers& pointers, CCallLog& callLog, CLanguage& language,
                         CTheme& themeIn)
    : host(hostIn), theme(themeIn), finalSave(hostIn, pointers, *this), undoSteps(hostIn), pFrame(new QWidget(this)),
      pFrameLayout(new QVBoxLayout(pFrame))
{
    auto* pDock = new CJournalDock(callLog, theme, this);
    addDockWidget(Qt::RightDockWidgetArea, pDock);
    pDock->hide();
    pMenu = new CHostMenu(*this, host, language, pDock->toggleViewAction());
    pMenu->GetViewMenu().addMenu(new CThemeMenu(themeIn, this));
    pKeyWays = new CKeyWays(*this, pMenu->GetViewMenu());
    pStatus = new CHostStatus(host, theme, this);
    pUndoMenu = new CUndoMenu(*this, pMenu->GetListMenu(), *pFrame, host, undoSteps, pStatus->GetRefusalNote(), language);
    InitWidget();
    resizeDocks({ pDock }, { nJournalWidth }, Qt::Horizontal);
    SetConnection();
}

QWidget* CMainWindow::GetParentWidget()
{
    return pFrame;
}

void CMainWindow::SetPanel(QWidget* pWidget)
{
    pPanelWidget = pWidget;
    pFrameLayout->addWidget(pWidget);
    pStatus->SetPanel(pWidget);
    pUndoMenu->SetPanel(pWidget);
    pKeyWays->SetPanel(pWidget);
    if (QTreeView* pTree = PanelAccess::FindCurrentTree(pWidget)) {
        pTree->setFocus();
    }
}

QWidget* CMainWindow::GetPanel() const
{
    return pPanelWidget;
}

void CMainWindow::EndUnattended()
{
    Q_ASSERT(GuiThread::IsCurrent());
    bUnattended = true;
    emit EndedUnattended();
    unwinding.Begin();
}

bool CMainWindow::SaveList(const std::function<bool()>& mayAsk)
{
    if (pPanelWidget) {
        PanelAccess::EndEdit(pPanelWidget);
    }
    const QString strReason = finalSave.Save();
    const bool bAsks = !strReason.isEmpty() && mayAsk();
    emit ListSaved(strReason, bAsks);
    if (strReason.isEmpty()) {
        return true;
    }
    if (bAsks) {
        const bool bGoes = finalSave.Ask(strReason);
        emit ListAnswered(bGoes);
        return bGoes;
    }
    finalSave.SaveAside(strReason);
    return true;
}

QString CMainWindow::GetSaveFault() const
{
    return finalSave.GetFault();
}

void CMainWindow::closeEvent(QCloseEvent* event)
{
    WaitForJobs();
    bClosed = bClosed || (!bClosing && SaveList([this] { return !bUnattended; }));
    event->setAccepted(bClosed);
}

void CMainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !pStatus) {
        return;
    }
    pMenu->UpdateText();
    pUndoMenu->UpdateText();
    pKeyWays->UpdateText();
    pStatus->UpdateState();
    pStatus->UpdateCounts();
    pStatus->UpdateTrouble();
    RepaintPanel();
}

void CMainWindow::InitWidget()
{
    setWindowTitle(QStringLiteral("Kestrel"));
    resize(sizeWindow);
    pFrame->setStyleSheet(theme.GetPanelSheet());
    pFrame->setMinimumWidth(nPanelLeastWidth);
    pFrameLayout->setContentsMargins(0, 0, 0, 0);
    setCentralWidget(pFrame);
    setStatusBar(pStatus);
    timerGrace.setSingleShot(true);
    timerGrace.setInterval(nGraceMs);
}

void CMainWindow::SetConnection()
{
    // Queued, since the library emits on threads of its own and maybe with its own state half changed.
    connect(&host, &IControlHost::BusyChanged, this, &CMainWindow::UpdateBusy, Qt::QueuedConnection);
    connect(&host, &IControlHost::JobsChanged, this, &CMainWindow::UpdateBusy, Qt::QueuedConnection);
    connect(&host, &IControlHost::StateChanged, pMenu, &CHostMenu::UpdateState, Qt::QueuedConnection);
    connect(&host, &IControlHost::StateChanged, pStatus, &CHostStatus::UpdateState, Qt::QueuedConnection);
    connect(&host, &IControlHost::ListTroubleChanged, pStatus, &CHostStatus::UpdateTrouble, Qt::QueuedConnection);
    connect(&unwinding, &CUnwinding::Unwound, this, &QWidget::close);
    connect(&theme, &CTheme::Changed, this, &CMainWindow::UpdateSheet);
    connect(pMenu, &CHostMenu::SelectAllRequested, this, &CMainWindow::SelectAll);
    connect(&timerGrace, &QTimer::timeout, this, [this] {
        bGraceOver = host.GetRunningJobs().isEmpty();
        UpdateBusy();
    });
}

void CMainWindow::SelectAll()
{
    if (pPanelWidget) {
        QMetaObject::invokeMethod(pPanelWidget, "DealMenuBar", Q_ARG(int, nSelectAllId), Q_ARG(QVariant, true));
    }
}

void CMainWindow::UpdateBusy()
{
    pStatus->UpdateBusy();
    if (!bClosing) {
        return;
    }
    if (IsJobRunning()) {
        timerGrace.start();
    } else if (bUnattended) {
        unwinding.Begin(); // the job may have opened a box at its end
    } else {
        close();
    }
}

void CMainWindow::WaitForJobs()
{
    bClosing = IsJobRunning();
    pFrame->setEnabled(!bClosing);
    if (bClosing) {
        timerGrace.start();
        pStatus->showMessage(tr("Quitting as soon as the running job has ended…"));
    } else {
        pStatus->clearMessage();
    }
}

void CMainWindow::RepaintPanel()
{
    if (!pPanelWidget) {
        return;
    }
    const QList<QWidget*> listWidget = pPanelWidget->findChildren<QWidget*>();
    for (QWidget* pWidget : listWidget) {
        pWidget->update();
    }
}

void CMainWindow::UpdateSheet()
{
    const QString strOld = pFrame->styleSheet();
    pFrame->setStyleSheet(theme.GetPanelSheet());
    if (pPanelWidget) {
        PanelAccess::ReplaceSheet(pPanelWidget, strOld, pFrame->styleSheet());
    }
}

bool CMainWindow::IsJobRunning() const
{
    if (!host.GetRunningJobs().isEmpty()) {
        return true;
    }
    return host.IsBusy() && !bGraceOver;
}
