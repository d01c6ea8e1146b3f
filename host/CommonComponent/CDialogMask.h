#pragma once

#include <QWidget>

/// Lies over a whole window while a dialog is open. How it dims is the style sheet's.
class CDialogMask : public QWidget
{
    Q_OBJECT

public:
    /// Covers pWindow, its parent, and follows its size.
    explicit CDialogMask(QWidget* pWindow);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
