#include "Kestrel/report/CReportAction.h"

#include <QEvent>
#include <QWidget>

CReportAction::CReportAction(QWidget* pWindow) : QAction(pWindow)
{
    pWindow->installEventFilter(this);
    UpdateText();
}

// An action hears of no other language by itself.
bool CReportAction::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
    return QAction::eventFilter(watched, event);
}

void CReportAction::UpdateText()
{
    setText(tr("Save &report…"));
}
