#pragma once

#include <QLineEdit>

/// One of the four places of CIPEdit. Takes a number from 0 to 255 and reports when the user wants to go on in a
/// neighbour.
class CIPField : public QLineEdit
{
    Q_OBJECT

public:
    explicit CIPField(QWidget* parent);

    /// False when the place is empty.
    bool GetValue(quint32& nValue) const;
    void SetValue(quint32 nValue);

    /// Takes the focus with its number selected, after the place before was filled up. A dot that the user
    /// types out of habit then belongs to that place and does nothing.
    void EnterAfterDigits();

signals:
    /// The user is through with this place, by the dot or by its third digit.
    void SignalDot();
    void SignalFull();
    /// The cursor leaves to the left (-1) or to the right (1).
    void SignalStep(int nDirection);
    /// Backspace at the left end (-1) or Delete at the right end (1): a digit of the neighbour goes.
    void SignalErase(int nDirection);
    /// A whole address is to be pasted.
    void SignalPasteAddress(quint32 nIP);
    /// A whole address is to be copied.
    void SignalCopyAddress();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool DealClipboardKey(QKeyEvent* event);
    bool DealMoveKey(int nKey);
    void DealDot();
    void DealTyping(QKeyEvent* event);
    void PasteText(const QString& strText);
    bool IsAtEnd() const;
    bool IsAtStart() const;

    bool bEnteredByDigits = false; ///< nothing was typed since EnterAfterDigits
};
