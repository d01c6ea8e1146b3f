#pragma once

#include <QStatusBar>

class CBusyIndicator;
class CControlHost;
class CTheme;
class QLabel;

/// The status bar: what is busy and since when, and the modes that change what the panel allows.
class CHostStatus : public QStatusBar
{
    Q_OBJECT

public:
    CHostStatus(CControlHost& controlHost, const CTheme& theme, QWidget* parent);

    void UpdateBusy();

    /// The badges, from the control library, in the present language.
    void UpdateState();

private:
    QLabel* MakeBadge(bool bMode);
    static void SetBadge(QLabel* pBadge, const QString& strText, bool bShown);

    CControlHost& host;
    CBusyIndicator* pBusy;
    QLabel* pProject;
    QLabel* pChiefMode;
    QLabel* pListLocked;
    QLabel* pRefreshBlocked;
};
