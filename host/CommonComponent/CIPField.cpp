#include "CommonComponent/CIPField.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QRegularExpressionValidator>

#include <algorithm>

namespace {

constexpr int nDigits = 3;
constexpr quint32 nMaximum = 255;

/// Reads "a.b.c.d" with numbers of 0 to 255, blanks around it allowed. False for anything else.
bool ReadAddress(const QString& strText, quint32& nIP)
{
    const QStringList listPart = strText.trimmed().split(QLatin1Char('.'));
    if (listPart.size() != 4) {
        return false;
    }
    nIP = 0;
    return std::all_of(listPart.begin(), listPart.end(), [&nIP](const QString& strPart) {
        bool bNumber = false;
        const quint32 nPart = strPart.toUInt(&bNumber);
        nIP = nIP << 8 | (nPart & nMaximum);
        return bNumber && strPart.size() <= nDigits && nPart <= nMaximum && strPart.at(0).isDigit();
    });
}

} // namespace

CIPField::CIPField(QWidget* parent) : QLineEdit(parent)
{
    static const QRegularExpression expression(QStringLiteral("[01]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5]"));
    setObjectName(QStringLiteral("IPField"));
    setValidator(new QRegularExpressionValidator(expression, this));
    setMaxLength(nDigits);
    setFrame(false);
    setAlignment(Qt::AlignCenter);
    setAcceptDrops(false);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("255")) + 8);
}

bool CIPField::GetValue(quint32& nValue) const
{
    nValue = text().toUInt();
    return !text().isEmpty();
}

void CIPField::SetValue(quint32 nValue)
{
    setText(QString::number(nValue));
}

void CIPField::EnterAfterDigits()
{
    setFocus();
    selectAll();
    bEnteredByDigits = true;
}

void CIPField::keyPressEvent(QKeyEvent* event)
{
    const bool bPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (bPlain && event->text() == QLatin1String(".")) {
        DealDot();
    } else if (!DealClipboardKey(event) && !(bPlain && DealMoveKey(event->key()))) {
        DealTyping(event);
    }
}

void CIPField::DealDot()
{
    const bool bHabit = bEnteredByDigits;
    bEnteredByDigits = false;
    if (!bHabit && !text().isEmpty()) {
        emit SignalDot();
    }
}

void CIPField::DealTyping(QKeyEvent* event)
{
    bEnteredByDigits = false;
    const QString strBefore = text();
    QLineEdit::keyPressEvent(event);
    const bool bTyped = !event->text().isEmpty() && event->text().at(0).isDigit() && text() != strBefore;
    if (bTyped && text().size() == nDigits && IsAtEnd()) {
        emit SignalFull();
    }
}

bool CIPField::DealClipboardKey(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste)) {
        PasteText(QGuiApplication::clipboard()->text());
        return true;
    }
    if (event->matches(QKeySequence::Copy) && !hasSelectedText()) {
        emit SignalCopyAddress();
        return true;
    }
    return false;
}

bool CIPField::DealMoveKey(int nKey)
{
    if ((nKey == Qt::Key_Left && IsAtStart()) || (nKey == Qt::Key_Right && IsAtEnd())) {
        emit SignalStep(nKey == Qt::Key_Left ? -1 : 1);
        return true;
    }
    if ((nKey == Qt::Key_Backspace && IsAtStart()) || (nKey == Qt::Key_Delete && IsAtEnd())) {
        emit SignalErase(nKey == Qt::Key_Backspace ? -1 : 1);
        return true;
    }
    return false;
}

void CIPField::contextMenuEvent(QContextMenuEvent* event)
{
    const QPointer<QMenu> pMenu = createStandardContextMenu();
    const QList<QAction*> listAction = pMenu->actions();
    for (QAction* pAction : listAction) {
        if (pAction->text().startsWith(QLineEdit::tr("&Paste"))) {
            pAction->disconnect(this);
            connect(pAction, &QAction::triggered, this, [this] { PasteText(QGuiApplication::clipboard()->text()); });
        }
    }
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    pMenu->popup(event->globalPos());
}

void CIPField::mouseReleaseEvent(QMouseEvent* event)
{
    const QClipboard* pClipboard = QGuiApplication::clipboard();
    if (event->button() == Qt::MiddleButton && pClipboard->supportsSelection()) {
        PasteText(pClipboard->text(QClipboard::Selection));
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void CIPField::focusOutEvent(QFocusEvent* event)
{
    bEnteredByDigits = false;
    // Leading zeros are fine to type, but would be read as octal elsewhere.
    quint32 nValue = 0;
    if (GetValue(nValue) && text() != QString::number(nValue)) {
        SetValue(nValue);
    }
    QLineEdit::focusOutEvent(event);
}

void CIPField::PasteText(const QString& strText)
{
    quint32 nIP = 0;
    if (ReadAddress(strText, nIP)) {
        emit SignalPasteAddress(nIP);
    } else {
        insert(strText.trimmed());
    }
}

bool CIPField::IsAtEnd() const
{
    return !hasSelectedText() && cursorPosition() == text().size();
}

bool CIPField::IsAtStart() const
{
    return !hasSelectedText() && cursorPosition() == 0;
}
