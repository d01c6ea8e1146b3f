#pragma once

/// Drags that need no window system.
namespace PlainDrag {

/// Drags of this program follow the mouse events that its windows get, on every platform: also offscreen, where there are
/// none, and on a desktop, whose own drags follow the real mouse. Before the first drag; GUI thread.
void Install();

/// A drag that began in this program is under way.
bool IsRunning();

/// Cancels it, if there is one: QDrag::cancel() asks the platform, whose drag it is not.
void Cancel();

} // namespace PlainDrag
