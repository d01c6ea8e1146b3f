#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QScopedPointer>
#include <QVariant>
#include <QWidget>

class CMenu;

/// A button that shows one entry of a menu and lets the user choose another. Entries are the menu's
/// actions, known by their data.
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

signals:
    /// The user chose another entry; id is its data.
    void SelectChanged(const QVariant& id);

private:
    class CPrivate;
    QScopedPointer<CPrivate> d;
};
