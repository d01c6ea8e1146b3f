#pragma once

#include <QString>

#include <mutex>

/// The calls of an attempt, written line by line as they are made, so that they outlive a library that hangs or
/// crashes. The first word of a line says what it is; CAttempt reads them. All operations may be called on any
/// thread.
class CStory
{
public:
    /// Writes to nFile, an open descriptor that stays the caller's.
    explicit CStory(int nFileIn) : nFile(nFileIn) { }

    void Prepare(const QString& strCall); ///< a call that only makes something to work on
    void Begin();                         ///< the preparations are over: from now on the attempt's deadline counts
    void Call(const QString& strCall);    ///< before it is made
    void Read(const QString& strCall);    ///< as Call, for what belongs to the story only if it never returns
    void Return();                        ///< the last call or reading has returned
    void Answer(const QString& strText);  ///< what the last call returned
    void Tell(const QString& strKey, const QString& strText); ///< a result of the attempt, such as "broken"

private:
    void Write(const QString& strKey, const QString& strText);

    const int nFile;
    std::mutex mutex; ///< keeps the lines apart
};
