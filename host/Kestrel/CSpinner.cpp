#include "Kestrel/CSpinner.h"

#include <QPainter>

namespace
{
constexpr int g_nEdge = 16;
constexpr int g_nPeriodMs = 40;
constexpr int g_nStepDegrees = 15;
constexpr int g_nArcDegrees = 100;
constexpr double g_dLine = 2.0;
constexpr int g_nTop = 90;       ///< degrees, counted as QPainter does
constexpr int g_nSixteenth = 16; ///< QPainter counts angles in sixteenths of a degree
} // namespace

CSpinner::CSpinner(const QColor& trackColour, const QColor& arcColour, QWidget* parent)
    : QWidget(parent), track(trackColour), arc(arcColour)
{
    setFixedSize(g_nEdge, g_nEdge);
    timer.setInterval(g_nPeriodMs);
    connect(&timer, &QTimer::timeout, this, &CSpinner::Turn);
}

void CSpinner::SetTurning(bool bTurning)
{
    if (bTurning == timer.isActive())
        return;
    bTurning ? timer.start() : timer.stop();
    update();
}

QSize CSpinner::sizeHint() const
{
    return { g_nEdge, g_nEdge };
}

void CSpinner::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    if (!timer.isActive())
        return;
    const QRectF circle = QRectF(rect()).adjusted(g_dLine, g_dLine, -g_dLine, -g_dLine);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(track, g_dLine));
    painter.drawEllipse(circle);
    painter.setPen(QPen(arc, g_dLine, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, (g_nTop - nAngle) * g_nSixteenth, -g_nArcDegrees * g_nSixteenth);
}

void CSpinner::Turn()
{
    nAngle = (nAngle + g_nStepDegrees) % 360;
    update();
}
