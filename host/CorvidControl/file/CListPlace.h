#pragma once

#include "CorvidControl/file/FileAccess.h"

/// A place for a list file, and what may be overwritten there: what this object has read or written there
/// last, and nothing else. All but Forget, Adopt and the plain getters block for the disk. For one thread at a time.
class CListPlace
{
public:
    enum EnResult
    {
        Placed,
        LeftAlone,  ///< something else stands there than was read or written last
        NotWritten, ///< not even beside it
        NotReplaced ///< what stands there could not be replaced
    };

    /// A file of more than nMaxBytesIn is none of ours.
    CListPlace(const QString& strPathIn, int nMaxBytesIn);

    /// As it was named, absolute.
    QString GetPath() const
    {
        return strPath;
    }

    /// Behind the symbolic links, as they lead now, or as they have led when the system does not say: where the files beside
    /// the list are. Empty when it has never said.
    QString GetRealPath() const;

    /// Returns what stands there. It may be overwritten from now on, until Forget.
    SFileContent Load();

    /// Nothing that stands there may be overwritten.
    void Forget();

    /// Takes bytes for what stands there: they were written in another way.
    void Adopt(const QByteArray& bytes);

    /// True when bytes are what was read or written last and stand there still.
    bool Holds(const QByteArray& bytes) const;

    /// Why what stands there is not to be overwritten; empty when it may be, or when nothing is there.
    QString FindObstacle() const;

    /// What was read or written last; empty when nothing was.
    QByteArray GetKnown() const
    {
        return bytesKnown;
    }

    /// Writes bytes beside it and puts them into the place. Any result but Placed has a fault in strFault, and
    /// leaves what was there as it was.
    EnResult Replace(const QByteArray& bytes, QString& strFault);

private:
    SFileContent Look() const;
    QString FindObstacle(const SFileContent& content) const;

    const QString strPath;
    const int nMaxBytes;
    mutable QString strReal; ///< as it was found last
    QByteArray bytesKnown;   ///< null when nothing may be overwritten
};
