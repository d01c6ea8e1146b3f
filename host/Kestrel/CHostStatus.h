#pragma once

#include <QStatusBar>

class CBusyIndicator;
class IControlHost;
class CElidedLabel;
class CTheme;
class QLabel;

/// The status bar: what is busy and since when, what is wrong with the list's file, and the modes that change
/// what the panel allows.
class CHostStatus : public QStatusBar
{
    Q_OBJECT

public:
    /// hostIn must outlive the bar.
    CHostStatus(IControlHost& hostIn, const CTheme& theme, QWidget* parent);

    /// What is busy and since when, from the control library.
    void UpdateBusy();

    /// The badges, from the control library, in the present language.
    void UpdateState();

    /// Why the list is not what is on disk, for as long as it is so.
    void UpdateTrouble();

private:
    QLabel* MakeBadge(bool bMode);
    static void SetBadge(QLabel* pBadge, const QString& strText, bool bShown);

    IControlHost& host;
    CBusyIndicator* pBusy;
    CElidedLabel* pTrouble;
    QLabel* pProject;
    QLabel* pChiefMode;
    QLabel* pListLocked;
    QLabel* pRefreshBlocked;
};
