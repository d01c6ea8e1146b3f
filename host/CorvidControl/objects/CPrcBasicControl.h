#pragma once

#include "interfaces/control/IPrcBasicControl.h"

class CDeviceCommands;
class CMessageDispatcher;
class CProcessorList;

/// The object behind g_pPrcBasicControl.
class CPrcBasicControl final : public IPrcBasicControl
{
public:
    CPrcBasicControl(CMessageDispatcher& dispatcherIn, CProcessorList& processorsIn, CDeviceCommands& commandsIn);
    virtual ~CPrcBasicControl() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    void RefreshProcessors() override;
    void AddSimulators(SSimulatorRequest request) override;
    void AddProcessor(quint32 nIP) override;
    void RenameProcessor(QUuid idProcessor, QString strName) override;
    QString GetTypeName(qint32 nType) override;
    SLocalAddress GetLocalAddress() override;
    bool IsListLocked() override;
    bool IsRefreshBlocked() override;

private:
    CMessageDispatcher& dispatcher;
    CProcessorList& processors;
    CDeviceCommands& commands;
};
