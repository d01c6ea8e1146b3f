#include "Kestrel/replay/PlainDrag.h"
#include "Kestrel/GuiThread.h"

#include <QDrag>

#include <private/qdnd_p.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformdrag.h>
#include <qpa/qplatformintegration.h>

namespace {

/// A platform whose drags are Qt's own: what it inherits is all that is asked of it.
class CDragPlatform : public QPlatformIntegration
{
public:
    QPlatformWindow* createPlatformWindow(QWindow*) const override
    {
        return nullptr;
    }

    QPlatformBackingStore* createPlatformBackingStore(QWindow*) const override
    {
        return nullptr;
    }

    QAbstractEventDispatcher* createEventDispatcher() const override
    {
        return nullptr;
    }
};

CDragPlatform& GetPlatform()
{
    static CDragPlatform platform;
    return platform;
}

} // namespace

// The manager of drags asks the platform for them once, when it is made.
void PlainDrag::Install()
{
    Q_ASSERT(GuiThread::IsCurrent());
    QPlatformIntegration* const pReal = QGuiApplicationPrivate::platform_integration;
    QGuiApplicationPrivate::platform_integration = &GetPlatform();
    QDragManager::self();
    QGuiApplicationPrivate::platform_integration = pReal;
}

bool PlainDrag::IsRunning()
{
    return !QDragManager::self()->object().isNull();
}

void PlainDrag::Cancel()
{
    if (IsRunning()) {
        GetPlatform().drag()->cancelDrag();
    }
}
