#include "nodes/SProcessorAllNode.h"

#include "nodes/EnNodeType.h"

SProcessorAllNode::SProcessorAllNode() : SNode(QStringLiteral("All processors"), NodeAll) { }
