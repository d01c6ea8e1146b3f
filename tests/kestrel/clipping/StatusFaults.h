#pragma once

#include <QStringList>

class QStatusBar;

/// Looks for texts of Kestrel's status bar that a user would not get to see.
namespace StatusFaults {

/// One line per fault: a field that reaches out of the bar or lies over another, a text that is elided and not in the
/// field's tool tip, one that has given way and is not in the tip of the mark that says so, a reason of a refusal or a text
/// about work of which fewer than 16 letters are seen.
QStringList Find(const QStatusBar& bar);

/// The texts that have given way.
QStringList GetGone(const QStatusBar& bar);

/// How many texts there are, with those that have given way.
int CountTexts(const QStatusBar& bar);

} // namespace StatusFaults
