// Saves the list named by the first argument over and over, with another name of its processor each
// time, and says so, until it is killed.

#include "CorvidControl/objects/CControlHost.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "nodes/SProcessorAllNode.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    SControlOptions options;
    options.strListFile = app.arguments().value(1);
    options.bQuietDay = false;
    const std::unique_ptr<CControlHost> pHost = CControlHost::Start(options);
    SProcessorAllNode node;
    g_pPrcListControl->GetDiscoveredTree(node);
    for (int n = 0; !node.listProcessor.isEmpty(); ++n) {
        g_pPrcBasicControl->RenameProcessor(node.listProcessor.first().idNode, QStringLiteral("Version %1").arg(n));
        const qint32 nResult = g_pPrcListControl->ExportList(options.strListFile, 0);
        std::printf("%d\n", nResult);
        std::fflush(stdout);
    }
    return 1;
}
