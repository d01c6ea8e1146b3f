#pragma once

#include <QStatusBar>

#include <memory>

class CBusyIndicator;
class IControlHost;
class CElidedLabel;
class CPanelCounts;
class CRefusalNote;
class CTheme;

/// The status bar: what is busy and since when, why the last command was refused, what is selected and found, what is
/// wrong with the list's file, and the modes that change what the panel allows. A message of the bar takes the place of what
/// is busy.
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
    void InitFields();
    CElidedLabel* MakeCount();
    CElidedLabel* MakeBadge(bool bMode);
    static void SetBadge(CElidedLabel* pBadge, const QString& strText, bool bShown);

    IControlHost& host;
    CBusyIndicator* pBusy;
    CRefusalNote* pRefusal;
    CElidedLabel* pSelected;
    CElidedLabel* pFound;
    CElidedLabel* pTrouble;
    CElidedLabel* pProject;
    CElidedLabel* pChiefMode;
    CElidedLabel* pListLocked;
    CElidedLabel* pRefreshBlocked;
    std::unique_ptr<CPanelCounts> pCounts; ///< null without a panel
};
