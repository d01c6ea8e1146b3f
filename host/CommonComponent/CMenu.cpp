#include "interfaces/widgets/CMenu.h"

#include "CommonComponent/CMenuElision.h"
#include "CommonComponent/CMenuSearch.h"
#include "CommonComponent/StyleHooks.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>

namespace {

// While a menu is open no other widget hears that the mouse has left it, and it would stay lit.
void TakeHoverBack(QWidget* pWidget)
{
    if (pWidget->underMouse() && !pWidget->rect().contains(pWidget->mapFromGlobal(QCursor::pos()))) {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(pWidget, &event);
        pWidget->update();
    }
}

} // namespace

CMenu::CMenu(QWidget* parent) : QMenu(parent)
{
    auto* pElision = new CMenuElision(this);
    new CMenuSearch(this, *pElision);
}

CMenu::~CMenu()
{
    SetControlWidgetOpen(false);
}

void CMenu::setMinimumWidth(int nWidth)
{
    QMenu::setMinimumWidth(nWidth);
    // The base class keeps the rectangles of its entries over a change of the minimum; this makes it lay them out anew.
    setSeparatorsCollapsible(!separatorsCollapsible());
    setSeparatorsCollapsible(!separatorsCollapsible());
}

void CMenu::SetControlWidget(QWidget* pWidget)
{
    SetControlWidgetOpen(false);
    pControlWidget = pWidget;
    SetControlWidgetOpen(isVisible());
}

void CMenu::showEvent(QShowEvent* event)
{
    QMenu::showEvent(event);
    SetControlWidgetOpen(true);
}

void CMenu::hideEvent(QHideEvent* event)
{
    SetControlWidgetOpen(false);
    if (pControlWidget) {
        TakeHoverBack(pControlWidget);
    }
    QMenu::hideEvent(event);
}

void CMenu::SetControlWidgetOpen(bool bOpen)
{
    if (pControlWidget) {
        SetStyleProperty(pControlWidget, "MenuOpen", bOpen);
    }
}
