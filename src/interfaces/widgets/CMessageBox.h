#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QFlags>

class QString;
class QWidget;

/// Modal message boxes in the look of the host. GUI thread; each call blocks until the user answered.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CMessageBox
{
public:
    /// The buttons of a box, as flags, and the one that was pressed.
    enum StandardButton
    {
        ButtonNone = 0,
        ButtonOk = 1,
        ButtonYes = 2,
        ButtonNo = 4,
    };
    Q_DECLARE_FLAGS(StandardButtons, StandardButton)

    /// Shows a message. Returns the button that was pressed; ButtonNone when the box was closed by
    /// Escape or by its cross and has no ButtonNo.
    static StandardButton information(QWidget* parent, const QString& title, const QString& text, StandardButtons buttons,
                                      StandardButton defaultButton);

    /// Asks a question. As information, but closing a box that has ButtonNo counts as ButtonNo.
    static StandardButton question(QWidget* parent, const QString& title, const QString& text, StandardButtons buttons,
                                   StandardButton defaultButton);

    CMessageBox() = delete;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(CMessageBox::StandardButtons)
