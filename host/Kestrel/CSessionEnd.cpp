#include "Kestrel/CSessionEnd.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/CMainWindow.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

CSessionEnd::CSessionEnd(CMainWindow& windowIn, const QStringList& listRestartIn) : window(windowIn), listRestart(listRestartIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    // Qt's own answer closes the windows while the user may still cancel, and a job that runs would cancel for him.
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &CSessionEnd::Commit, Qt::DirectConnection);
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this, &CSessionEnd::SaveState, Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
}

bool CSessionEnd::eventFilter(QObject* watched, QEvent* event)
{
    // The last window's close sends the same event, and then it is to be obeyed.
    if (watched != qGuiApp || event->type() != QEvent::Quit || !window.isVisible()) {
        return QObject::eventFilter(watched, event);
    }
    window.EndUnattended();
    return true;
}

void CSessionEnd::Commit(QSessionManager& manager)
{
    if (!window.SaveList([&manager] { return manager.allowsInteraction(); })) {
        manager.cancel();
    }
    manager.release();
}

void CSessionEnd::SaveState(QSessionManager& manager)
{
    manager.setRestartCommand(listRestart);
}
