#include "CFileFaults.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::atomic<CFileFaults*> pFaults{ nullptr };

template <typename Function> Function FindNext(const char* szName)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, szName));
}

} // namespace

CFileFaults::CFileFaults(EnCall callIn, const QByteArray& patternIn, int nErrorIn, int nSkipIn)
    : call(callIn), pattern(patternIn), nError(nErrorIn), nSkip(nSkipIn)
{
    pFaults = this;
}

CFileFaults::CFileFaults(EnCall callIn, const QByteArray& patternIn, const std::function<void()>& beforeIn)
    : call(callIn), pattern(patternIn), nError(0), before(beforeIn), nSkip(0)
{
    pFaults = this;
}

CFileFaults::~CFileFaults()
{
    pFaults = nullptr;
}

int CFileFaults::Find(EnCall call, const char* szPath)
{
    CFileFaults* pThis = pFaults;
    if (!pThis || pThis->call != call) {
        return 0;
    }
    const char* szSlash = std::strrchr(szPath, '/');
    if (fnmatch(pThis->pattern.constData(), szSlash ? szSlash + 1 : szPath, 0) != 0 || pThis->nSkip-- > 0) {
        return 0;
    }
    if (++pThis->nFailed == 1 && pThis->before) {
        pThis->before();
    }
    return pThis->nError;
}

int CFileFaults::Find(EnCall call, int nFile)
{
    if (!pFaults) {
        return 0;
    }
    char szPath[PATH_MAX] = {};
    char szLink[64] = {};
    std::snprintf(szLink, sizeof szLink, "/proc/self/fd/%d", nFile);
    return readlink(szLink, szPath, sizeof szPath - 1) > 0 ? Find(call, szPath) : 0;
}

// In place of the system's, for all of this program and its libraries.
extern "C" {

int stat(const char* szPath, struct stat* pStatus) noexcept
{
    static const auto next = FindNext<int (*)(const char*, struct stat*)>("stat");
    const int nError = CFileFaults::Find(CFileFaults::CallStatus, szPath);
    errno = nError;
    return nError != 0 ? -1 : next(szPath, pStatus);
}

int lstat(const char* szPath, struct stat* pStatus) noexcept
{
    static const auto next = FindNext<int (*)(const char*, struct stat*)>("lstat");
    const int nError = CFileFaults::Find(CFileFaults::CallLink, szPath);
    errno = nError;
    return nError != 0 ? -1 : next(szPath, pStatus);
}

ssize_t readlink(const char* szPath, char* szTarget, size_t nBytes) noexcept
{
    static const auto next = FindNext<ssize_t (*)(const char*, char*, size_t)>("readlink");
    const int nError = CFileFaults::Find(CFileFaults::CallReadLink, szPath);
    errno = nError;
    return nError != 0 ? -1 : next(szPath, szTarget, nBytes);
}

int close(int nFile)
{
    static const auto next = FindNext<int (*)(int)>("close");
    const int nError = CFileFaults::Find(CFileFaults::CallClose, nFile);
    const int nResult = next(nFile);
    errno = nError != 0 ? nError : errno;
    return nError != 0 ? -1 : nResult;
}

ssize_t read(int nFile, void* pBuffer, size_t nBytes)
{
    static const auto next = FindNext<ssize_t (*)(int, void*, size_t)>("read");
    const int nError = CFileFaults::Find(CFileFaults::CallRead, nFile);
    if (nError > 0) {
        errno = nError;
        return -1;
    }
    const ssize_t nRead = next(nFile, pBuffer, nBytes);
    if (nError == CFileFaults::nFlip && nRead > 0) {
        static_cast<char*>(pBuffer)[nRead / 2] ^= 1;
    }
    return nRead;
}

ssize_t write(int nFile, const void* pBuffer, size_t nBytes)
{
    static const auto next = FindNext<ssize_t (*)(int, const void*, size_t)>("write");
    const int nError = CFileFaults::Find(CFileFaults::CallWrite, nFile);
    errno = nError;
    return nError != 0 ? -1 : next(nFile, pBuffer, nBytes);
}

int fsync(int nFile)
{
    static const auto next = FindNext<int (*)(int)>("fsync");
    const int nError = CFileFaults::Find(CFileFaults::CallSync, nFile);
    errno = nError;
    return nError != 0 ? -1 : next(nFile);
}

int fchmod(int nFile, mode_t nMode) noexcept
{
    static const auto next = FindNext<int (*)(int, mode_t)>("fchmod");
    const int nError = CFileFaults::Find(CFileFaults::CallMode, nFile);
    errno = nError;
    return nError != 0 ? -1 : next(nFile, nMode);
}

int rename(const char* szFrom, const char* szTo) noexcept
{
    static const auto next = FindNext<int (*)(const char*, const char*)>("rename");
    const int nError = CFileFaults::Find(CFileFaults::CallRename, szTo);
    errno = nError;
    return nError != 0 ? -1 : next(szFrom, szTo);
}

int renameat2(int nFrom, const char* szFrom, int nTo, const char* szTo, unsigned nFlags) noexcept
{
    static const auto next = FindNext<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    const int nError = CFileFaults::Find(CFileFaults::CallRenameNew, szTo);
    errno = nError;
    return nError != 0 ? -1 : next(nFrom, szFrom, nTo, szTo, nFlags);
}

} // extern "C"
