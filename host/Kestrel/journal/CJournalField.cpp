#include "Kestrel/journal/CJournalField.h"

#include <QEvent>
#include <QTextDocument>

namespace {

constexpr int nLeastJournalCharacters = 7;

} // namespace

CJournalField::CJournalField(QWidget* parent) : CElidedLabel(parent)
{
    setObjectName(QStringLiteral("JournalBadge"));
    setTextFormat(Qt::PlainText);
    SetLeastCharacters(nLeastJournalCharacters);
    SetElideMode(Qt::ElideRight);
    setVisible(false);
}

void CJournalField::SetReason(const QString& strReasonIn)
{
    strReason = strReasonIn;
    UpdateText();
    setVisible(!strReason.isEmpty());
}

void CJournalField::changeEvent(QEvent* event)
{
    CElidedLabel::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
    }
}

void CJournalField::UpdateText()
{
    setText(tr("Journal not written: %1").arg(strReason));
    setToolTip(Qt::convertFromPlainText(text(), Qt::WhiteSpaceNormal));
}
