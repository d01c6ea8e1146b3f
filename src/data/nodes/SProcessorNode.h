#pragma once

#include "nodes/SNode.h"

#include <QUuid>

/// A processor.
struct SProcessorNode final : SNode
{
    SProcessorNode();

    /// The first that applies: an empty text is a hit and folds the row; a hit in the type unfolds it; a
    /// hit in the name folds it; a hit in the dotted address unfolds it; everything else is no hit and
    /// folds it. Type and address are shown in the information row, hence the difference.
    bool MatchText(const QString& strText) override;

    QUuid idNode;             ///< identity, unique in its pane; shown as the UID
    QUuid idAux;              ///< of the control library; only carried and compared
    qint32 nModel = 12;       ///< processor type, in the numbering of IPrcBasicControl::GetTypeName
    QString strType;          ///< display text of the type
    quint32 nIP = 0x7F000001; ///< IPv4 address, host order
    quint32 nPortA = 9999;    ///< of the control library; only carried and compared
    quint32 nPortB = 9099;    ///< of the control library; only carried and compared
    bool bOnline = false;     ///< the processor answers
    qint32 nFailover = 0;     ///< redundancy role: 0 none, 1 Primary, 2 Backup
    QString strProject;       ///< project on the processor; empty for none
    qint32 nChief = 0;        ///< 1: the Chief of a Chief-Member arrangement
};

/// Compares all fields but nNodeType.
bool operator==(const SProcessorNode& a, const SProcessorNode& b);
bool operator!=(const SProcessorNode& a, const SProcessorNode& b);
