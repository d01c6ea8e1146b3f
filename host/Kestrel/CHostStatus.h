#pragma once

#include <QStatusBar>

#include <memory>

class CBusyIndicator;
class IControlHost;
class CElidedLabel;
class CPanelCounts;
class CRefusalNote;
class CTheme;
class QLabel;

/// The status bar: what is busy and since when, why the last command was refused, what is selected and found, what is
/// wrong with the list's file, and the modes that change what the panel allows.
class CHostStatus : public QStatusBar
{
    Q_OBJECT

public:
    /// hostIn must outlive the bar.
    CHostStatus(IControlHost& hostIn, const CTheme& theme, QWidget* parent);
    ~CHostStatus() override;

    /// Counts what the panel shows from now on. Null for none.
    void SetPanel(QWidget* pPanel);

    /// Why the last command was refused.
    CRefusalNote& GetRefusalNote() const;

    /// What is busy and since when, from the control library.
    void UpdateBusy();

    /// The badges, from the control library, in the present language.
    void UpdateState();

    /// What is selected and found, in the present language.
    void UpdateCounts();

    /// Why the list is not what is on disk, for as long as it is so.
    void UpdateTrouble();

private:
    void SetConnection();
    CElidedLabel* MakeCount();
    QLabel* MakeBadge(bool bMode);
    static void SetBadge(QLabel* pBadge, const QString& strText, bool bShown);
    static void SetCount(CElidedLabel* pLabel, const QString& strText);

    IControlHost& host;
    CBusyIndicator* pBusy;
    CRefusalNote* pRefusal;
    CElidedLabel* pSelected;
    CElidedLabel* pFound;
    CElidedLabel* pTrouble;
    QLabel* pProject;
    QLabel* pChiefMode;
    QLabel* pListLocked;
    QLabel* pRefreshBlocked;
    std::unique_ptr<CPanelCounts> pCounts; ///< null without a panel
};
