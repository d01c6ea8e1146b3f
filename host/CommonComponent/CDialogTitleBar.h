#pragma once

#include <QPoint>
#include <QWidget>

class QLabel;

/// The title bar that CBaseDialog draws itself: title, cross, and the handle that drags the window.
class CDialogTitleBar : public QWidget
{
    Q_OBJECT

public:
    explicit CDialogTitleBar(QWidget* pDialog);

    void SetTitle(const QString& strTitle);

signals:
    void SignalClose();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QLabel* pTitle;
    QPoint ptGrip; ///< where the window was gripped, from its top left corner
    bool bDragging = false;
};
