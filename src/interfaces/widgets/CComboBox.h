#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QScopedPointer>
#include <QVariant>
#include <QWidget>

class CMenu;
class QStyleOptionComboBox;

/// A button that shows one entry of a menu and lets the user choose another. Entries are the menu's
/// actions, known by their data. Space, F4, Alt+Down or a press opens the menu; Up, Down, Home, End and
/// the first letter choose without it.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CComboBox : public QWidget
{
    Q_OBJECT

public:
    explicit CComboBox(QWidget* parent);
    ~CComboBox() override;

    /// The menu with the entries, which stays owned by its parent. bMatchWidth makes the menu at least
    /// as wide as the box.
    void SetMenu(CMenu* pMenu, bool bMatchWidth);

    /// Selects the entry whose data is id; an unknown id changes nothing. bNotify emits SelectChanged
    /// when the entry is another one than before.
    void SetCurrentByID(const QVariant& id, bool bNotify);

    /// Shows or hides an entry in the menu. A hidden entry that is selected stays selected.
    void SetActionVisible(const QVariant& id, bool bVisible);

    /// Data of the selected entry; invalid when there is none.
    QVariant GetCurSelData() const;

    /// Text of the selected entry, without the mark of its mnemonic; empty when there is none.
    QString GetCurSelText() const;

    QSize sizeHint() const override;

signals:
    /// The user chose another entry; id is its data.
    void SelectChanged(const QVariant& id);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void InitStyleOption(QStyleOptionComboBox& option) const;
    void ChooseByLetter(QKeyEvent* event);

    class CPrivate;
    QScopedPointer<CPrivate> d;
};
