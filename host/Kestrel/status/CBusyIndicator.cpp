#include "Kestrel/status/CBusyIndicator.h"

#include "Kestrel/status/CElidedLabel.h"
#include "Kestrel/status/CSpinner.h"
#include "Kestrel/theme/CTheme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int nSpacing = 8;
constexpr int nSecondMs = 1000;
constexpr int nLeastCharacters = 18;

} // namespace

CBusyIndicator::CBusyIndicator(const CTheme& theme, QWidget* parent)
    : QWidget(parent), pSpinner(new CSpinner(this)), pLabel(new CElidedLabel(this))
{
    setObjectName(QStringLiteral("BusyIndicator"));
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->SetLeastCharacters(nLeastCharacters);
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(nSpacing, 0, 0, 0);
    pLayout->setSpacing(nSpacing);
    pLayout->addWidget(pSpinner);
    pLayout->addWidget(pLabel, 1);
    timer.setInterval(nSecondMs);
    connect(&timer, &QTimer::timeout, this, &CBusyIndicator::UpdateText);
    connect(&theme, &CTheme::Changed, this, [this, &theme] { UpdateColours(theme); });
    UpdateColours(theme);
    UpdateText();
}

void CBusyIndicator::SetState(bool bBusy, const QDateTime& timeSince, const QVector<SRunningJob>& vecJob)
{
    if (!bShown || timeBegin != timeSince) {
        timerBusy.start();
    }
    bShown = bBusy;
    timeBegin = timeSince;
    vecRunning = vecJob;
    pSpinner->SetTurning(bBusy);
    bBusy ? timer.start() : timer.stop();
    UpdateText();
}

void CBusyIndicator::SetMessage(const QString& strText)
{
    strMessage = strText;
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
    const QString strText = bShown ? GetBusyText() : tr("Ready");
    pLabel->setText(strMessage.isEmpty() ? strText : strMessage);
    pLabel->setToolTip(Qt::convertFromPlainText(pLabel->text(), Qt::WhiteSpaceNormal));
}

QString CBusyIndicator::GetBusyText() const
{
    const QString strSince = timeBegin.toString(QStringLiteral("HH:mm:ss"));
    const QString strSeconds = QString::number(timerBusy.elapsed() / nSecondMs);
    const auto isCounted = [](const SRunningJob& job) { return !GetProgressText(job).isEmpty(); };
    const bool bCounted = std::any_of(vecRunning.begin(), vecRunning.end(), isCounted);
    const QString strText = bCounted ? tr("%1, since %2 (%3 s)") : tr("%1 – since %2 (%3 s)");
    return strText.arg(GetWhat(), strSince, strSeconds);
}

QString CBusyIndicator::GetWhat() const
{
    QStringList listText;
    for (const SRunningJob& job : vecRunning) {
        const QString strProgress = GetProgressText(job);
        const QString strJob = GetJobText(job.strJob);
        const QString strText = strProgress.isEmpty() ? strJob : QStringLiteral("%1 – %2").arg(strJob, strProgress);
        if (!listText.contains(strText)) {
            listText.append(strText);
        }
    }
    return listText.isEmpty() ? tr("Busy") : listText.join(QStringLiteral(", "));
}

// Empty where nothing can be said of it.
QString CBusyIndicator::GetProgressText(const SRunningJob& job)
{
    if (job.nAll > 1) {
        return tr("%1 of %2").arg(job.nDone).arg(job.nAll);
    }
    return job.nAll == 0 && job.nDone > 0 ? tr("%1 done").arg(job.nDone) : QString();
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
    const QLatin1String strMembers(" with its processors");
    if (strJob.startsWith(listText.at(2).first) && strJob.endsWith(strMembers)) {
        return tr("Deleting %1 with its processors").arg(strJob.mid(listText.at(2).first.size()).chopped(strMembers.size()));
    }
    for (const auto& [strBegin, strText] : listText) {
        if (strJob.startsWith(strBegin)) {
            return strText.contains(QLatin1String("%1")) ? strText.arg(strJob.mid(strBegin.size())) : strText;
        }
    }
    return strJob;
}
