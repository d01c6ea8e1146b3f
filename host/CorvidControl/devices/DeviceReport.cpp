#include "CorvidControl/devices/DeviceReport.h"

#include "CorvidControl/list/NameRules.h"

#include <QHostAddress>

namespace {

constexpr qint32 nMaxRole = 2;

} // namespace

SProcessorNode DeviceReport::Mend(const SProcessorNode& device)
{
    SProcessorNode processor = device;
    const QString strAddress = QHostAddress(device.nIP).toString();
    processor.strName = NameRules::Mend(device.strName, strAddress);
    if (!NameRules::FindFault(processor.strName).isEmpty()) {
        processor.strName = strAddress;
    }
    processor.strType = NameRules::MendText(device.strType);
    processor.strProject = NameRules::MendText(device.strProject);
    processor.nFailover = device.nFailover < 0 || device.nFailover > nMaxRole ? 0 : device.nFailover;
    return processor;
}

SProcessorNode DeviceReport::TakeState(const SProcessorNode& recorded, const SProcessorNode& report)
{
    SProcessorNode processor = recorded;
    processor.bOnline = report.bOnline;
    processor.nFailover = report.nFailover;
    processor.strProject = report.strProject;
    return processor;
}
