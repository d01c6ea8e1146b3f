#pragma once

#include "CorvidControl/objects/CObserved.h"
#include "interfaces/control/IPrcListControl.h"

class CDeviceCommands;
class CFaults;
class CListStore;
class CProcessorList;
class CReadingFaults;

/// The object behind g_pPrcListControl. Any thread. A change is followed by 1; a command that is refused
/// changes nothing, writes one line into the log and is followed by 54. A locked list refuses all but folding.
class CPrcListControl final : public CObserved<IPrcListControl, SenderPrcList>
{
public:
    /// All references must outlive it.
    CPrcListControl(CMessageDispatcher& dispatcherIn, CFaults& faultsIn, CProcessorList& processorsIn,
                    CDeviceCommands& commandsIn, CListStore& storeIn);

    /// Blocks for the disk. Returns a CListStore::EnExportResult, never 1.
    qint32 ExportList(QString strPath, qint32 nOption) override;

    /// Blocks for the disk. Returns a CListStore::EnImportResult: 6 for a locked list, beside the contract's.
    qint32 ImportList(QString strPath) override;

    /// One state of the tree; shares its lists with nobody who writes them.
    void GetDiscoveredTree(SProcessorAllNode& node) override;

    /// As GetDiscoveredTree. Simulators are in no file.
    void GetSimulatorTree(SProcessorAllNode& node) override;

    /// Without the group's processors, bEmpty or not: they are moved into it one by one. Refused for a bad
    /// name, an empty or taken id, more than 32 numbers, and where 256 groups are.
    void AddGroup(SProcessorGroupNode node, bool bEmpty) override;

    /// Blocks only with its processors, for SControlOptions::nReleaseMs, and refuses those when one is in use.
    void DeleteGroup(QUuid idGroup, bool bWithProcessors) override;

    /// Blocks for SControlOptions::nReleaseMs while the processor answers. Refused while it is in use.
    void DeleteProcessor(QUuid idProcessor, bool bOption) override;

    /// To the end of the group or of the root; where it is already it stays. Not into the other pane.
    void MoveProcessor(QUuid idProcessor, QUuid idGroup) override;

    /// Processors too. Refused for a bad name or an id that is gone.
    void RenameGroup(QUuid idGroup, QString strName) override;

    /// True for a processor that answers, and for each group.
    bool IsNodeActive(QUuid idNode) override;

    /// Also while the list is locked. An id that is gone changes nothing.
    void SetExpanded(QUuid idNode, bool bExpanded) override;

    /// 0 to 2.
    qint32 GetSimulatorCount() override;

    /// The lowest number, from 1, that no group of the current pane has behind a one-word name ("Group 3").
    qint32 GetNextGroupIndex() override;

    /// Of the Discovered list, host order, in the order shown. Appends.
    void GetProcessorIPs(std::vector<uint>& vecIP) override;

    /// EnNodeType: NodeAll for a null id, 0 for one that is gone.
    qint32 GetNodeType(QUuid idNode) override;

private:
    void Refuse(EnListCommand command, const QString& strText, const QString& strName);

    CReadingFaults& readings;
    CProcessorList& processors;
    CDeviceCommands& commands;
    CListStore& store;
};
