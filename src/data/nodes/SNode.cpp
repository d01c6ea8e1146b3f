#include "nodes/SNode.h"

bool SNode::MatchText(const QString& strText)
{
    Q_UNUSED(strText)
    return false;
}
