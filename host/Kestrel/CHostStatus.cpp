#include "Kestrel/CHostStatus.h"

#include "Kestrel/CBusyIndicator.h"
#include "Kestrel/CElidedLabel.h"
#include "Kestrel/ListTrouble.h"
#include "controlhost/IControlHost.h"

#include <QLabel>
#include <QTextDocument>

CHostStatus::CHostStatus(IControlHost& hostIn, const CTheme& theme, QWidget* parent)
    : QStatusBar(parent), host(hostIn), pBusy(new CBusyIndicator(theme, this)), pTrouble(new CElidedLabel(this)),
      pProject(MakeBadge(false)), pChiefMode(MakeBadge(true)), pListLocked(MakeBadge(true)), pRefreshBlocked(MakeBadge(true))
{
    setSizeGripEnabled(false);
    pTrouble->setObjectName(QStringLiteral("TroubleBadge"));
    pTrouble->setTextFormat(Qt::PlainText);
    addWidget(pBusy, 1);
    addPermanentWidget(pTrouble); // permanent, since a message hides the others
    for (QLabel* pBadge : { pRefreshBlocked, pListLocked, pChiefMode, pProject }) {
        addPermanentWidget(pBadge);
    }
    UpdateBusy();
    UpdateState();
    UpdateTrouble();
}

void CHostStatus::UpdateBusy()
{
    pBusy->SetState(host.IsBusy(), host.GetBusySince(), host.GetRunningJobs());
}

void CHostStatus::UpdateState()
{
    const QString strProject = host.GetProjectName();
    SetBadge(pProject, strProject.isEmpty() ? tr("No project") : tr("Project %1").arg(strProject), true);
    SetBadge(pChiefMode, tr("Chief-Member mode"), host.IsChiefMode());
    SetBadge(pListLocked, tr("List locked"), host.IsListLocked());
    SetBadge(pRefreshBlocked, tr("Refresh blocked"), host.IsRefreshBlocked());
}

void CHostStatus::UpdateTrouble()
{
    const QString strTrouble = host.GetListTrouble();
    const QString strText = ListTrouble::IsUnread(strTrouble) ? tr("List not read: %1") : tr("List not saved: %1");
    pTrouble->setText(strText.arg(ListTrouble::GetReason(strTrouble)));
    // As rich text it is broken into lines.
    pTrouble->setToolTip(Qt::convertFromPlainText(pTrouble->text(), Qt::WhiteSpaceNormal));
    pTrouble->setVisible(!strTrouble.isEmpty());
}

QLabel* CHostStatus::MakeBadge(bool bMode)
{
    auto* pBadge = new QLabel(this);
    pBadge->setObjectName(QStringLiteral("Badge"));
    pBadge->setProperty("Mode", bMode);
    return pBadge;
}

void CHostStatus::SetBadge(QLabel* pBadge, const QString& strText, bool bShown)
{
    pBadge->setText(strText);
    pBadge->setVisible(bShown);
}
