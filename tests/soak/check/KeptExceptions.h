#pragma once

#include "check/CExpectedSelection.h"

/// Where what looks wrong is what the panel's contract leads to, each with its reason. The whole list: what the contract makes of
/// the selection alone is no exception, but what CExpectedSelection expects.
namespace KeptExceptions {

/// A complaint of Qt or of the model tester that is the contract's own doing.
bool IsComplaint(const QString& strComplaint);

/// Why Delete, which takes the store's selection, may hit other nodes than those that look selected; empty when it may not.
QString GetReasonToHitOthers(EnApart apart);

/// Whether that key on that current row may leave a processor open on the screen and folded in the library, or the other way
/// round, until its row is replaced.
bool IsFoldApart(Qt::Key key, const SPictureKey& keyCurrent);

} // namespace KeptExceptions
