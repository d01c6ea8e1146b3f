#pragma once

class QPixmap;
class QWidget;

/// A picture of a window as it stands on the screen, with the dialogs, menus and tips that are open over it.
namespace WindowPicture {

/// GUI thread.
QPixmap Take(QWidget& window);

} // namespace WindowPicture
