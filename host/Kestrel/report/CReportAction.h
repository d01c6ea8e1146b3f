#pragma once

#include <QAction>

class QWidget;

/// The menu entry "Save report…" of a window, whose language it follows.
class CReportAction : public QAction
{
    Q_OBJECT

public:
    explicit CReportAction(QWidget* pWindow);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void UpdateText();
};
