#pragma once

#include "CPanelSession.h"

#include <QTemporaryDir>

#include <functional>
#include <vector>

class CRecordedRun;
class CReplayLibrary;

/// One step of a user: what must be there first, and what is done.
struct SSessionStep
{
    QString strRow; ///< the row that must be there before; empty for none
    std::function<void(CPanelSession&)> fnDo;
    std::function<bool(const CPanelSession&)> fnReady{}; ///< what must hold before, too: a refused step makes no call

    bool IsReady(const CPanelSession& session) const;
};

/// How a session is recorded.
struct SSessionPlan
{
    std::vector<SSessionStep> vecStep;
    QByteArray scenario{}; ///< for the devices; empty for none
    bool bMask = false;
    qint64 nFileBytes = 4 << 20; ///< of a file of the journal
};

/// A session with the real panel on the real control library, under decorators that are recorded as Kestrel does it.
class CRecordedSession
{
public:
    /// Takes all steps, one when the jobs of the one before are done and, without a scenario, when the panel has read what came
    /// of it; waits for the end of the scenario, and ends the panel.
    explicit CRecordedSession(const SSessionPlan& plan);

    QString GetFolder() const;

    /// As the ring does when it needs the room.
    void RemoveFirstFiles(int nCount) const;

    /// The panel's rows and selections at the end.
    QString GetText() const;

private:
    void Record(const SSessionPlan& plan);

    QTemporaryDir folder;
    QString strText;
};
