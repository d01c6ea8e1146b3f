#pragma once

#include <QMap>
#include <QModelIndex>
#include <QUuid>

class QTreeView;

/// The map from ids to rows inside the model of the shipped library, which exports none of its classes.
namespace IdMap {

/// That of a tree of the panel. GUI thread.
QMap<QUuid, QModelIndex> Get(const QTreeView* pTree);

} // namespace IdMap
