#pragma once

#include <QLineEdit>
#include <QtTest>

/// What a user does in the four places of an address field.
namespace IpEditInput {

inline QLineEdit* Place(const QWidget* pEdit, int nPlace)
{
    return pEdit->findChildren<QLineEdit*>(QStringLiteral("IPField")).at(nPlace);
}

/// Wherever the focus is.
inline void Press(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

inline void PutCaret(const QWidget* pEdit, int nPlace, int nPosition)
{
    QLineEdit* pPlace = Place(pEdit, nPlace);
    pPlace->setFocus();
    pPlace->deselect();
    pPlace->setCursorPosition(nPosition);
}

} // namespace IpEditInput
