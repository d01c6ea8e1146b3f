#include "Kestrel/CControlLoader.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/CBareControlHost.h"
#include "Kestrel/LibraryFile.h"

#include <QFile>
#include <QLibrary>

#include <dlfcn.h>
#include <link.h>

namespace {

constexpr char szLibrary[] = "CorvidControl";
constexpr char szCreateHost[] = "CorvidControl_CreateHost";

// Where a library that is loaded lies in memory.
void* GetBase(const QString& strFile)
{
    void* pHandle = dlopen(QFile::encodeName(strFile).constData(), RTLD_LAZY | RTLD_NOLOAD);
    link_map* pMap = nullptr;
    const bool bFound = pHandle && dlinfo(pHandle, RTLD_DI_LINKMAP, &pMap) == 0;
    if (pHandle) {
        dlclose(pHandle);
    }
    return bFound ? reinterpret_cast<void*>(pMap->l_addr) : nullptr;
}

} // namespace

std::unique_ptr<IControlHost> CControlLoader::Load(const QString& strFile, const SControlOptions& options, const CJobs& jobs)
{
    Q_ASSERT(GuiThread::IsCurrent());
    QLibrary library(LibraryFile::Find(strFile, QLatin1String(szLibrary)));
    Open(library);
    return strError.isEmpty() ? CreateHost(library, options, jobs) : nullptr;
}

bool CControlLoader::LoadPointers()
{
    Q_ASSERT(GuiThread::IsCurrent());
    QLibrary library(LibraryFile::Find(QString(), QLatin1String(szLibrary)));
    Open(library);
    return strError.isEmpty();
}

QString CControlLoader::GetError() const
{
    return strError;
}

QString CControlLoader::GetFileName() const
{
    return strFileName;
}

const SControlPointers& CControlLoader::GetPointers() const
{
    return pointers;
}

// Not a symbol of a library that this one needs, which resolve() finds too.
void* CControlLoader::FindOwn(QLibrary& library, const char* szName) const
{
    const auto pSymbol = reinterpret_cast<void*>(library.resolve(szName));
    Dl_info info{};
    if (!pSymbol || dladdr(pSymbol, &info) == 0) {
        return nullptr;
    }
    return info.dli_fbase == GetBase(strFileName) ? pSymbol : nullptr;
}

template <typename Object> void CControlLoader::Find(QLibrary& library, const char* szName, Object**& ppObject)
{
    ppObject = static_cast<Object**>(FindOwn(library, szName));
    if (!ppObject) {
        Fail(QStringLiteral("%1 is no control library: it has no %2").arg(strFileName, QLatin1String(szName)));
    }
}

template <typename Object> void CControlLoader::Check(const char* szName, Object* const* ppObject)
{
    if (!*ppObject) {
        Fail(QStringLiteral("%1 has set no %2").arg(strFileName, QLatin1String(szName)));
    }
}

void CControlLoader::Open(QLibrary& library)
{
    library.setLoadHints(QLibrary::ExportExternalSymbolsHint | QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!library.load()) {
        Fail(library.errorString());
        return;
    }
    strFileName = library.fileName();
    FindPointers(library);
}

void CControlLoader::FindPointers(QLibrary& library)
{
    Find(library, "g_pConfigControl", pointers.ppConfig);
    Find(library, "g_pPrcBasicControl", pointers.ppPrcBasic);
    Find(library, "g_pPrcListControl", pointers.ppPrcList);
    Find(library, "g_pPrcRuntimeControl", pointers.ppPrcRuntime);
    Find(library, "g_pPreferenceControl", pointers.ppPreference);
    Find(library, "g_pProjectManageControl", pointers.ppProjectManage);
    Find(library, "g_pProtocalControl", pointers.ppProtocal);
    Find(library, "g_pRuntimeControl", pointers.ppRuntime);
}

void CControlLoader::CheckPointers()
{
    Check("g_pConfigControl", pointers.ppConfig);
    Check("g_pPrcBasicControl", pointers.ppPrcBasic);
    Check("g_pPrcListControl", pointers.ppPrcList);
    Check("g_pPrcRuntimeControl", pointers.ppPrcRuntime);
    Check("g_pPreferenceControl", pointers.ppPreference);
    Check("g_pProjectManageControl", pointers.ppProjectManage);
    Check("g_pProtocalControl", pointers.ppProtocal);
    Check("g_pRuntimeControl", pointers.ppRuntime);
}

std::unique_ptr<IControlHost> CControlLoader::CreateHost(QLibrary& library, const SControlOptions& options, const CJobs& jobs)
{
    std::unique_ptr<IControlHost> pHost;
    const auto pCreate = reinterpret_cast<decltype(&CorvidControl_CreateHost)>(FindOwn(library, szCreateHost));
    if (pCreate) {
        pHost.reset(pCreate(options));
    }
    if (pCreate && !pHost) {
        Fail(QStringLiteral("%1 was built for another version of Kestrel").arg(strFileName));
    }
    CheckPointers();
    if (!strError.isEmpty()) {
        return nullptr;
    }
    return pHost ? std::move(pHost) : std::make_unique<CBareControlHost>(pointers, jobs);
}

void CControlLoader::Fail(const QString& strReason)
{
    if (strError.isEmpty()) {
        strError = strReason;
    }
}
