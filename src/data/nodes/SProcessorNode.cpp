#include "nodes/SProcessorNode.h"

#include "nodes/EnNodeType.h"

#include <QHostAddress>

SProcessorNode::SProcessorNode() : SNode(QString(), NodeProcessor) { }

bool SProcessorNode::MatchText(const QString& strText)
{
    if (strText.isEmpty()) {
        bExpanded = false;
        return true;
    }
    if (strType.contains(strText, Qt::CaseInsensitive)) {
        bExpanded = true;
        return true;
    }
    if (strName.contains(strText, Qt::CaseInsensitive)) {
        bExpanded = false;
        return true;
    }
    bExpanded = QHostAddress(nIP).toString().contains(strText);
    return bExpanded;
}

bool operator==(const SProcessorNode& a, const SProcessorNode& b)
{
    return a.strName == b.strName && a.bExpanded == b.bExpanded && a.idNode == b.idNode && a.idAux == b.idAux
        && a.nModel == b.nModel && a.strType == b.strType && a.nIP == b.nIP && a.nPortA == b.nPortA && a.nPortB == b.nPortB
        && a.bOnline == b.bOnline && a.nFailover == b.nFailover && a.strProject == b.strProject && a.nChief == b.nChief;
}

bool operator!=(const SProcessorNode& a, const SProcessorNode& b)
{
    return !(a == b);
}
