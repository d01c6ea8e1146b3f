#pragma once

#include <QDialog>
#include <QMenu>
#include <QTimer>

#include <functional>

/// Answers what blocks: acts on the next menu or modal dialog that opens, from inside its event loop, as
/// a user would. One that never opens leaves the hand idle; it then ends with its scope.
class CUserHand
{
public:
    using FnMenu = std::function<void(QMenu*)>;
    using FnDialog = std::function<void(QDialog*)>;

    explicit CUserHand(const FnMenu& fnAct);
    explicit CUserHand(const FnDialog& fnAct);

    /// True once the menu or dialog has come.
    bool HasActed() const;

    /// Clicks the entry through its window, and then the entry of its sub-menu, and so on. The menu may die
    /// of the last click.
    static void Choose(QMenu* pMenu, const QStringList& listPath);

    /// Goes to the entry and presses Return. The menu may die of it.
    static void ChooseByKey(QMenu* pMenu, const QString& strEntry);

    /// "Rename", "(Delete)" for a disabled entry, "Move to group: [Hall, Yard]" for one with a sub-menu.
    static QStringList Entries(const QMenu* pMenu);

    /// Clicks a button by its text without mnemonics.
    static void ClickButton(QDialog* pDialog, const QString& strText);
    static QStringList Buttons(const QDialog* pDialog);

private:
    void Watch(const std::function<bool()>& fnTry);

    QTimer timer;
    bool bActed = false;
};
