#pragma once

#include "CorvidControl/list/SFault.h"

/// What the library takes as the name of a node. The panel's editor knows the same rules; the library
/// does not rely on it. For any thread.
namespace NameRules {

constexpr int nMaxBytes = 64;      ///< of a name, in UTF-8
constexpr int nMaxTextBytes = 256; ///< of any other text, in UTF-8

/// Why strName is refused; none when it is a good name.
SFault FindReason(const QString& strName);

/// The same in a few words; empty when it is a good name.
QString FindFault(const QString& strName);

/// strName as a command means it: line ends and control characters are blanks, the ends are trimmed.
QString Clean(const QString& strName);

/// As Clean, and without the characters that turn the direction around; strSubstitute when nothing of it
/// can be seen. What FindFault may still refuse are single characters and the length.
QString Mend(const QString& strName, const QString& strSubstitute);

/// strText as one line: line ends and control characters are blanks.
QString GetLine(const QString& strText);

/// True for text that survives the way to UTF-8 and back and holds no control characters.
bool IsCleanText(const QString& strText);

/// True for clean text of at most nMaxTextBytes: a project or the name of a type.
bool IsText(const QString& strText);

/// strText as IsText takes it: in one line, without half characters, cut at the limit.
QString MendText(const QString& strText);

} // namespace NameRules
