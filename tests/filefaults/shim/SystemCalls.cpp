// In place of the C library's functions, for all of the program that this library is preloaded into: those by which
// the list's files, Qt's lock and its listing of folders reach the system.

#include "CFaultPlan.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

template <typename Function> Function FindNext(Function /*replaced*/, const char* szName)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, szName));
}

// The call by its next function, or its failure. what: a path or an open file.
template <typename Result, typename What, typename Call>
Result Run(const char* szCall, What what, Result failed, const Call& call)
{
    const int nError = CFaultPlan::Get().Take(szCall, what);
    if (nError == 0) {
        return call();
    }
    errno = nError;
    return failed;
}

mode_t TakeMode(int nFlags, va_list& arguments)
{
    return (nFlags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

// What fails to make a file fails as another call than what fails to read one: not for the same reasons.
const char* GetOpenName(int nFlags)
{
    return (nFlags & O_CREAT) != 0 ? "create" : "open";
}

// How much of a read or write is done; the call fails where nBytes is negative afterwards.
int Shorten(const char* szCall, int nFile, size_t& nBytes)
{
    const int nError = CFaultPlan::Get().Take(szCall, nFile);
    if (nError == nHalfDone) {
        nBytes = (nBytes + 1) / 2;
        return 0;
    }
    return nError;
}

} // namespace

extern "C" {

int open(const char* szPath, int nFlags, ...)
{
    static const auto next = FindNext(&open, "open");
    va_list arguments;
    va_start(arguments, nFlags);
    const mode_t nMode = TakeMode(nFlags, arguments);
    va_end(arguments);
    return Run(GetOpenName(nFlags), szPath, -1, [&] { return next(szPath, nFlags, nMode); });
}

int open64(const char* szPath, int nFlags, ...)
{
    static const auto next = FindNext(&open64, "open64");
    va_list arguments;
    va_start(arguments, nFlags);
    const mode_t nMode = TakeMode(nFlags, arguments);
    va_end(arguments);
    return Run(GetOpenName(nFlags), szPath, -1, [&] { return next(szPath, nFlags, nMode); });
}

int stat(const char* szPath, struct stat* pStatus) noexcept
{
    static const auto next = FindNext(&stat, "stat");
    return Run("stat", szPath, -1, [&] { return next(szPath, pStatus); });
}

int stat64(const char* szPath, struct stat64* pStatus) noexcept
{
    static const auto next = FindNext(&stat64, "stat64");
    return Run("stat", szPath, -1, [&] { return next(szPath, pStatus); });
}

int lstat(const char* szPath, struct stat* pStatus) noexcept
{
    static const auto next = FindNext(&lstat, "lstat");
    return Run("lstat", szPath, -1, [&] { return next(szPath, pStatus); });
}

int lstat64(const char* szPath, struct stat64* pStatus) noexcept
{
    static const auto next = FindNext(&lstat64, "lstat64");
    return Run("lstat", szPath, -1, [&] { return next(szPath, pStatus); });
}

int fstat(int nFile, struct stat* pStatus) noexcept
{
    static const auto next = FindNext(&fstat, "fstat");
    return Run("fstat", nFile, -1, [&] { return next(nFile, pStatus); });
}

int fstat64(int nFile, struct stat64* pStatus) noexcept
{
    static const auto next = FindNext(&fstat64, "fstat64");
    return Run("fstat", nFile, -1, [&] { return next(nFile, pStatus); });
}

int statx(int nFolder, const char* szPath, int nFlags, unsigned nMask, struct statx* pStatus) noexcept
{
    static const auto next = FindNext(&statx, "statx");
    const auto call = [&] { return next(nFolder, szPath, nFlags, nMask, pStatus); };
    return *szPath == '\0' ? Run("statx", nFolder, -1, call) : Run("statx", szPath, -1, call);
}

ssize_t readlink(const char* szPath, char* szTarget, size_t nBytes) noexcept
{
    static const auto next = FindNext(&readlink, "readlink");
    return Run("readlink", szPath, ssize_t(-1), [&] { return next(szPath, szTarget, nBytes); });
}

int access(const char* szPath, int nMode) noexcept
{
    static const auto next = FindNext(&access, "access");
    return Run("access", szPath, -1, [&] { return next(szPath, nMode); });
}

int faccessat(int nFolder, const char* szPath, int nMode, int nFlags) noexcept
{
    static const auto next = FindNext(&faccessat, "faccessat");
    return Run("access", szPath, -1, [&] { return next(nFolder, szPath, nMode, nFlags); });
}

ssize_t read(int nFile, void* pBuffer, size_t nBytes)
{
    static const auto next = FindNext(&read, "read");
    const int nError = Shorten("read", nFile, nBytes);
    errno = nError;
    return nError == 0 ? next(nFile, pBuffer, nBytes) : -1;
}

ssize_t write(int nFile, const void* pBuffer, size_t nBytes)
{
    static const auto next = FindNext(&write, "write");
    const int nError = Shorten("write", nFile, nBytes);
    errno = nError;
    return nError == 0 ? next(nFile, pBuffer, nBytes) : -1;
}

// The disk itself is not waited for: it is not what is being tried.
int fsync(int nFile)
{
    const int nError = CFaultPlan::Get().Take("fsync", nFile);
    if (nError != 0) {
        CFaultPlan::Get().Lose(nFile);
    }
    errno = nError;
    return nError == 0 ? 0 : -1;
}

int fdatasync(int nFile)
{
    return Run("fdatasync", nFile, -1, [] { return 0; });
}

// Closes in any case, as Linux does.
int close(int nFile)
{
    static const auto next = FindNext(&close, "close");
    const int nError = CFaultPlan::Get().Take("close", nFile);
    if (nError != 0 && (fcntl(nFile, F_GETFL) & O_ACCMODE) != O_RDONLY) {
        CFaultPlan::Get().Lose(nFile);
    }
    const int nResult = next(nFile);
    errno = nError != 0 ? nError : errno;
    return nError != 0 ? -1 : nResult;
}

int rename(const char* szFrom, const char* szTo) noexcept
{
    static const auto next = FindNext(&rename, "rename");
    return Run("rename", szTo, -1, [&] { return next(szFrom, szTo); });
}

int renameat2(int nFrom, const char* szFrom, int nTo, const char* szTo, unsigned nFlags) noexcept
{
    static const auto next = FindNext(&renameat2, "renameat2");
    return Run("renameat2", szTo, -1, [&] {
        errno = EINVAL;
        return CFaultPlan::Get().KnowsFlags() ? next(nFrom, szFrom, nTo, szTo, nFlags) : -1;
    });
}

int link(const char* szFrom, const char* szTo) noexcept
{
    static const auto next = FindNext(&link, "link");
    return Run("link", szTo, -1, [&] { return next(szFrom, szTo); });
}

int unlink(const char* szPath) noexcept
{
    static const auto next = FindNext(&unlink, "unlink");
    return Run("unlink", szPath, -1, [&] { return next(szPath); });
}

int fchown(int nFile, uid_t nUser, gid_t nGroup) noexcept
{
    static const auto next = FindNext(&fchown, "fchown");
    return Run("fchown", nFile, -1, [&] { return next(nFile, nUser, nGroup); });
}

int fchmod(int nFile, mode_t nMode) noexcept
{
    static const auto next = FindNext(&fchmod, "fchmod");
    return Run("fchmod", nFile, -1, [&] { return next(nFile, nMode); });
}

int flock(int nFile, int nOperation) noexcept
{
    static const auto next = FindNext(&flock, "flock");
    return Run("flock", nFile, -1, [&] { return next(nFile, nOperation); });
}

DIR* opendir(const char* szPath)
{
    static const auto next = FindNext(&opendir, "opendir");
    return Run("opendir", szPath, static_cast<DIR*>(nullptr), [&] { return next(szPath); });
}

struct dirent64* readdir64(DIR* pFolder)
{
    static const auto next = FindNext(&readdir64, "readdir64");
    return Run("readdir", dirfd(pFolder), static_cast<struct dirent64*>(nullptr), [&] { return next(pFolder); });
}

int closedir(DIR* pFolder)
{
    static const auto next = FindNext(&closedir, "closedir");
    const int nError = CFaultPlan::Get().Take("closedir", dirfd(pFolder));
    const int nResult = next(pFolder);
    errno = nError != 0 ? nError : errno;
    return nError != 0 ? -1 : nResult;
}

int mkdir(const char* szPath, mode_t nMode) noexcept
{
    static const auto next = FindNext(&mkdir, "mkdir");
    return Run("mkdir", szPath, -1, [&] { return next(szPath, nMode); });
}

} // extern "C"
