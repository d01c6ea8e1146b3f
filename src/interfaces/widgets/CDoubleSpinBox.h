#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QDoubleSpinBox>

/// A spin box in the look of the host. The wheel moves it only while it has the focus.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit CDoubleSpinBox(QWidget* parent);
    ~CDoubleSpinBox() override;

protected:
    void wheelEvent(QWheelEvent* event) override;
};
