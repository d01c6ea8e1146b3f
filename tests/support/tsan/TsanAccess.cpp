#include "tsan/TsanAccess.h"

#include <cstdint>
#include <cstring>

#include <dlfcn.h>

extern "C" {

void __tsan_read_range(void* pBytes, unsigned long nSize);
void __tsan_write_range(void* pBytes, unsigned long nSize);
}

namespace {

/// What was found out about a page of code.
struct SCodePage
{
    std::uintptr_t nPage;
    bool bOurs;
};

constexpr unsigned nPageBits = 12;
constexpr std::size_t nCached = 256;

thread_local SCodePage t_aCached[nCached];

bool IsOfTheSystem(const char* pFile)
{
    return std::strncmp(pFile, "/usr/", 5) == 0 || std::strncmp(pFile, "/lib", 4) == 0;
}

bool IsInOurModule(const void* pCode)
{
    Dl_info info;
    return dladdr(pCode, &info) != 0 && info.dli_fname != nullptr && !IsOfTheSystem(info.dli_fname);
}

} // namespace

bool TsanQt::IsOurs(const void* pCode)
{
    const std::uintptr_t nPage = reinterpret_cast<std::uintptr_t>(pCode) >> nPageBits;
    SCodePage& page = t_aCached[nPage % nCached];
    if (page.nPage != nPage) {
        page = { nPage, IsInOurModule(pCode) };
    }
    return page.bOurs;
}

void TsanQt::Read(const void* pBytes, std::size_t nSize)
{
    __tsan_read_range(const_cast<void*>(pBytes), nSize);
}

void TsanQt::Write(const void* pBytes, std::size_t nSize)
{
    __tsan_write_range(const_cast<void*>(pBytes), nSize);
}
