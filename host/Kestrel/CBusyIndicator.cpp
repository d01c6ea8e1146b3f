#include "Kestrel/CBusyIndicator.h"

#include "Kestrel/CSpinner.h"
#include "Kestrel/theme/CTheme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

#include <array>
#include <utility>

namespace {

constexpr int nSpacing = 8;
constexpr int nSecondMs = 1000;

} // namespace

CBusyIndicator::CBusyIndicator(const CTheme& theme, QWidget* parent)
    : QWidget(parent), pSpinner(new CSpinner(this)), pLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("BusyIndicator"));
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(nSpacing, 0, nSpacing, 0);
    pLayout->setSpacing(nSpacing);
    pLayout->addWidget(pSpinner);
    pLayout->addWidget(pLabel, 1);
    timer.setInterval(nSecondMs);
    connect(&timer, &QTimer::timeout, this, &CBusyIndicator::UpdateText);
    connect(&theme, &CTheme::Changed, this, [this, &theme] { UpdateColours(theme); });
    UpdateColours(theme);
    UpdateText();
}

void CBusyIndicator::SetState(bool bBusy, const QDateTime& timeSince, const QStringList& listJob)
{
    if (!bShown || timeBegin != timeSince) {
        timerBusy.start();
    }
    bShown = bBusy;
    timeBegin = timeSince;
    listRunning = listJob;
    pSpinner->SetTurning(bBusy);
    bBusy ? timer.start() : timer.stop();
    UpdateText();
}

QString CBusyIndicator::GetText() const
{
    return pLabel->text();
}

void CBusyIndicator::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
}

void CBusyIndicator::UpdateColours(const CTheme& theme)
{
    pSpinner->SetColours(theme.GetColour(QStringLiteral("line")), theme.GetColour(QStringLiteral("textStrong")));
}

void CBusyIndicator::UpdateText()
{
    if (!bShown) {
        pLabel->setText(tr("Ready"));
        return;
    }
    const qint64 nSeconds = timerBusy.elapsed() / nSecondMs;
    pLabel->setText(tr("%1 – since %2 (%3 s)").arg(GetWhat(), timeBegin.toString(QStringLiteral("HH:mm:ss"))).arg(nSeconds));
}

QString CBusyIndicator::GetWhat() const
{
    QStringList listText;
    for (const QString& strJob : listRunning) {
        const QString strText = GetJobText(strJob);
        if (!listText.contains(strText)) {
            listText.append(strText);
        }
    }
    return listText.isEmpty() ? tr("Busy") : listText.join(QStringLiteral(", "));
}

QString CBusyIndicator::GetJobText(const QString& strJob)
{
    // The library names its jobs in English, the object's name or address at the end.
    const std::array<std::pair<QLatin1String, QString>, 4> listText{ {
        { QLatin1String("Scanning the network"), tr("Scanning the network") },
        { QLatin1String("Adding the processor at "), tr("Adding the processor at %1") },
        { QLatin1String("Deleting "), tr("Deleting %1") },
        { QLatin1String("Importing "), tr("Importing %1") },
    } };
    for (const auto& [strBegin, strText] : listText) {
        if (strJob.startsWith(strBegin)) {
            return strText.contains(QLatin1String("%1")) ? strText.arg(strJob.mid(strBegin.size())) : strText;
        }
    }
    return strJob;
}
