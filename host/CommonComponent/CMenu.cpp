#include "interfaces/widgets/CMenu.h"

#include "CommonComponent/CMenuSearch.h"
#include "CommonComponent/StyleHooks.h"

CMenu::CMenu(QWidget* parent) : QMenu(parent)
{
    new CMenuSearch(this);
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
    QMenu::hideEvent(event);
}

void CMenu::SetControlWidgetOpen(bool bOpen)
{
    if (pControlWidget) {
        SetStyleProperty(pControlWidget, "MenuOpen", bOpen);
    }
}
