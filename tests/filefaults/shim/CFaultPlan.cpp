#include "CFaultPlan.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using Lock = std::lock_guard<std::mutex>;

// By the kernel, not by the C library: its functions are the ones that are replaced here.
std::string FindPath(int nFile)
{
    char szPath[PATH_MAX] = {};
    const std::string strLink = "/proc/self/fd/" + std::to_string(nFile);
    const long nLength = syscall(SYS_readlink, strLink.c_str(), szPath, sizeof szPath - 1);
    return nLength > 0 ? szPath : "";
}

} // namespace

CFaultPlan& CFaultPlan::Get()
{
    static CFaultPlan faultPlan;
    return faultPlan;
}

void CFaultPlan::Begin(const SFilePlan& planIn)
{
    const Lock lock(mutex);
    plan = planIn;
    strFolder = planIn.szFolder;
    strFailed.clear();
    nCalls = 0;
    nLog = static_cast<int>(syscall(SYS_open, planIn.szLog, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    bOn = true;
}

void CFaultPlan::End()
{
    const Lock lock(mutex);
    bOn = false;
    syscall(SYS_close, nLog);
}

int CFaultPlan::Take(const char* szCall, const char* szPath)
{
    const Lock lock(mutex);
    if (!bOn || !Counts(szPath)) {
        return 0;
    }
    const bool bFails = Fails(szCall);
    const char* szSlash = std::strrchr(szPath, '/');
    Log(std::string(szCall) + ' ' + (szSlash ? szSlash + 1 : szPath) + (bFails ? " failed" : ""));
    return bFails ? plan.nError : 0;
}

int CFaultPlan::Take(const char* szCall, int nFile)
{
    const int nErrorBefore = errno;
    const std::string strPath = FindPath(nFile);
    errno = nErrorBefore;
    return Take(szCall, strPath.c_str());
}

bool CFaultPlan::KnowsFlags()
{
    const Lock lock(mutex);
    return !bOn || !plan.bWithoutFlags;
}

void CFaultPlan::Lose(int nFile)
{
    struct stat status = {};
    const Lock lock(mutex);
    if (syscall(SYS_fstat, nFile, &status) == 0 && S_ISREG(status.st_mode)) {
        Log("lost " + std::to_string(status.st_ino));
        // For good: no other file gets that inode while the process lives. Not a second handle, which would hold its lock.
        syscall(SYS_open, ("/proc/self/fd/" + std::to_string(nFile)).c_str(), O_RDONLY | O_CLOEXEC);
    }
}

bool CFaultPlan::Counts(const char* szPath) const
{
    return std::strncmp(szPath, strFolder.c_str(), strFolder.size()) == 0
        && (szPath[strFolder.size()] == '/' || szPath[strFolder.size()] == '\0');
}

bool CFaultPlan::Fails(const char* szCall)
{
    ++nCalls;
    if (nCalls == plan.nCall) {
        strFailed = szCall;
        return true;
    }
    const bool bLater = plan.nCall > 0 && nCalls > plan.nCall;
    return bLater && (plan.length == SFilePlan::AllCalls || (plan.length == SFilePlan::SameCall && strFailed == szCall));
}

void CFaultPlan::Log(const std::string& strLine) const
{
    const std::string strWhole = strLine + '\n';
    syscall(SYS_write, nLog, strWhole.data(), strWhole.size());
}

extern "C" void FileFaults_Begin(const SFilePlan& plan)
{
    CFaultPlan::Get().Begin(plan);
}

extern "C" void FileFaults_End()
{
    CFaultPlan::Get().End();
}
