#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

/// The lock of a list: who holds it may write the list, one process at a time. It is a file beside the
/// list ("<list>.lock"). What a process left that has ended is broken. For one thread at a time.
class CListLock
{
public:
    enum EnState
    {
        Held,
        Elsewhere, ///< another process holds it
        Impossible ///< no lock can be made there
    };

    /// Takes the lock of the list at strRealPath, or keeps it. Waits for nobody.
    EnState Take(const QString& strRealPath);

    /// Why the last Take did not answer Held.
    QString GetReason() const
    {
        return strReason;
    }

    void Release();

private:
    bool BreakLeftover();
    QString FindHolder() const;

    std::unique_ptr<QLockFile> pFile;
    QString strPath; ///< of the list that pFile belongs to
    QString strReason;
};
