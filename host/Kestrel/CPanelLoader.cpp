#include "Kestrel/CPanelLoader.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/LibraryFile.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/ProcessorTreeViewInit.h"

#include <QLibrary>

namespace {

constexpr char szSymbol[] = "_Z23CProcessorTreeView_InitPP13ICorvidWidgetP13IUIManagement";
constexpr char szLibrary[] = "ProcessorTreeView";

} // namespace

std::unique_ptr<ICorvidWidget> CPanelLoader::Load(const QString& strFile, IUIManagement& management)
{
    Q_ASSERT(GuiThread::IsCurrent());
    QLibrary library(LibraryFile::Find(strFile, QLatin1String(szLibrary)));
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    const auto pInit = reinterpret_cast<decltype(&CProcessorTreeView_Init)>(library.resolve(szSymbol));
    if (!pInit) {
        strError = library.isLoaded() ? QStringLiteral("%1 has no symbol %2").arg(library.fileName(), QLatin1String(szSymbol))
                                      : library.errorString();
        return nullptr;
    }
    ICorvidWidget* pWidget = nullptr;
    if (pInit(&pWidget, &management) != 1 || !pWidget) {
        strError = QStringLiteral("%1 made no panel").arg(library.fileName());
    }
    return std::unique_ptr<ICorvidWidget>(pWidget);
}

QString CPanelLoader::GetError() const
{
    return strError;
}
