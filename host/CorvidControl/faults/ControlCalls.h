#pragma once

#include "controlhost/EnListCommand.h"

#include <QStringList>

#include <optional>

/// The operations of the eight control objects, named "PrcListControl.MoveProcessor" as in the journal, and the commands that
/// they carry. For any thread.
namespace ControlCalls {

/// In the order of the objects and of their slots.
const QStringList& GetAll();

/// Those that the panel calls off the GUI thread and that may wait, as a library under load does.
const QStringList& GetHeld();

/// The commands that can be refused, by their names for people: "add-group".
const QStringList& GetCommands();

/// None for a name that is not among GetCommands.
std::optional<EnListCommand> FindCommand(const QString& strName);

} // namespace ControlCalls
