#pragma once

#include <QByteArray>
#include <QString>

/// Bytes that take the place of a file as a whole: they are written and proven beside it, under a name of
/// their own, and put into its place in one step. A kill at any moment leaves what was there. For one
/// thread at a time.
class CFileReplacement
{
public:
    enum EnResult
    {
        Placed,
        Taken, ///< there was nothing when it was looked at, but there is now
        Failed ///< see GetFault
    };

    /// All of it in place of the file at strPath, or behind the links there, whatever that is. Returns the fault; empty when
    /// it is done.
    static QString Overwrite(const QString& strPath, const QByteArray& bytes);

    /// A target that is a symbolic link is not replaced.
    explicit CFileReplacement(const QString& strTargetIn);

    /// Removes what was not placed.
    ~CFileReplacement();
    Q_DISABLE_COPY_MOVE(CFileReplacement)

    /// Once. Writes, forces to the disk and reads back; blocks for all that. Takes over mode and owner of what stands at the
    /// target, as far as this process may. False with GetFault; only a regular file that may be written is replaced.
    bool Write(const QByteArray& bytes);

    /// Once, after a Write that has returned true; blocks for the disk. bOverwrite false: only where nothing is.
    EnResult Place(bool bOverwrite);

    /// Why Write or Place did not do it, in a few words; empty when they did.
    QString GetFault() const
    {
        return strFault;
    }

private:
    bool Create();
    bool TakeOverTarget();
    bool WriteAll(const QByteArray& bytes);
    bool Fail(int nError);
    bool Fail(const QString& strReason);
    bool Close();

    const QString strTarget;
    QString strTemporary; ///< empty while there is none
    QString strFault;
    int nFile = -1;
};
