#pragma once

#include <QStringList>

class QMenu;
class QWidget;

/// Looks for texts that do not fit: what a user would see as cut off.
namespace ClippingFaults {

/// One line per fault of the window and all that is visible in it: a text wider or higher than its widget, a widget that
/// reaches out of its parent, two widgets of a layout one over the other, two mnemonics that are the same, a cell of a table
/// with less room than its text. What shortens itself on purpose (CElidedLabel, the rows of the panel) does not count.
QStringList FindInWindow(const QWidget* pWindow);

/// The same of a menu that is open, without its sub-menus.
QStringList FindInMenu(const QMenu* pMenu);

} // namespace ClippingFaults
