#pragma once

#include <QByteArray>

#include <atomic>
#include <functional>

/// While it lives, a call of the system fails in this process on files whose name fits, which no rights and
/// no full disk could bring about for root. One at a time. CFileFaults.cpp stands in for the calls: link it
/// into the test program itself.
class CFileFaults
{
public:
    enum EnCall
    {
        CallStatus,   ///< stat
        CallLink,     ///< lstat
        CallReadLink, ///< readlink
        CallClose,    ///< closes all the same
        CallRead,
        CallWrite,
        CallSync,
        CallMode,     ///< fchmod
        CallRename,   ///< by the name that the file is to get
        CallRenameNew ///< the same, where nothing must be overwritten
    };

    static constexpr int nFlip = -1; ///< as nErrorIn: the call does its work, but changes one bit

    /// pattern as fnmatch takes it. The first nSkipIn calls that fit go well.
    CFileFaults(EnCall callIn, const QByteArray& patternIn, int nErrorIn, int nSkipIn = 0);

    /// Instead of failing the first call does its work, after something else has happened.
    CFileFaults(EnCall callIn, const QByteArray& patternIn, const std::function<void()>& beforeIn);
    ~CFileFaults();
    CFileFaults(const CFileFaults&) = delete;
    CFileFaults& operator=(const CFileFaults&) = delete;

    /// How many calls have failed, or have been preceded.
    int GetFailed() const
    {
        return nFailed;
    }

    /// For the stand-ins: 0, or with what this call is to fail.
    static int Find(EnCall call, const char* szPath);
    static int Find(EnCall call, int nFile);

private:
    const EnCall call;
    const QByteArray pattern;
    const int nError;
    const std::function<void()> before;
    std::atomic<int> nSkip;
    std::atomic<int> nFailed{ 0 };
};
