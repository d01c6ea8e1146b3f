#include "model/RowValue.h"

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
    if (auto* pModel = const_cast<QAbstractItemModel*>(index.model())) {
        pModel->setData(index, value, nRole);
    }
}

} // namespace RowValue
