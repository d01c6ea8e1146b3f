#include "CWindowFixture.h"

#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "nodes/SProcessorGroupNode.h"

#include <QApplication>

CWindowFixture::CWindowFixture(const FnPrepare& fnPrepare, int nScanMs)
    : pHost(Start(fnPrepare, nScanMs)), window(*pHost, pointers, log, language, theme)
{
    window.show();
    QApplication::setActiveWindow(&window);
}

void CWindowFixture::AddGroup(const QString& strName)
{
    SProcessorGroupNode group;
    group.idNode = QUuid::createUuid();
    group.strName = strName;
    g_pPrcListControl->AddGroup(group, true);
}

QString CWindowFixture::ListPath() const
{
    return folder.filePath(QStringLiteral("list.kvtl"));
}

std::unique_ptr<CControlHost> CWindowFixture::Start(const FnPrepare& fnPrepare, int nScanMs) const
{
    if (fnPrepare) {
        fnPrepare(ListPath());
    }
    SControlOptions options;
    options.strListFile = ListPath();
    options.bQuietDay = false;
    options.nScanMs = nScanMs;
    return CControlHost::Start(options);
}
