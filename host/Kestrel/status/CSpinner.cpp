#include "Kestrel/status/CSpinner.h"

#include <QPainter>

namespace {

constexpr int nEdge = 16;
constexpr int nPeriodMs = 40;
constexpr int nStepDegrees = 15;
constexpr int nArcDegrees = 100;
constexpr double dLine = 2.0;
constexpr int nTop = 90;       ///< degrees, counted as QPainter does
constexpr int nSixteenth = 16; ///< QPainter counts angles in sixteenths of a degree

} // namespace

CSpinner::CSpinner(QWidget* parent) : QWidget(parent)
{
    setFixedSize(nEdge, nEdge);
    timer.setInterval(nPeriodMs);
    connect(&timer, &QTimer::timeout, this, &CSpinner::Turn);
}

void CSpinner::SetColours(const QColor& trackIn, const QColor& arcIn)
{
    track = trackIn;
    arc = arcIn;
    update();
}

void CSpinner::SetTurning(bool bTurning)
{
    if (bTurning == timer.isActive()) {
        return;
    }
    bTurning ? timer.start() : timer.stop();
    update();
}

QSize CSpinner::sizeHint() const
{
    return { nEdge, nEdge };
}

void CSpinner::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    if (!timer.isActive()) {
        return;
    }
    const QRectF circle = QRectF(rect()).adjusted(dLine, dLine, -dLine, -dLine);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(track, dLine));
    painter.drawEllipse(circle);
    painter.setPen(QPen(arc, dLine, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, (nTop - nAngle) * nSixteenth, -nArcDegrees * nSixteenth);
}

void CSpinner::Turn()
{
    nAngle = (nAngle + nStepDegrees) % 360;
    update();
}
