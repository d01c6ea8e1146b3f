#include "CorvidControl/file/CListLock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>

namespace {

constexpr qint64 nMaxMakingSeconds = 10; // no process takes that long from creating a lock to filling it

} // namespace

CListLock::EnState CListLock::Take(const QString& strRealPath)
{
    if (strRealPath.isEmpty()) {
        strReason = QStringLiteral("nobody knows where its links lead");
        return Impossible;
    }
    if (pFile && strPath != strRealPath) {
        Release();
    }
    if (!pFile) {
        strPath = strRealPath;
        pFile = std::make_unique<QLockFile>(strPath + QStringLiteral(".lock"));
        pFile->setStaleLockTime(0); // a lock is not stale because it is old: its process may run for days
    }
    if (pFile->isLocked() || pFile->tryLock(0) || (BreakLeftover() && pFile->tryLock(0))) {
        strReason.clear();
        return Held;
    }
    const bool bElsewhere = pFile->error() == QLockFile::LockFailedError;
    strReason = bElsewhere ? FindHolder() : QStringLiteral("no lock can be made in its folder");
    return bElsewhere ? Elsewhere : Impossible;
}

void CListLock::Release()
{
    pFile.reset();
}

// Two kinds of leftovers that QLockFile takes for live locks: that of a process whose number this one has now,
// as in a container that was restarted, and an empty one after a power failure. It is removed only if no process
// has it open under a lock of the system.
bool CListLock::BreakLeftover()
{
    if (pFile->error() != QLockFile::LockFailedError) {
        return false;
    }
    qint64 nProcess = 0;
    QString strHost;
    QString strProgram;
    if (pFile->getLockInfo(&nProcess, &strHost, &strProgram)) {
        return nProcess == QCoreApplication::applicationPid() && pFile->removeStaleLockFile();
    }
    const QDateTime timeMade = QFileInfo(strPath + QStringLiteral(".lock")).lastModified();
    return qAbs(timeMade.secsTo(QDateTime::currentDateTime())) > nMaxMakingSeconds && pFile->removeStaleLockFile();
}

QString CListLock::FindHolder() const
{
    qint64 nProcess = 0;
    QString strHost;
    QString strProgram;
    if (!pFile->getLockInfo(&nProcess, &strHost, &strProgram)) {
        return QStringLiteral("another program has it open");
    }
    return QStringLiteral("another program has it open (%1, process %2 on %3)").arg(strProgram).arg(nProcess).arg(strHost);
}
