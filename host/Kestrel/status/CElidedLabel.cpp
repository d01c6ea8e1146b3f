#include "Kestrel/status/CElidedLabel.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

void CElidedLabel::SetLeastCharacters(int nCharacters)
{
    nLeastCharacters = nCharacters;
    updateGeometry();
}

void CElidedLabel::SetElideMode(Qt::TextElideMode modeNew)
{
    mode = modeNew;
    update();
}

QSize CElidedLabel::minimumSizeHint() const
{
    const QSize size = QLabel::minimumSizeHint();
    const QFontMetrics metrics = fontMetrics();
    const int nSpare = metrics.horizontalAdvance(text()) - metrics.averageCharWidth() * nLeastCharacters;
    return QSize(size.width() - qMax(0, nSpare), size.height());
}

void CElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    drawFrame(&painter);
    QStyleOption option;
    option.initFrom(this);
    const QString strShown = fontMetrics().elidedText(text(), mode, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), int(Qt::AlignLeft | Qt::AlignVCenter), option.palette, isEnabled(), strShown,
                          foregroundRole());
}
