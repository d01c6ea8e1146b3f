#include "StatusFaults.h"

#include "Kestrel/status/CBusyIndicator.h"
#include "Kestrel/status/CElidedLabel.h"
#include "Kestrel/status/CRefusalNote.h"

#include <QStatusBar>
#include <QTextDocumentFragment>

namespace {

constexpr int nLeastLetters = 16;

QList<CElidedLabel*> GetTexts(const QStatusBar& bar)
{
    QList<CElidedLabel*> listShown;
    const QList<CElidedLabel*> listAll = bar.findChildren<CElidedLabel*>();
    for (CElidedLabel* pLabel : listAll) {
        if (pLabel->isVisible() && pLabel->objectName() != QLatin1String("MoreBadge")) {
            listShown.append(pLabel);
        }
    }
    return listShown;
}

QRect GetPlace(const QStatusBar& bar, const QWidget& widget)
{
    return { widget.mapTo(&bar, QPoint()), widget.size() };
}

QString GetTip(const QWidget& widget)
{
    return QTextDocumentFragment::fromHtml(widget.toolTip()).toPlainText();
}

bool IsElided(const QLabel& label)
{
    return label.fontMetrics().horizontalAdvance(label.text()) > label.contentsRect().width();
}

bool IsImportant(const QLabel& label)
{
    return qobject_cast<const CRefusalNote*>(&label) || qobject_cast<const CBusyIndicator*>(label.parentWidget());
}

QString FindFault(const QStatusBar& bar, const QLabel& label)
{
    const QWidget* pMore = bar.findChild<QWidget*>(QStringLiteral("MoreBadge"));
    if (label.width() == 0) {
        const bool bTold = pMore->width() > 0 && GetTip(*pMore).contains(label.text()) && !IsImportant(label);
        return bTold ? QString() : QStringLiteral("has given way");
    }
    if (!bar.rect().contains(GetPlace(bar, label))) {
        return QStringLiteral("reaches out of the bar");
    }
    if (IsElided(label) && GetTip(label) != label.text()) {
        return QStringLiteral("is elided, and its tip is '%1'").arg(GetTip(label));
    }
    const int nLeast = label.fontMetrics().averageCharWidth() * nLeastLetters;
    const bool bTooShort = IsImportant(label) && IsElided(label) && label.contentsRect().width() < nLeast;
    return bTooShort ? QStringLiteral("has %1 pixels").arg(label.contentsRect().width()) : QString();
}

} // namespace

QStringList StatusFaults::Find(const QStatusBar& bar)
{
    QStringList listFault;
    QRegion covered;
    const QList<CElidedLabel*> listText = GetTexts(bar);
    for (const CElidedLabel* pLabel : listText) {
        const QRect rc = GetPlace(bar, *pLabel);
        const QString strFault = covered.intersects(rc) ? QStringLiteral("lies over another") : FindFault(bar, *pLabel);
        covered += rc;
        if (!strFault.isEmpty()) {
            listFault.append(QStringLiteral("'%1' %2").arg(pLabel->text(), strFault));
        }
    }
    return listFault;
}

QStringList StatusFaults::GetGone(const QStatusBar& bar)
{
    QStringList listGone;
    const QList<CElidedLabel*> listText = GetTexts(bar);
    for (const CElidedLabel* pLabel : listText) {
        if (pLabel->width() == 0) {
            listGone.append(pLabel->text());
        }
    }
    return listGone;
}

int StatusFaults::CountTexts(const QStatusBar& bar)
{
    return GetTexts(bar).size();
}
