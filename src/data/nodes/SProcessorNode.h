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

    QUuid idNode;             ///< identity, not null, unique in its pane [C-node-1 required]; shown as the UID
    QUuid idAux;              ///< of the control library, which keeps it; carried and compared [C-node-2 required]
    qint32 nModel = 12;       ///< processor type, in the numbering of IPrcBasicControl::GetTypeName
    QString strType;          ///< display text of the type
    quint32 nIP = 0x7F000001; ///< IPv4 address, host order
    quint32 nPortA = 9999;    ///< as idAux [C-node-2 required]
    quint32 nPortB = 9099;    ///< as idAux [C-node-2 required]
    bool bOnline = false;     ///< the processor answers
    qint32 nFailover = 0;     ///< redundancy role: 0 none, 1 Primary, 2 Backup
    QString strProject;       ///< project on the processor; empty for none
    qint32 nChief = 0;        ///< 1: the Chief of a Chief-Member arrangement
};

/// Compares all fields but nNodeType.
bool operator==(const SProcessorNode& a, const SProcessorNode& b);
bool operator!=(const SProcessorNode& a, const SProcessorNode& b);
