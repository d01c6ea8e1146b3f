#include "nodes/SProcessorNode.h"

int main()
{
    SProcessorNode node;
    node.nIP = 0x0A000001;
    SNode& base = node;
    const bool bFound = base.MatchText(QStringLiteral("10.0.0.1"));
    return bFound && node.bExpanded && node == SProcessorNode(node) ? 0 : 1;
}
