#include "Kestrel/Fonts.h"

#include <QFontInfo>
#include <QGuiApplication>

QString Fonts::FindFault()
{
    // Qt draws boxes with a font of its own then, which has no name.
    if (!QFontInfo(QGuiApplication::font()).family().isEmpty()) {
        return {};
    }
    return QStringLiteral(
        "No font is installed, so no text can be shown; install fonts-inter and fonts-wqy-microhei, or any other font");
}
