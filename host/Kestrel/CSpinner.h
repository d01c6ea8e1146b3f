#pragma once

#include <QColor>
#include <QTimer>
#include <QWidget>

/// A small arc that turns while something runs. Costs nothing while it rests.
class CSpinner : public QWidget
{
    Q_OBJECT

public:
    CSpinner(const QColor& trackIn, const QColor& arcIn, QWidget* parent);

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
