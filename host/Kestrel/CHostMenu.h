#pragma once

#include <QObject>

class IControlHost;
class CLanguage;
class QAction;
class QActionGroup;
class QMenu;
class QMainWindow;

/// The menus of the window, and what they ask of the control library.
class CHostMenu : public QObject
{
    Q_OBJECT

public:
    /// Fills the window's menu bar. pJournalAction shows and hides the journal. All must outlive the menu.
    CHostMenu(QMainWindow& windowIn, IControlHost& hostIn, CLanguage& languageIn, QAction* pJournalAction);

    /// For what others have to say about the list. Owned by the window.
    QMenu& GetListMenu() const;

    /// The check marks and the enabled states, from the control library.
    void UpdateState();

    /// All texts, after the language has changed.
    void UpdateText();

    /// For what others have to say about the view. Owned by the window.
    QMenu& GetViewMenu() const;

signals:
    /// The user wants everything in the list selected.
    void SelectAllRequested();

private:
    void MakeProjectMenu();
    void MakeListMenu();
    void MakeViewMenu(QAction* pJournalAction);
    void LeaveOut();
    QAction* MakeAction(QMenu* pMenu, const QKeySequence& shortcut);
    /// An entry with a check mark.
    QAction* MakeSwitch(QMenu* pMenu, const QKeySequence& shortcut);
    void SetConnection();
    void OpenProject();

    QMainWindow& window;
    IControlHost& host;
    CLanguage& language;
    QMenu* pProjectMenu;
    QMenu* pListMenu;
    QMenu* pViewMenu;
    QMenu* pLanguageMenu = nullptr;
    QAction* pJournal = nullptr;
    QAction* pOpenProject = nullptr;
    QAction* pCloseProject = nullptr;
    QAction* pQuit = nullptr;
    QAction* pSelectAll = nullptr;
    QAction* pChiefMode = nullptr;
    QAction* pListLocked = nullptr;
    QAction* pRefreshBlocked = nullptr;
    QActionGroup* pLanguages;
};
