#include "Kestrel/status/CHostStatus.h"

#include "Kestrel/journal/CGuardField.h"
#include "Kestrel/journal/CJournalField.h"
#include "Kestrel/status/CBusyIndicator.h"
#include "Kestrel/status/CElidedLabel.h"
#include "Kestrel/status/CFieldLayout.h"
#include "Kestrel/status/CPanelCounts.h"
#include "Kestrel/status/CRefusalNote.h"
#include "Kestrel/status/CountText.h"
#include "Kestrel/status/ListTrouble.h"
#include "Kestrel/status/RefusalEnd.h"
#include "Kestrel/status/RefusalText.h"
#include "controlhost/IControlHost.h"

#include <QTextDocument>

namespace {

constexpr int nLeastBadgeCharacters = 7;
constexpr int nLeastTroubleCharacters = 12;

} // namespace

CHostStatus::CHostStatus(IControlHost& hostIn, const CTheme& theme, QWidget* parent)
    : QStatusBar(parent), host(hostIn), pBusy(new CBusyIndicator(theme, this)), pRefusal(new CRefusalNote(this)),
      pSelected(MakeCount()), pFound(MakeCount()), pTrouble(new CElidedLabel(this)), pProject(MakeBadge(false)),
      pChiefMode(MakeBadge(true)), pListLocked(MakeBadge(true)), pRefreshBlocked(MakeBadge(true))
{
    setSizeGripEnabled(false);
    pTrouble->setObjectName(QStringLiteral("TroubleBadge"));
    pTrouble->setTextFormat(Qt::PlainText);
    pTrouble->SetLeastCharacters(nLeastTroubleCharacters);
    InitFields();
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
    SetBadge(pSelected, CountText::GetSelected(counts), !CountText::GetSelected(counts).isEmpty());
    SetBadge(pFound, CountText::GetFound(counts), counts.bSearching);
}

void CHostStatus::UpdateTrouble()
{
    const QString strTrouble = host.GetListTrouble();
    const QString strText = ListTrouble::IsUnread(strTrouble) ? tr("List not read: %1") : tr("List not saved: %1");
    SetBadge(pTrouble, strText.arg(ListTrouble::GetReason(strTrouble)), !strTrouble.isEmpty());
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
    connect(this, &QStatusBar::messageChanged, pBusy, &CBusyIndicator::SetMessage);
    connect(&host, &IControlHost::BusyChanged, pRefusal, &CRefusalNote::SetBusy, Qt::QueuedConnection);
    const auto review
        = [this] { pRefusal->Review([this](const SRefusal& refusal) { return RefusalEnd::IsOver(refusal, host); }); };
    connect(&host, &IControlHost::BusyChanged, this, review, Qt::QueuedConnection);
    connect(&host, &IControlHost::JobsChanged, this, review, Qt::QueuedConnection);
    connect(&host, &IControlHost::StateChanged, this, review, Qt::QueuedConnection);
    connect(&host, &IControlHost::ListTroubleChanged, this, review, Qt::QueuedConnection);
}

// By their place in the bar; the least important one has the highest rank.
void CHostStatus::InitFields()
{
    auto* pFields = new QWidget(this);
    auto* pMore = new CElidedLabel(QStringLiteral("…"), pFields);
    pMore->setObjectName(QStringLiteral("MoreBadge"));
    auto* pLayout = new CFieldLayout(pFields, pMore);
    const std::initializer_list<std::pair<QWidget*, int>> listField{
        { pBusy, 1 },
        { pRefusal, 0 },
        { pFound, 7 },
        { pSelected, 6 },
        { pTrouble, 2 },
        { pRefreshBlocked, 5 },
        { pListLocked, 4 },
        { pChiefMode, 3 },
        { pProject, 8 },
        { new CJournalField(this), 9 },
        { new CGuardField(this), 10 },
    };
    for (const auto& [pField, nRank] : listField) {
        pLayout->AddField(pField, nRank);
    }
    pRefusal->hide();               // until there is something to say
    addPermanentWidget(pFields, 1); // a message of the bar hides others
}

CElidedLabel* CHostStatus::MakeCount()
{
    CElidedLabel* pLabel = MakeBadge(false);
    pLabel->setObjectName(QStringLiteral("CountBadge"));
    return pLabel;
}

CElidedLabel* CHostStatus::MakeBadge(bool bMode)
{
    auto* pBadge = new CElidedLabel(this);
    pBadge->setObjectName(QStringLiteral("Badge"));
    pBadge->setTextFormat(Qt::PlainText);
    pBadge->setProperty("Mode", bMode);
    pBadge->SetLeastCharacters(nLeastBadgeCharacters);
    pBadge->SetElideMode(Qt::ElideRight); // a number comes first
    return pBadge;
}

void CHostStatus::SetBadge(CElidedLabel* pBadge, const QString& strText, bool bShown)
{
    pBadge->setText(strText);
    // All of it, where the label has no room; as rich text it is broken into lines.
    pBadge->setToolTip(Qt::convertFromPlainText(strText, Qt::WhiteSpaceNormal));
    pBadge->setVisible(bShown);
}
