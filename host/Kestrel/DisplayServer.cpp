#include "Kestrel/DisplayServer.h"

#include <QByteArray>
#include <QDir>
#include <QLibrary>
#include <QLibraryInfo>
#include <QString>

namespace {

constexpr char szPlatform[] = "QT_QPA_PLATFORM";
constexpr char szXDisplay[] = "DISPLAY";
constexpr char szWaylandDisplay[] = "WAYLAND_DISPLAY";
constexpr int nXcbVersion = 1;
constexpr int nWaylandVersion = 0;

// Both libraries are those of Qt's own plug-ins, and needed for no more than the question.

bool HasXServer()
{
    QLibrary library(QStringLiteral("xcb"), nXcbVersion);
    const auto pConnect = reinterpret_cast<void* (*)(const char*, int*)>(library.resolve("xcb_connect"));
    const auto pHasError = reinterpret_cast<int (*)(void*)>(library.resolve("xcb_connection_has_error"));
    const auto pDisconnect = reinterpret_cast<void (*)(void*)>(library.resolve("xcb_disconnect"));
    if (!pConnect || !pHasError || !pDisconnect || qEnvironmentVariableIsEmpty(szXDisplay)) {
        return false;
    }
    void* pConnection = pConnect(nullptr, nullptr);
    const bool bConnected = pHasError(pConnection) == 0;
    pDisconnect(pConnection);
    return bConnected;
}

bool HasWayland()
{
    // A connection that the starter has made already, for one use.
    if (!qEnvironmentVariableIsEmpty("WAYLAND_SOCKET")) {
        return true;
    }
    QLibrary library(QStringLiteral("wayland-client"), nWaylandVersion);
    const auto pConnect = reinterpret_cast<void* (*)(const char*)>(library.resolve("wl_display_connect"));
    const auto pDisconnect = reinterpret_cast<void (*)(void*)>(library.resolve("wl_display_disconnect"));
    if (!pConnect || !pDisconnect || qEnvironmentVariableIsEmpty(szWaylandDisplay)) {
        return false;
    }
    void* pDisplay = pConnect(nullptr);
    if (pDisplay) {
        pDisconnect(pDisplay);
    }
    return pDisplay != nullptr;
}

bool HasWaylandPlugin()
{
    const QDir folder(QLibraryInfo::location(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    return !folder.entryList({ QStringLiteral("libqwayland-*") }, QDir::Files).isEmpty();
}

QString Describe(const char* szVariable)
{
    const QString strValue = QString::fromLocal8Bit(qgetenv(szVariable));
    return strValue.isEmpty() ? QStringLiteral("no %1").arg(QLatin1String(szVariable))
                              : QStringLiteral("%1=%2").arg(QLatin1String(szVariable), strValue);
}

QString GetNoDisplay()
{
    return QStringLiteral("No display answers (%1, %2); start Kestrel on a desktop, or without one with %3=offscreen")
        .arg(Describe(szXDisplay), Describe(szWaylandDisplay), QLatin1String(szPlatform));
}

QString FindWaylandFault()
{
    if (!HasWayland()) {
        return GetNoDisplay();
    }
    return HasWaylandPlugin() ? QString() : QStringLiteral("Qt has no plug-in for Wayland; install qtwayland5");
}

QString FindPlatformFault(const QByteArray& platform)
{
    if (platform.startsWith("wayland")) {
        return FindWaylandFault();
    }
    return platform.startsWith("xcb") && !HasXServer() ? GetNoDisplay() : QString();
}

// Of a list of platforms Qt takes the first that works.
QString FindFault(const QByteArray& platforms)
{
    QString strFault;
    const QList<QByteArray> listPlatform = platforms.split(';');
    for (const QByteArray& platform : listPlatform) {
        strFault = FindPlatformFault(platform);
        if (strFault.isEmpty()) {
            break;
        }
    }
    return strFault;
}

} // namespace

QString DisplayServer::Choose()
{
    if (!qEnvironmentVariableIsEmpty(szPlatform)) {
        return FindFault(qgetenv(szPlatform));
    }
    if (HasXServer()) {
        return {};
    }
    qputenv(szPlatform, "wayland");
    return FindWaylandFault();
}
