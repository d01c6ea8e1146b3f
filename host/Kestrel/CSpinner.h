#pragma once

#include <QColor>
#include <QTimer>
#include <QWidget>

/// A small arc that turns while something runs. Costs nothing while it rests.
class CSpinner : public QWidget
{
    Q_OBJECT

public:
    /// trackIn is the whole ring, arcIn the part that turns.
    CSpinner(const QColor& trackIn, const QColor& arcIn, QWidget* parent);

    /// A widget that rests shows nothing and needs no timer.
    void SetTurning(bool bTurning);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Turn();

    const QColor track;
    const QColor arc;
    QTimer timer;
    int nAngle = 0; ///< degrees, clockwise from the top
};
