#include "Kestrel/theme/ThemeFont.h"

#include <QFont>
#include <QStringList>

namespace {

constexpr int nFontPixels = 12;
// "Project: " and "UID: " of the panel's rows get into the 45 and 32 pixels that are kept for them.
constexpr qreal fLetterSpacing = -0.35;

} // namespace

QFont ThemeFont::Get()
{
    QFont font;
    // The second has the East Asian scripts and is no higher than the first: the panel's rows leave a line 15 pixels.
    font.setFamilies({ QStringLiteral("Inter"), QStringLiteral("WenQuanYi Micro Hei") });
    font.setPixelSize(nFontPixels);
    font.setLetterSpacing(QFont::AbsoluteSpacing, fLetterSpacing);
    return font;
}
