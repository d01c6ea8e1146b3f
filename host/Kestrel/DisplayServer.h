#pragma once

class QString;

/// The display server that the window goes to. Before the application object, which ends the process with a dump of its
/// memory where it reaches none.
namespace DisplayServer {

/// Leaves the choice to Qt where that finds a display, and has it take the Wayland one where no X server answers.
/// Returns why there will be no window, in one sentence that says what to do; empty when there will be one. A
/// platform that the environment asks for is kept.
QString Choose();

} // namespace DisplayServer
