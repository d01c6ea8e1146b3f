#include "model/RowValue.h"

#include "data/GuiThread.h"
#include "model/EnItemRole.h"

#include <QAbstractItemModel>

int RowValue::NodeType(const QModelIndex& index)
{
    return index.data(RoleNodeType).toInt();
}

QUuid RowValue::NodeId(const QModelIndex& index)
{
    return index.data(RoleNodeId).toUuid();
}

void RowValue::Write(const QModelIndex& index, const QVariant& value, int nRole)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (auto* pModel = const_cast<QAbstractItemModel*>(index.model())) {
        pModel->setData(index, value, nRole);
    }
}
