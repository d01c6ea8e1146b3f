#pragma once

#include "interfaces/host/IUIManagement.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

class CCallLog;
class CControlHost;
class CHostMenu;
class CHostStatus;
class CLanguage;
class CTheme;
class QVBoxLayout;

/// The window: the panel, the journal beside it, menus and status bar.
class CMainWindow : public QMainWindow, public IUIManagement
{
    Q_OBJECT

public:
    /// All arguments must outlive the window.
    CMainWindow(CControlHost& controlHost, CCallLog& callLog, CLanguage& language, const CTheme& theme);

    /// The widget that carries the panel's style sheet.
    QWidget* GetParentWidget() override;

    /// Places the panel's widget, which stays owned by the panel.
    void SetPanel(QWidget* pWidget);

    /// Null before SetPanel and after the panel's end.
    QWidget* GetPanel() const;

protected:
    /// Waits for jobs that the panel has started: it must not end before them.
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void InitWidget(const CTheme& theme);
    void SetConnection();
    void SelectAll();
    void UpdateBusy();
    void RepaintPanel();
    bool IsJobRunning() const;

    CControlHost& host;
    QWidget* pFrame;
    QVBoxLayout* pFrameLayout;
    CHostMenu* pMenu = nullptr;
    CHostStatus* pStatus = nullptr;
    QPointer<QWidget> pPanelWidget;
    QTimer timerGrace;       ///< how long a busy flag counts that no call stands behind
    bool bClosing = false;   ///< the user wants to quit and a job is still running
    bool bGraceOver = false; ///< the flag was left behind by a job that died
};
