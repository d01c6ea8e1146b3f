#pragma once

#include "Kestrel/CFinalSave.h"
#include "Kestrel/CUnwinding.h"
#include "Kestrel/undo/CUndoSteps.h"
#include "interfaces/host/IUIManagement.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <functional>

class CCallLog;
class IControlHost;
class CHostMenu;
class CHostStatus;
class CKeyWays;
class CLanguage;
class CTheme;
class CUndoMenu;
class QVBoxLayout;
struct SControlPointers;

/// The window: the panel, the journal beside it, menus and status bar.
class CMainWindow : public QMainWindow, public IUIManagement
{
    Q_OBJECT

public:
    /// All arguments must outlive the window.
    CMainWindow(IControlHost& hostIn, const SControlPointers& pointers, CCallLog& callLog, CLanguage& language, CTheme& themeIn);

    /// The widget that carries the panel's style sheet.
    QWidget* GetParentWidget() override;

    /// Places the panel's widget, which stays owned by the panel.
    void SetPanel(QWidget* pWidget);

    /// Null before SetPanel and after the panel's end.
    QWidget* GetPanel() const;

    /// Closes the window where nobody can be asked: what is open is cancelled, jobs are waited for, and a list
    /// that cannot be saved at its place goes elsewhere, see GetSaveFault. GUI thread, at any depth; called
    /// again it changes nothing.
    void EndUnattended();

    /// Saves the list with all that has been typed. A list that cannot be saved is asked about when mayAsk
    /// allows it, else it is saved elsewhere. False when the user wants to stay.
    bool SaveList(const std::function<bool()>& mayAsk);

    /// One line, when the list could not be saved at its place and nobody was asked; else empty.
    QString GetSaveFault() const;

signals:
    void EndedUnattended(); ///< see EndUnattended; at each call, before anything is cancelled

    /// The list was to be saved: the reason why it is not safe at its place, empty when it is, and whether the user is asked
    /// about it now.
    void ListSaved(const QString& strReason, bool bAsks);
    void ListAnswered(bool bGoes); ///< the user was asked; whether the program may go

protected:
    /// Waits for jobs that the panel has started: it must not end before them. Saves before the window goes.
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void InitWidget();
    void SetConnection();
    void SelectAll();
    void UpdateBusy();
    void WaitForJobs();
    void RepaintPanel();
    /// Gives the frame, and the panel that has copied its sheet, the sheet of the present theme.
    void UpdateSheet();
    bool IsJobRunning() const;

    IControlHost& host;
    const CTheme& theme;
    CFinalSave finalSave;
    CUnwinding unwinding;
    CUndoSteps undoSteps;
    QWidget* pFrame;
    QVBoxLayout* pFrameLayout;
    CHostMenu* pMenu = nullptr;
    CKeyWays* pKeyWays = nullptr;
    CHostStatus* pStatus = nullptr;
    CUndoMenu* pUndoMenu = nullptr;
    QPointer<QWidget> pPanelWidget;
    QTimer timerGrace;        ///< how long a busy flag counts that no call stands behind
    bool bClosing = false;    ///< the window is to go and a job is still running
    bool bUnattended = false; ///< it is to go without a question
    bool bClosed = false;     ///< it has gone
    bool bGraceOver = false;  ///< the flag was left behind by a job that died
};
