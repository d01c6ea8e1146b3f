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
        Impossible ///< no lock can be made there, as in a read-only folder
    };

    /// Takes the lock of the list at strRealPath, or keeps it; Impossible where that is empty. Waits for nobody.
    EnState Take(const QString& strRealPath);

    /// Why the last Take did not return Held, in a few words; empty when it did.
    QString GetReason() const
    {
        return strReason;
    }

    /// Lets another process take it. Also when it is not held.
    void Release();

private:
    bool BreakLeftover();
    QString FindHolder() const;

    std::unique_ptr<QLockFile> pFile;
    QString strPath; ///< of the list that pFile belongs to
    QString strReason;
};
