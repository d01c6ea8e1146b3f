#pragma once

/// The keys of a desktop.
namespace DesktopKeys {

/// Where there is no desktop, as offscreen, the standard keys are those of X11 nevertheless: Redo is Ctrl+Shift+Z, and not
/// Ctrl+Y. GUI thread; an application exists.
void Install();

} // namespace DesktopKeys
