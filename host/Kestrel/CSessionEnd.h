#pragma once

#include <QObject>
#include <QStringList>

class CMainWindow;
class QSessionManager;

/// The end of the desktop's session. Its manager first has every program save its work, when the user may
/// still cancel, and later tells them to end. GUI thread.
class CSessionEnd : public QObject
{
    Q_OBJECT

public:
    /// listRestartIn is what starts the program again in the next session, as it was started in this one.
    CSessionEnd(CMainWindow& windowIn, const QStringList& listRestartIn);

protected:
    /// Of the application: a demand to quit while the window stands has it closed in order first.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Commit(QSessionManager& manager);
    void SaveState(QSessionManager& manager);

    CMainWindow& window;
    const QStringList listRestart;
};
