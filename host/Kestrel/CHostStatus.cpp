#include "Kestrel/CHostStatus.h"

#include "CorvidControl/CControlHost.h"
#include "Kestrel/CBusyIndicator.h"

#include <QLabel>

CHostStatus::CHostStatus(CControlHost& controlHost, const CTheme& theme, QWidget* parent)
    : QStatusBar(parent), host(controlHost), pBusy(new CBusyIndicator(theme, this)), pProject(MakeBadge(false)),
      pChiefMode(MakeBadge(true)), pListLocked(MakeBadge(true)), pRefreshBlocked(MakeBadge(true))
{
    setSizeGripEnabled(false);
    addWidget(pBusy, 1);
    for (QLabel* pBadge : { pRefreshBlocked, pListLocked, pChiefMode, pProject })
        addPermanentWidget(pBadge);
    UpdateBusy();
    UpdateState();
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
