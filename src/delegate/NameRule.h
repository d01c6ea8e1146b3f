#pragma once

#include <QRegExp>
#include <QString>

/// What the user may type as the name of a group or a processor. Names that came from elsewhere are
/// shown whatever they hold.
namespace NameRule {

constexpr int nMaxBytes = 64; ///< of UTF-8

/// Accepts every text without one of the refused characters, the empty one included. Refused are five
/// ASCII signs, the middle dot and CJK punctuation, whose ASCII counterparts are allowed.
QRegExp Characters();

/// The name is short enough: at most nMaxBytes, however few characters that may be.
bool FitsLimit(const QString& strName);

/// Where the cursor goes when a text that got too long is put back: nPosition is where it stands in the
/// text of nRefusedLength, which is replaced by one of nValidLength (all in QChars). One place further
/// right than before the key stroke, by the contract with the host; beyond the end when it was at the end.
int CursorAfterRefusal(int nPosition, int nRefusedLength, int nValidLength);

} // namespace NameRule
