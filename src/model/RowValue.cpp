#include "delegate/RowData.h"

#include "model/EnItemRole.h"

#include <QAbstractItemModel>

namespace RowData {

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

} // namespace RowData
