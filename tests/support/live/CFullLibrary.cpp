#include "live/CFullLibrary.h"

#include "Builders.h"
#include "CorvidControl/file/ListFormat.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SSimulatorRequest.h"

#include <QFile>

namespace {

constexpr qint32 nSimulatorType = 22;

SProcessorAllNode BuildList()
{
    QList<SProcessorGroupNode> listGroup;
    for (int n = 0; n < CFullLibrary::nLimit; ++n) {
        const SProcessorNode processor = Processor(QStringLiteral("Processor %1").arg(n)).Online().Ip(0x0A000001U + quint32(n));
        listGroup.append(Group(QStringLiteral("Group %1").arg(n), { processor }).Expanded(n % 2 == 0));
    }
    return Root(listGroup);
}

void Write(const QString& strPath, const QByteArray& bytes)
{
    QFile file(strPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("%s: %s", qPrintable(strPath), qPrintable(file.errorString()));
    }
}

} // namespace

CFullLibrary::CFullLibrary(const QByteArray& scenario, const CControlClock& clock) : library(Prepare(scenario), clock)
{
    FillSimulatorPane();
}

SControlOptions CFullLibrary::Prepare(const QByteArray& scenario) const
{
    SControlOptions options;
    options.bQuietDay = false;
    options.strListFile = folder.filePath(QStringLiteral("list.kvtl"));
    Write(options.strListFile, ListFormat::Write(BuildList()));
    if (!scenario.isEmpty()) {
        options.strScenarioFile = folder.filePath(QStringLiteral("day.json"));
        Write(options.strScenarioFile, scenario);
    }
    return options;
}

void CFullLibrary::FillSimulatorPane()
{
    g_pRuntimeControl->SetSimulatorPane(true);
    for (int n = 0; n < nLimit; ++n) {
        g_pPrcListControl->AddGroup(Group(QStringLiteral("Rack %1").arg(n)), true);
    }
    SSimulatorRequest request;
    request.nType = nSimulatorType;
    request.nCount = nMaxSimulators;
    g_pPrcBasicControl->AddSimulators(request);
    g_pRuntimeControl->SetSimulatorPane(false);
}
