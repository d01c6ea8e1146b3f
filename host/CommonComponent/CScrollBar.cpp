#include "interfaces/widgets/CScrollBar.h"

#include "CommonComponent/DragRelay.h"

#include <QAbstractScrollArea>
#include <QEvent>

namespace {

constexpr int nThickness = 5;
constexpr int nMinimumRoom = 10; // edge of the smallest parent that a bar shows itself on

/// The view that a bar belongs to; null for a bar that stands alone.
QAbstractScrollArea* FindScrollArea(QWidget* pWidget)
{
    QWidget* pParent = pWidget->parentWidget();
    while (pParent && !qobject_cast<QAbstractScrollArea*>(pParent)) {
        pParent = pParent->parentWidget();
    }
    return qobject_cast<QAbstractScrollArea*>(pParent);
}

} // namespace

CScrollBar::CScrollBar(Qt::Orientation orientation, QWidget* parent) : QScrollBar(orientation, parent)
{
    orientation == Qt::Horizontal ? setFixedHeight(nThickness) : setFixedWidth(nThickness);
}

CScrollBar::~CScrollBar() = default;

void CScrollBar::ConnectSystem(QScrollBar* pSystemBar)
{
    pSystem = pSystemBar;
    TakeSteps();
    setRange(pSystem->minimum(), pSystem->maximum());
    setValue(pSystem->value());
    SetConnection();
    pSystem->installEventFilter(this);
    if (QAbstractScrollArea* pArea = FindScrollArea(pSystem)) {
        pArea->viewport()->installEventFilter(this);
        setAcceptDrops(true); // otherwise a drag over the bar is refused and does not get as far as event()
    }
}

void CScrollBar::SetConnection()
{
    connect(pSystem, &QScrollBar::rangeChanged, this, &CScrollBar::TakeRange);
    connect(pSystem, &QScrollBar::valueChanged, this, &CScrollBar::TakeValue);
    connect(this, &QScrollBar::rangeChanged, pSystem.data(), &QScrollBar::setRange);
    connect(this, &QScrollBar::valueChanged, pSystem.data(), &QScrollBar::setValue);
}

QSize CScrollBar::sizeHint() const
{
    const QSize size = QScrollBar::sizeHint();
    return orientation() == Qt::Horizontal ? QSize(size.width(), nThickness) : QSize(nThickness, size.height());
}

bool CScrollBar::eventFilter(QObject* watched, QEvent* event)
{
    // No signal reports a change of the steps; a view sets them before it paints.
    if (event->type() == QEvent::Paint || event->type() == QEvent::Show) {
        TakeSteps();
    }
    return QScrollBar::eventFilter(watched, event);
}

bool CScrollBar::event(QEvent* event)
{
    QAbstractScrollArea* pArea = pSystem && DragRelay::IsDrag(event->type()) ? FindScrollArea(pSystem) : nullptr;
    if (pArea) {
        DragRelay::Pass(event, this, pArea);
        return true;
    }
    const bool bInput = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress
        || event->type() == QEvent::Wheel || event->type() == QEvent::Show;
    if (bInput) {
        TakeSteps();
    }
    return QScrollBar::event(event);
}

void CScrollBar::sliderChange(SliderChange change)
{
    QScrollBar::sliderChange(change);
    if (change == SliderStepsChange && pSystem && !bTakingSteps) {
        pSystem->setPageStep(pageStep());
        pSystem->setSingleStep(singleStep());
    }
}

void CScrollBar::TakeSteps()
{
    if (!pSystem) {
        return;
    }
    bTakingSteps = true;
    setPageStep(pSystem->pageStep());
    setSingleStep(pSystem->singleStep());
    bTakingSteps = false;
}

void CScrollBar::TakeRange(int nMinimum, int nMaximum)
{
    TakeSteps();
    setRange(nMinimum, nMaximum);
    ShowWhenUseful();
}

void CScrollBar::TakeValue(int nValue)
{
    TakeSteps();
    setValue(nValue);
}

void CScrollBar::ShowWhenUseful()
{
    // A bar whose place is outside of the view was put away by the view, which is too small for it.
    if (const QWidget* pParent = parentWidget()) {
        const bool bRoom = pParent->width() >= nMinimumRoom && pParent->height() >= nMinimumRoom;
        setVisible(bRoom && pParent->rect().contains(geometry()) && minimum() != maximum());
    }
}
