#include "panel/IdMap.h"

#include "model/CProcessorTreeModel.h"

#include <QTreeView>

namespace {

using IdMapField = QMap<QUuid, QModelIndex> CProcessorTreeModel::*;

IdMapField GetField();

/// Its explicit instantiation may name what is private.
template <IdMapField field> struct SFieldAccess
{
    friend IdMapField GetField()
    {
        return field;
    }
};

template struct SFieldAccess<&CProcessorTreeModel::mapIndex>;

} // namespace

// The sanitizer of types would ask for the class's type information, which the library keeps to itself.
__attribute__((no_sanitize("undefined"))) QMap<QUuid, QModelIndex> IdMap::Get(const QTreeView* pTree)
{
    return static_cast<const CProcessorTreeModel*>(pTree->model())->*GetField();
}
