#include "model/SPrcNodeItem.h"

bool operator==(const SPrcNodeItem& a, const SPrcNodeItem& b)
{
    return a.rcFailover == b.rcFailover && a.rcChief == b.rcChief && a.bPrimary == b.bPrimary && a.bBackup == b.bBackup
        && a.bChief == b.bChief;
}

bool operator!=(const SPrcNodeItem& a, const SPrcNodeItem& b)
{
    return !(a == b);
}

void RegisterPrcNodeItem()
{
    static const bool bDone = [] {
        const int nType = qRegisterMetaType<SPrcNodeItem>("SPrcNodeItem");
        return QMetaType::hasRegisteredComparators(nType) || QMetaType::registerEqualsComparator<SPrcNodeItem>();
    }();
    Q_UNUSED(bDone)
}
