#include "interfaces/widgets/CDoubleSpinBox.h"

#include <QWheelEvent>

CDoubleSpinBox::CDoubleSpinBox(QWidget* parent) : QDoubleSpinBox(parent)
{
    // Not by the wheel: a wheel that scrolls past must not change the number.
    setFocusPolicy(Qt::StrongFocus);
}

CDoubleSpinBox::~CDoubleSpinBox() = default;

void CDoubleSpinBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus()) {
        QDoubleSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
