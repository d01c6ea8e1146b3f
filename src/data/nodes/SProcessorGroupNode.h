#pragma once

#include "nodes/SProcessorNode.h"

#include <QList>
#include <QSet>

/// A group of processors.
struct SProcessorGroupNode final : SNode
{
    SProcessorGroupNode();

    /// A hit in the name leaves bExpanded as it is; otherwise a hit in any member unfolds the group. The
    /// members keep their own bExpanded. An empty text is a hit in every name.
    bool MatchText(const QString& strText) override;

    QUuid idNode;                        ///< identity, not null, unique in its pane [C-node-1 required]
    QList<SProcessorNode> listProcessor; ///< members, in the order shown
    QUuid idChief;                       ///< the Chief of the group; null for none
    QSet<int> setAux;                    ///< of the control library, which keeps it; carried and compared [C-node-2 required]
};

/// Compares all fields but nNodeType.
bool operator==(const SProcessorGroupNode& a, const SProcessorGroupNode& b);
bool operator!=(const SProcessorGroupNode& a, const SProcessorGroupNode& b);
