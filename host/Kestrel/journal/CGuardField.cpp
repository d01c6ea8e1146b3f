#include "Kestrel/journal/CGuardField.h"

#include <QEvent>

namespace {

constexpr int nLeastGuardCharacters = 7;

} // namespace

CGuardField::CGuardField(QWidget* parent) : CElidedLabel(parent)
{
    setObjectName(QStringLiteral("GuardBadge"));
    SetLeastCharacters(nLeastGuardCharacters);
    SetElideMode(Qt::ElideRight); // a number comes first
    setVisible(false);
}

void CGuardField::SetState(int nCountIn, const SGuiHold& holdIn)
{
    nCount = nCountIn;
    holdLast = holdIn;
    UpdateText();
    setVisible(nCount > 0);
}

void CGuardField::changeEvent(QEvent* event)
{
    CElidedLabel::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
}

void CGuardField::UpdateText()
{
    setText(GetText());
    setToolTip(GetText());
}

QString CGuardField::GetText() const
{
    return holdLast.strOperation.isEmpty()
        ? tr("Held up %1×, last for %2 ms").arg(nCount).arg(holdLast.nMilliseconds)
        : tr("Held up %1×, last for %2 ms by %3").arg(nCount).arg(holdLast.nMilliseconds).arg(holdLast.strOperation);
}
