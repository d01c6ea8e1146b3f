#pragma once

#include <QColor>
#include <QTimer>
#include <QWidget>

/// A small arc that turns while something runs. Costs nothing while it rests.
class CSpinner : public QWidget
{
    Q_OBJECT

public:
    explicit CSpinner(QWidget* parent);

    /// trackIn is for the whole ring, arcIn for the part that turns.
    void SetColours(const QColor& trackIn, const QColor& arcIn);

    /// A widget that rests shows nothing and needs no timer.
    void SetTurning(bool bTurning);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Turn();

    QColor track;
    QColor arc;
    QTimer timer;
    int nAngle = 0; ///< degrees, clockwise from the top
};
