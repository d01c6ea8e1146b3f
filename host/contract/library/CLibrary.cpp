#include "contract/library/CLibrary.h"

#include <QFile>

#include <dlfcn.h>
#include <link.h>

namespace {

constexpr const char* listName[]
    = { "g_pConfigControl",     "g_pPrcBasicControl",      "g_pPrcListControl",  "g_pPrcRuntimeControl",
        "g_pPreferenceControl", "g_pProjectManageControl", "g_pProtocalControl", "g_pRuntimeControl" };
constexpr char szCreateHost[] = "CorvidControl_CreateHost";

} // namespace

bool CLibrary::Load(const QString& strFile, const SControlOptions& options)
{
    pHandle = dlopen(QFile::encodeName(strFile).constData(), RTLD_NOW | RTLD_GLOBAL | RTLD_NODELETE);
    if (!pHandle) {
        Fail(QString::fromLocal8Bit(dlerror()));
        return false;
    }
    FindObjects();
    if (strError.isEmpty() && CreateHost(options)) {
        CheckObjects();
    }
    return strError.isEmpty();
}

QString CLibrary::GetError() const
{
    return strError;
}

IControlHost* CLibrary::GetHost() const
{
    return pHost.get();
}

void CLibrary::End()
{
    pHost.reset();
}

// Not a symbol of a library that this one needs, which dlsym() finds too.
void* CLibrary::FindOwn(const char* szName) const
{
    void* pSymbol = dlsym(pHandle, szName);
    link_map* pMap = nullptr;
    Dl_info info{};
    if (!pSymbol || dladdr(pSymbol, &info) == 0 || dlinfo(pHandle, RTLD_DI_LINKMAP, &pMap) != 0) {
        return nullptr;
    }
    return info.dli_fbase == reinterpret_cast<void*>(pMap->l_addr) ? pSymbol : nullptr;
}

void CLibrary::FindObjects()
{
    for (int n = 0; n < nObjects; ++n) {
        listPlace[n] = FindOwn(listName[n]);
        if (!listPlace[n]) {
            Fail(QStringLiteral("it has no %1 of its own").arg(QLatin1String(listName[n])));
        }
    }
}

bool CLibrary::CreateHost(const SControlOptions& options)
{
    const auto pCreate = reinterpret_cast<decltype(&CorvidControl_CreateHost)>(FindOwn(szCreateHost));
    if (!pCreate) {
        return true;
    }
    pHost.reset(pCreate(options));
    if (!pHost) {
        Fail(QStringLiteral("its CorvidControl_CreateHost was built for another version"));
    }
    return pHost != nullptr;
}

void CLibrary::CheckObjects()
{
    for (int n = 0; n < nObjects; ++n) {
        if (!*static_cast<void**>(listPlace[n])) {
            Fail(QStringLiteral("it has set no %1").arg(QLatin1String(listName[n])));
        }
    }
}

void CLibrary::Fail(const QString& strReason)
{
    if (strError.isEmpty()) {
        strError = strReason;
    }
}

template <typename Object> Object& CLibrary::Get(int nObject) const
{
    return **static_cast<Object**>(listPlace[nObject]);
}

IConfigControl& CLibrary::GetConfig() const
{
    return Get<IConfigControl>(0);
}

IPrcBasicControl& CLibrary::GetPrcBasic() const
{
    return Get<IPrcBasicControl>(1);
}

IPrcListControl& CLibrary::GetPrcList() const
{
    return Get<IPrcListControl>(2);
}

IPrcRuntimeControl& CLibrary::GetPrcRuntime() const
{
    return Get<IPrcRuntimeControl>(3);
}

IPreferenceControl& CLibrary::GetPreference() const
{
    return Get<IPreferenceControl>(4);
}

IProjectManageControl& CLibrary::GetProjectManage() const
{
    return Get<IProjectManageControl>(5);
}

IProtocalControl& CLibrary::GetProtocal() const
{
    return Get<IProtocalControl>(6);
}

IRuntimeControl& CLibrary::GetRuntime() const
{
    return Get<IRuntimeControl>(7);
}
