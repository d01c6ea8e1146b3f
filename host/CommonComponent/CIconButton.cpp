#include "interfaces/widgets/CIconButton.h"

#include <QEvent>

CIconButton::CIconButton(QWidget* parent) : QToolButton(parent)
{
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
}

CIconButton::~CIconButton() = default;

void CIconButton::AddIcon(const QString& strPath, QIcon::Mode mode, QIcon::State state)
{
    if (strPath.isEmpty()) {
        return;
    }
    QIcon icon = this->icon();
    icon.addFile(strPath, QSize(), mode, state);
    setIcon(icon);
}

void CIconButton::setIconSize(int nWidth, int nHeight)
{
    setIconSize(QSize(nWidth, nHeight));
}

bool CIconButton::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTipChange) {
        TakeNameFromToolTip();
    }
    return QToolButton::event(event);
}

void CIconButton::TakeNameFromToolTip()
{
    if (accessibleName() == strTakenName && toolTip() != strTakenName) { // a name that is set again is announced again
        strTakenName = toolTip();
        setAccessibleName(strTakenName);
    }
}
