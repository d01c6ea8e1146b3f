#pragma once

#include <QWidget>

/// Lies over a whole window while a dialog is open. How it dims is the style sheet's.
class CDialogMask : public QWidget
{
    Q_OBJECT

public:
    explicit CDialogMask(QWidget* pWindow);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
