#include "Kestrel/replay/DesktopKeys.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/replay/WindowInput.h"

#include <QVariant>

#include <memory>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformtheme.h>

namespace {

/// The platform's theme with other keys.
class CDesktopTheme : public QPlatformTheme
{
public:
    explicit CDesktopTheme(QPlatformTheme* pPlatformIn) : pPlatform(pPlatformIn) { }

    QVariant themeHint(ThemeHint hint) const override
    {
        return hint == KeyboardScheme ? QVariant(int(X11KeyboardScheme)) : pPlatform->themeHint(hint);
    }

    const QPalette* palette(Palette type) const override
    {
        return pPlatform->palette(type);
    }

    const QFont* font(Font type) const override
    {
        return pPlatform->font(type);
    }

private:
    const std::unique_ptr<QPlatformTheme> pPlatform;
};

} // namespace

// The application deletes its theme.
void DesktopKeys::Install()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (!WindowInput::HasDesktop()) {
        QGuiApplicationPrivate::platform_theme = new CDesktopTheme(QGuiApplicationPrivate::platform_theme);
    }
}
