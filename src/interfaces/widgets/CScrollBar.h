#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QPointer>
#include <QScrollBar>

/// A slim scroll bar that is laid over a view and moves with the view's own, hidden bar. Its thickness
/// is 5 pixels, whatever the style says. The view places it. A drag over the bar is meant for the view: the
/// bar passes it on to the viewport.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    CScrollBar(Qt::Orientation orientation, QWidget* parent);
    ~CScrollBar() override;

    /// Ties this bar to pSystemBar, both ways: range, steps and value. Steps of the system bar are taken
    /// over when its range or value changes, when its view paints and before this bar takes input.
    /// When the range changes the bar shows itself if there is something to scroll, its parent is at least
    /// 10 pixels wide and high and its place lies within its parent, and hides itself otherwise.
    /// pSystemBar stays owned by its view and must not be null. Once per object.
    void ConnectSystem(QScrollBar* pSystemBar);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void sliderChange(SliderChange change) override;

private:
    void SetConnection();
    void TakeSteps();
    void TakeRange(int nMinimum, int nMaximum);
    void TakeValue(int nValue);
    void ShowWhenUseful();

    QPointer<QScrollBar> pSystem; ///< null before ConnectSystem and after the view has gone
    bool bTakingSteps = false;    ///< the steps come from pSystem and need not go back
};
