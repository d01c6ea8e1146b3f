// What stores do that lose lists, as a library that is preloaded before the one of faults: the good store gets the habit
// that LIST_STORE_HABIT names. The calls that a habit makes can fail as any others.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

template <typename Function> Function FindNext(Function /*replaced*/, const char* szName)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, szName));
}

bool Has(const char* szHabit)
{
    const char* szGiven = std::getenv("LIST_STORE_HABIT");
    return szGiven && std::strcmp(szGiven, szHabit) == 0;
}

// The file is emptied and filled again.
int WriteInPlace(const char* szFrom, const char* szTo)
{
    char szBytes[65536];
    const int nFrom = open(szFrom, O_RDONLY | O_CLOEXEC);
    const int nTo = open(szTo, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const ssize_t nRead = read(nFrom, szBytes, sizeof szBytes);
    const bool bDone = nTo >= 0 && nRead >= 0 && write(nTo, szBytes, static_cast<size_t>(nRead)) == nRead && fsync(nTo) == 0;
    close(nFrom);
    close(nTo);
    return bDone ? unlink(szFrom) : -1;
}

} // namespace

extern "C" {

int rename(const char* szFrom, const char* szTo) noexcept
{
    static const auto next = FindNext(&rename, "rename");
    if (Has("writes in place")) {
        return WriteInPlace(szFrom, szTo);
    }
    if (Has("removes the old list first")) {
        unlink(szTo);
    }
    return next(szFrom, szTo);
}

int fsync(int nFile)
{
    static const auto next = FindNext(&fsync, "fsync");
    const int nResult = next(nFile);
    return Has("does not ask whether the disk has it") ? 0 : nResult;
}

int close(int nFile)
{
    static const auto next = FindNext(&close, "close");
    const int nResult = next(nFile);
    return Has("does not ask whether it was closed") ? 0 : nResult;
}

} // extern "C"
