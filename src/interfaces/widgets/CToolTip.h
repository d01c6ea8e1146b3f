#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

class QString;

/// The one tool tip of the application, at the mouse. GUI thread.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CToolTip
{
public:
    /// Shows strText at once. The tip stays within the screen.
    static void ShowText(const QString& strText);

    /// Shows strText after nDelay milliseconds; a later call of any operation takes its place.
    static void ShowTextDelay(const QString& strText, int nDelay);

    /// Hides the tip and drops a text that waits for its delay.
    static void HideText();

    /// True while a tip is on the screen; a text that waits for its delay does not count.
    static bool IsVisible();

    CToolTip() = delete;
};
