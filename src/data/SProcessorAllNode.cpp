#include "data/SProcessorAllNode.h"

#include "data/EnNodeType.h"

SProcessorAllNode::SProcessorAllNode() : SNode(QStringLiteral("All processors"), NodeAll) { }
