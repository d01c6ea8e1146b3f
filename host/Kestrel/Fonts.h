#pragma once

#include <QString>

/// The fonts of the system.
namespace Fonts {

/// One sentence when there is none, so that each letter would be an empty box; else empty. An application exists.
QString FindFault();

} // namespace Fonts
