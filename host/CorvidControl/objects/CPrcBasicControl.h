#pragma once

#include "CorvidControl/objects/CObserved.h"
#include "interfaces/control/IPrcBasicControl.h"

class CDeviceCommands;
class CProcessorList;

/// The object behind g_pPrcBasicControl. Any thread. A command that is refused changes nothing, writes one
/// line into the log and is followed by 54.
class CPrcBasicControl final : public CObserved<IPrcBasicControl, SenderPrcBasic>
{
public:
    /// All references must outlive it.
    CPrcBasicControl(CMessageDispatcher& dispatcherIn, CCallFaults& faults, CProcessorList& processorsIn,
                     CDeviceCommands& commandsIn);

    /// Blocks for SControlOptions::nScanMs. Refused while the list is locked or refresh is blocked.
    void RefreshProcessors() override;

    /// Never blocks. Refused as a whole for an unknown type or output, where more than two would exist, and while the
    /// list is locked.
    void AddSimulators(SSimulatorRequest request) override;

    /// Blocks for nAnswerMs, or nTimeoutMs where nothing answers. Refused for a reserved or taken address
    /// and while the list is full or locked.
    void AddProcessor(quint32 nIP) override;

    /// Groups too. Never blocks. Refused for a bad name or an id that is gone.
    void RenameProcessor(QUuid idProcessor, QString strName) override;

    /// "Type 99" for a type that is unknown.
    QString GetTypeName(qint32 nType) override;

    /// 192.168.1.2, whatever addresses the machine really has.
    SLocalAddress GetLocalAddress() override;

    /// Never waits. A change is followed by 53.
    bool IsListLocked() override;

    /// Never waits. A change is followed by 53.
    bool IsRefreshBlocked() override;

private:
    void Refuse(EnListCommand command, const QString& strText, const QString& strName);

    CProcessorList& processors;
    CDeviceCommands& commands;
};
