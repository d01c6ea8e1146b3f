#pragma once

#include "interfaces/control/SLocalAddress.h"
#include "nodes/SProcessorAllNode.h"

#include <QMap>

#include <optional>
#include <vector>

/// What the doubled control objects answer. A test sets fields through CControlDouble::Set().
struct SControlAnswers
{
    SProcessorAllNode nodeDiscovered;          ///< GetDiscoveredTree
    SProcessorAllNode nodeSimulator;           ///< GetSimulatorTree
    std::vector<QUuid> vecDiscoveredSelection; ///< GetSelectedNodes(false)
    std::vector<QUuid> vecSimulatorSelection;  ///< GetSelectedNodes(true)
    bool bSimulatorPane = false;               ///< IsSimulatorPane
    bool bListLocked = false;                  ///< IsListLocked
    bool bRefreshBlocked = false;              ///< IsRefreshBlocked
    bool bChiefMode = false;                   ///< IsChiefMode
    QString strProject;                        ///< GetProjectInfo
    bool bSelectionAccepted = true;            ///< result of SetSelectedNodes
    QSet<QUuid> setActive;                     ///< IsNodeActive is true for these
    QSet<QUuid> setInUse;                      ///< IsNodeInUse is true for these
    QSet<QUuid> setDeleteBlocked;              ///< IsDeleteBlocked is true for these
    qint32 nExportResult = 0;                  ///< ExportList, which writes no file
    qint32 nImportResult = 0;                  ///< ImportList, which reads no file
    qint32 nNextGroupIndex = 1;                ///< GetNextGroupIndex
    QString strListFilePath;                   ///< GetListFilePath
    QList<uint> listReservedIP;                ///< GetReservedIPs
    SLocalAddress addressLocal;                ///< GetLocalAddress
    QMap<qint32, QString> mapTypeName;         ///< GetTypeName; "Type <n>" for a number that is missing

    QList<SProcessorGroupNode> listGroupAdded; ///< written by AddGroup: what it was handed, whole

    /// Unset: taken from the trees and the selection of the current pane.
    std::optional<std::vector<QUuid>> vecSelectedProcessors; ///< GetSelectedProcessors; selected, or in a selected group
    std::optional<qint32> nSimulatorCount;                   ///< GetSimulatorCount; processors of the Simulator tree
    std::optional<std::vector<uint>> vecListIP;              ///< GetProcessorIPs; of the Discovered tree, in its order

    /// SetSelectedNodes (when accepted), SetSimulatorPane and SetExpanded change the fields above, and
    /// PostMessage delivers, as a library does. Off: they are only written down.
    bool bFaithful = true;

    SProcessorAllNode& Tree(bool bSimulator);
    std::vector<QUuid>& Selection(bool bSimulator);

    std::vector<QUuid> SelectedProcessors();
    qint32 SimulatorCount() const;
    std::vector<uint> ListIPs() const;
    qint32 NodeType(const QUuid& id) const; ///< EnNodeType, 0 for an unknown id
    void SetExpanded(const QUuid& id, bool bExpanded);
};
