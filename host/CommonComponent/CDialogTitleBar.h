#pragma once

#include <QPoint>
#include <QWidget>

class QLabel;

/// The title bar that CBaseDialog draws itself: title, cross, and the handle that drags the window.
class CDialogTitleBar : public QWidget
{
    Q_OBJECT

public:
    /// pDialog is its parent; a drag moves the window that it is in.
    explicit CDialogTitleBar(QWidget* pDialog);

    void SetTitle(const QString& strTitle);

signals:
    /// The cross was clicked.
    void SignalClose();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QLabel* pTitle;
    const bool bSystemMoves; ///< only the system can move a window: Wayland says to none where it is
    QPoint ptGrip;           ///< where the window was gripped, from its top left corner
    bool bDragging = false;
};
