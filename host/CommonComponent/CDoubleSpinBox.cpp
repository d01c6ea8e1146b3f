#include "interfaces/widgets/CDoubleSpinBox.h"

CDoubleSpinBox::CDoubleSpinBox(QWidget* parent) : QDoubleSpinBox(parent)
{
    // A wheel that scrolls past must not change the number; only one that the user gave the focus does.
    setFocusPolicy(Qt::StrongFocus);
}

CDoubleSpinBox::~CDoubleSpinBox() = default;
