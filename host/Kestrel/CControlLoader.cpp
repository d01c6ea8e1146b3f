#include "Kestrel/CControlLoader.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/CBareControlHost.h"
#include "Kestrel/LibraryFile.h"

#include <QLibrary>

namespace {

constexpr char szLibrary[] = "CorvidControl";
constexpr char szCreateHost[] = "CorvidControl_CreateHost";

} // namespace

std::unique_ptr<IControlHost> CControlLoader::Load(const QString& strFile, const SControlOptions& options, const CJobs& jobs)
{
    Q_ASSERT(GuiThread::IsCurrent());
    QLibrary library(LibraryFile::Find(strFile, QLatin1String(szLibrary)));
    library.setLoadHints(QLibrary::ExportExternalSymbolsHint | QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!library.load()) {
        strError = library.errorString();
        return nullptr;
    }
    FindPointers(library);
    if (!strError.isEmpty()) {
        return nullptr;
    }
    std::unique_ptr<IControlHost> pHost;
    if (const auto pCreate = reinterpret_cast<decltype(&CorvidControl_CreateHost)>(library.resolve(szCreateHost))) {
        pHost.reset(pCreate(options));
    }
    CheckPointers(library);
    if (!strError.isEmpty()) {
        return nullptr;
    }
    return pHost ? std::move(pHost) : std::make_unique<CBareControlHost>(pointers, jobs);
}

QString CControlLoader::GetError() const
{
    return strError;
}

const SControlPointers& CControlLoader::GetPointers() const
{
    return pointers;
}

template <typename Object> void CControlLoader::Find(QLibrary& library, const char* szName, Object**& ppObject)
{
    ppObject = reinterpret_cast<Object**>(library.resolve(szName));
    if (!ppObject && strError.isEmpty()) {
        strError = QStringLiteral("%1 is no control library: it has no %2").arg(library.fileName(), QLatin1String(szName));
    }
}

template <typename Object> void CControlLoader::Check(const QLibrary& library, const char* szName, Object* const* ppObject)
{
    if (!*ppObject && strError.isEmpty()) {
        strError = QStringLiteral("%1 has set no %2").arg(library.fileName(), QLatin1String(szName));
    }
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

void CControlLoader::CheckPointers(const QLibrary& library)
{
    Check(library, "g_pConfigControl", pointers.ppConfig);
    Check(library, "g_pPrcBasicControl", pointers.ppPrcBasic);
    Check(library, "g_pPrcListControl", pointers.ppPrcList);
    Check(library, "g_pPrcRuntimeControl", pointers.ppPrcRuntime);
    Check(library, "g_pPreferenceControl", pointers.ppPreference);
    Check(library, "g_pProjectManageControl", pointers.ppProjectManage);
    Check(library, "g_pProtocalControl", pointers.ppProtocal);
    Check(library, "g_pRuntimeControl", pointers.ppRuntime);
}
