#pragma once

#include <QDeadlineTimer>
#include <QMenu>
#include <QTimer>

#include <functional>

/// Acts on the next menu that opens, from inside its event loop, as a user would. When none opens, its scope
/// ends it.
class CMenuDriver
{
public:
    using FnMenu = std::function<void(QMenu*)>;

    explicit CMenuDriver(const FnMenu& fnActIn);

    /// True once the menu has come.
    bool HasActed() const;

    /// Clicks the entry through its window, and then the entry of its sub-menu, and so on. The menu may die
    /// of the last click.
    static void Choose(QMenu* pMenu, const QStringList& listPath);

    /// Goes to the entry and presses Return. The menu may die of it.
    static void ChooseByKey(QMenu* pMenu, const QString& strEntry);

    /// "Rename", "(Delete)" for a disabled entry, "Move to group: [Hall, Yard]" for one with a sub-menu.
    static QStringList Entries(const QMenu* pMenu);

private:
    void Look();

    const FnMenu fnAct;
    QTimer timer;
    QDeadlineTimer deadlineActivation{ QDeadlineTimer::Forever }; ///< runs from the coming of the menu
    bool bActed = false;
};
