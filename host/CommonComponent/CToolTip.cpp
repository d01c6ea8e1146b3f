#include "interfaces/widgets/CToolTip.h"

#include "CommonComponent/CToolTipControl.h"

void CToolTip::ShowText(const QString& strText)
{
    CToolTipControl::Get()->Show(strText);
}

void CToolTip::ShowTextDelay(const QString& strText, int nDelay)
{
    CToolTipControl::Get()->ShowLater(strText, nDelay);
}

void CToolTip::HideText()
{
    CToolTipControl::Get()->Hide();
}

bool CToolTip::IsVisible()
{
    return CToolTipControl::Get()->IsVisible();
}
