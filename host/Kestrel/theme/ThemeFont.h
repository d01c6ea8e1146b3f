#pragma once

class QFont;

/// The font of the application, in all themes.
namespace ThemeFont {

/// The application exists.
QFont Get();

} // namespace ThemeFont
