#include "nodes/SProcessorGroupNode.h"

#include "nodes/EnNodeType.h"

#include <algorithm>

SProcessorGroupNode::SProcessorGroupNode() : SNode(QStringLiteral("Group 1"), NodeGroup) { }

bool SProcessorGroupNode::MatchText(const QString& strText)
{
    if (strName.contains(strText, Qt::CaseInsensitive)) {
        return true;
    }
    const auto fnMatches = [&strText](SProcessorNode node) { return node.MatchText(strText); };
    if (!std::any_of(listProcessor.cbegin(), listProcessor.cend(), fnMatches)) {
        return false;
    }
    bExpanded = true;
    return true;
}

bool operator==(const SProcessorGroupNode& a, const SProcessorGroupNode& b)
{
    return a.strName == b.strName && a.bExpanded == b.bExpanded && a.idNode == b.idNode && a.listProcessor == b.listProcessor
        && a.idChief == b.idChief && a.setAux == b.setAux;
}

bool operator!=(const SProcessorGroupNode& a, const SProcessorGroupNode& b)
{
    return !(a == b);
}
