#pragma once

#include <QModelIndexList>
#include <QUuid>

/// What the gestures on groups send to the control library. Each takes the rows that it is meant for, passes
/// over those of the wrong kind, and reads no row after its first call: the library may end whoever shows them.
/// Changes no row, reports no failure. GUI thread.
namespace GroupCommands {

/// Adds a group with a name and an id of its own, moves the processors of listRow into it, and selects it.
void Group(const QModelIndexList& listRow);

/// Dissolves the groups of listRow, whose processors go to the root, and selects idNext, null for the root.
void Ungroup(const QModelIndexList& listRow, const QUuid& idNext);

/// Moves those processors of listRow to the root that are in a group.
void RemoveFromGroup(const QModelIndexList& listRow);

/// Moves the processors of listRow into the group, or to the root for a null id; also those that are there.
void MoveToGroup(const QModelIndexList& listRow, const QUuid& idGroup);

} // namespace GroupCommands
