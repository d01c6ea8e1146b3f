#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QScrollBar>

/// A slim scroll bar that is laid over a view and moves with the view's own, hidden bar. Its thickness
/// is 8 pixels, whatever the style says.
class COMMONCOMPONENT_EXPORT CScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    CScrollBar(Qt::Orientation orientation, QWidget* parent);
    ~CScrollBar() override;

    /// Ties this bar to pSystemBar, both ways: range, steps and value. pSystemBar stays owned by its
    /// view and must not be null. One call an object.
    void ConnectSystem(QScrollBar* pSystemBar);

    QSize sizeHint() const override;
};
