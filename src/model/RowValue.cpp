#include "model/RowValue.h"

#include "data/GuiThread.h"
#include "model/EnItemRole.h"

#include <QAbstractItemModel>

namespace RowValue {

int NodeType(const QModelIndex& index)
{
    return index.data(RoleNodeType).toInt();
}

QUuid NodeId(const QModelIndex& index)
{
    return index.data(RoleNodeId).toUuid();
}

void Write(const QModelIndex& index, const QVariant& value, int nRole)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (auto* pModel = const_cast<QAbstractItemModel*>(index.model())) {
        pModel->setData(index, value, nRole);
    }
}

} // namespace RowValue
