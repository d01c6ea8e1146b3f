#include "Kestrel/CHostStatus.h"

#include "Kestrel/CBusyIndicator.h"
#include "Kestrel/CElidedLabel.h"
#include "Kestrel/ListTrouble.h"
#include "Kestrel/status/CPanelCounts.h"
#include "Kestrel/status/CRefusalNote.h"
#include "Kestrel/status/CountText.h"
#include "Kestrel/status/RefusalEnd.h"
#include "Kestrel/status/RefusalText.h"
#include "controlhost/IControlHost.h"

#include <QLabel>
#include <QTextDocument>

namespace {

constexpr int nLeastCountCharacters = 12; ///< all fields fit beside each other in a small window
constexpr int nLeastRefusalCharacters = 16;

} // namespace

CHostStatus::CHostStatus(IControlHost& hostIn, const CTheme& theme, QWidget* parent)
    : QStatusBar(parent), host(hostIn), pBusy(new CBusyIndicator(theme, this)), pRefusal(new CRefusalNote(this)),
      pSelected(MakeCount()), pFound(MakeCount()), pTrouble(new CElidedLabel(this)), pProject(MakeBadge(false)),
      pChiefMode(MakeBadge(true)), pListLocked(MakeBadge(true)), pRefreshBlocked(MakeBadge(true))
{
    setSizeGripEnabled(false);
    pTrouble->setObjectName(QStringLiteral("TroubleBadge"));
    pTrouble->setTextFormat(Qt::PlainText);
    pRefusal->SetLeastCharacters(nLeastRefusalCharacters);
    addWidget(pBusy, 1);
    // Permanent, since a message hides the others.
    for (QLabel* pLabel : std::initializer_list<QLabel*>{ pRefusal, pFound, pSelected, pTrouble, pRefreshBlocked, pListLocked,
                                                          pChiefMode, pProject }) {
        addPermanentWidget(pLabel);
    }
    pRefusal->hide(); // until there is something to say
    UpdateBusy();
    UpdateState();
    UpdateCounts();
    UpdateTrouble();
    SetConnection();
}

CHostStatus::~CHostStatus() = default;

void CHostStatus::SetPanel(QWidget* pPanel)
{
    pCounts.reset();
    if (pPanel) {
        pCounts = std::make_unique<CPanelCounts>(pPanel);
        connect(pCounts.get(), &CPanelCounts::Counted, this, &CHostStatus::UpdateCounts);
    }
    UpdateCounts();
}

CRefusalNote& CHostStatus::GetRefusalNote() const
{
    return *pRefusal;
}

void CHostStatus::UpdateBusy()
{
    pBusy->SetState(host.IsBusy(), host.GetBusySince(), host.GetJobProgress());
}

void CHostStatus::UpdateState()
{
    const QString strProject = host.GetProjectName();
    SetBadge(pProject, strProject.isEmpty() ? tr("No project") : tr("Project %1").arg(strProject), true);
    SetBadge(pChiefMode, tr("Chief-Member mode"), host.IsChiefMode());
    SetBadge(pListLocked, tr("List locked"), host.IsListLocked());
    SetBadge(pRefreshBlocked, tr("Refresh blocked"), host.IsRefreshBlocked());
}

void CHostStatus::UpdateCounts()
{
    const SPanelCounts counts = pCounts ? pCounts->GetCounts() : SPanelCounts();
    SetCount(pSelected, CountText::GetSelected(counts));
    SetCount(pFound, CountText::GetFound(counts));
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

// Queued, since the library emits on threads of its own.
void CHostStatus::SetConnection()
{
    const auto sayRefusal = [this](const SRefusal& refusal) {
        if (refusal.command != CommandRestore) { // whoever asked for that knows which step it was
            pRefusal->Say(refusal, [refusal] { return RefusalText::Get(refusal); });
        }
    };
    connect(&host, &IControlHost::CommandRefused, this, sayRefusal, Qt::QueuedConnection);
    connect(&host, &IControlHost::JobProgressed, this, &CHostStatus::UpdateBusy, Qt::QueuedConnection);
    connect(&host, &IControlHost::BusyChanged, pRefusal, &CRefusalNote::SetBusy, Qt::QueuedConnection);
    const auto review
        = [this] { pRefusal->Review([this](const SRefusal& refusal) { return RefusalEnd::IsOver(refusal, host); }); };
    connect(&host, &IControlHost::BusyChanged, this, review, Qt::QueuedConnection);
    connect(&host, &IControlHost::JobsChanged, this, review, Qt::QueuedConnection);
    connect(&host, &IControlHost::StateChanged, this, review, Qt::QueuedConnection);
    connect(&host, &IControlHost::ListTroubleChanged, this, review, Qt::QueuedConnection);
}

CElidedLabel* CHostStatus::MakeCount()
{
    auto* pLabel = new CElidedLabel(this);
    pLabel->setObjectName(QStringLiteral("CountBadge"));
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->SetLeastCharacters(nLeastCountCharacters);
    pLabel->SetElideMode(Qt::ElideRight); // the number comes first
    return pLabel;
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

void CHostStatus::SetCount(CElidedLabel* pLabel, const QString& strText)
{
    pLabel->setToolTip(strText); // all of it, where the label has no room
    SetBadge(pLabel, strText, !strText.isEmpty());
}
