#include "CorvidControl/file/CListLock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>

namespace {

constexpr qint64 nMaxMakingSeconds = 10; // no process takes that long from creating a lock to filling it

} // namespace

CListLock::EnState CListLock::Take(const QString& strRealPath)
{
    if (pFile && strPath != strRealPath) {
        Release();
    }
    if (!pFile) {
        strPath = strRealPath;
        pFile = std::make_unique<QLockFile>(strPath + QStringLiteral(".lock"));
        pFile->setStaleLockTime(0); // an old lock is no stale one, its process may run for days
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

// Two kinds that QLockFile takes for living ones: that of a process which had the number that this one has
// now, as in a container that was started again, and an empty one after a loss of power. It is removed only
// when no process has it open with a lock of the system's on it.
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
