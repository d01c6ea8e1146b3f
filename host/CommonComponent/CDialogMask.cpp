#include "CommonComponent/CDialogMask.h"

#include <QEvent>

CDialogMask::CDialogMask(QWidget* pWindow) : QWidget(pWindow)
{
    setObjectName(QStringLiteral("DialogMask"));
    setAttribute(Qt::WA_StyledBackground);
    setGeometry(pWindow->rect());
    pWindow->installEventFilter(this);
}

bool CDialogMask::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(watched, event);
}
