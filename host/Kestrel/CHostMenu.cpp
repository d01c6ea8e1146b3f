#include "Kestrel/CHostMenu.h"

#include "Kestrel/CLanguage.h"
#include "Kestrel/report/CReportAction.h"
#include "controlhost/IControlHost.h"

#include <QAction>
#include <QActionGroup>
#include <QInputDialog>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

CHostMenu::CHostMenu(QMainWindow& windowIn, IControlHost& hostIn, CLanguage& languageIn, QAction* pJournalAction)
    : QObject(&windowIn), window(windowIn), host(hostIn), language(languageIn),
      pProjectMenu(windowIn.menuBar()->addMenu(QString())), pListMenu(windowIn.menuBar()->addMenu(QString())),
      pViewMenu(windowIn.menuBar()->addMenu(QString())), pLanguages(new QActionGroup(this))
{
    MakeProjectMenu();
    MakeListMenu();
    MakeViewMenu(pJournalAction);
    SetConnection();
    LeaveOut();
    UpdateText();
    UpdateState();
}

QMenu& CHostMenu::GetListMenu() const
{
    return *pListMenu;
}

void CHostMenu::UpdateState()
{
    pCloseProject->setEnabled(!host.GetProjectName().isEmpty());
    pChiefMode->setChecked(host.IsChiefMode());
    pListLocked->setChecked(host.IsListLocked());
    pRefreshBlocked->setChecked(host.IsRefreshBlocked());
}

void CHostMenu::UpdateText()
{
    pProjectMenu->setTitle(tr("&Project"));
    pOpenProject->setText(tr("&Open project…"));
    pCloseProject->setText(tr("&Close project"));
    pQuit->setText(tr("&Quit"));
    pListMenu->setTitle(tr("&List"));
    pSelectAll->setText(tr("Select &all"));
    pChiefMode->setText(tr("Chief-&Member mode"));
    pListLocked->setText(tr("&Lock the list"));
    pRefreshBlocked->setText(tr("&Block refresh"));
    pViewMenu->setTitle(tr("&View"));
    pJournal->setText(tr("&Journal"));
    pLanguageMenu->setTitle(tr("L&anguage"));
}

QMenu& CHostMenu::GetViewMenu() const
{
    return *pViewMenu;
}

void CHostMenu::MakeProjectMenu()
{
    pOpenProject = MakeAction(pProjectMenu, QKeySequence::Open);
    pCloseProject = MakeAction(pProjectMenu, QKeySequence(QStringLiteral("Ctrl+W")));
    pProjectMenu->addAction(new CReportAction(&window));
    pProjectMenu->addSeparator();
    pQuit = MakeAction(pProjectMenu, QKeySequence(QStringLiteral("Ctrl+Q")));
}

void CHostMenu::MakeListMenu()
{
    pSelectAll = MakeAction(pListMenu, QKeySequence::SelectAll);
    pListMenu->addSeparator();
    pChiefMode = MakeSwitch(pListMenu, QKeySequence(QStringLiteral("Ctrl+M")));
    pListLocked = MakeSwitch(pListMenu, QKeySequence(QStringLiteral("Ctrl+L")));
    pRefreshBlocked = MakeSwitch(pListMenu, QKeySequence(QStringLiteral("Ctrl+B")));
}

void CHostMenu::MakeViewMenu(QAction* pJournalAction)
{
    pJournal = pJournalAction;
    pJournal->setShortcut(QKeySequence(QStringLiteral("Ctrl+J")));
    pViewMenu->addAction(pJournal);
    pLanguageMenu = pViewMenu->addMenu(QString());
    QStringList listCode = CLanguage::GetCodes();
    if (!listCode.contains(language.GetCode())) {
        listCode.append(language.GetCode());
    }
    for (const QString& strCode : listCode) {
        QAction* pAction = pLanguageMenu->addAction(CLanguage::GetName(strCode));
        pAction->setData(strCode);
        pAction->setCheckable(true);
        pAction->setChecked(strCode == language.GetCode());
        pLanguages->addAction(pAction);
    }
}

// What the control library does not offer.
void CHostMenu::LeaveOut()
{
    for (QAction* pAction : { pOpenProject, pCloseProject, pChiefMode, pListLocked, pRefreshBlocked }) {
        pAction->setVisible(host.IsSteerable());
    }
}

QAction* CHostMenu::MakeAction(QMenu* pMenu, const QKeySequence& shortcut)
{
    QAction* pAction = pMenu->addAction(QString());
    pAction->setShortcut(shortcut);
    return pAction;
}

QAction* CHostMenu::MakeSwitch(QMenu* pMenu, const QKeySequence& shortcut)
{
    QAction* pAction = MakeAction(pMenu, shortcut);
    pAction->setCheckable(true);
    return pAction;
}

void CHostMenu::SetConnection()
{
    connect(pOpenProject, &QAction::triggered, this, &CHostMenu::OpenProject);
    connect(pCloseProject, &QAction::triggered, &host, &IControlHost::CloseProject);
    connect(pQuit, &QAction::triggered, &window, &QWidget::close);
    connect(pSelectAll, &QAction::triggered, this, &CHostMenu::SelectAllRequested);
    // triggered and not toggled: UpdateState must not send back what it has just read.
    connect(pChiefMode, &QAction::triggered, &host, &IControlHost::SetChiefMode);
    connect(pListLocked, &QAction::triggered, &host, &IControlHost::SetListLocked);
    connect(pRefreshBlocked, &QAction::triggered, &host, &IControlHost::SetRefreshBlocked);
    connect(pLanguages, &QActionGroup::triggered, this,
            [this](const QAction* pAction) { language.Set(pAction->data().toString()); });
}

void CHostMenu::OpenProject()
{
    bool bAccepted = false;
    const QString strName = QInputDialog::getText(&window, tr("Open project"), tr("Name of the project:"), QLineEdit::Normal,
                                                  host.GetProjectName(), &bAccepted);
    if (bAccepted && !strName.trimmed().isEmpty()) {
        host.OpenProject(strName.trimmed());
    }
}
