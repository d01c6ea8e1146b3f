#pragma once

#include <QString>

/// The pseudo-language, in which a text that is cut, and one that is not translated at all, can be seen in the window.
namespace PseudoText {

/// strSource with accents on its letters, about two fifths longer and each line in brackets.
/// Placeholders, mnemonics, line breaks and blanks at the ends of a line stay. A text for which the window keeps a fixed
/// room is shortened in place of that, so that it fits as a translation has to.
QString Make(const QString& strContext, const QString& strSource);

} // namespace PseudoText
