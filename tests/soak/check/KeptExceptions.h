#pragma once

#include <QString>

class CExpectedSelection;

/// Where what looks wrong is what the panel's contract leads to, each with its reason. The whole list.
namespace KeptExceptions {

/// A complaint of Qt or of the model tester that is the contract's own doing.
bool IsComplaint(const QString& strComplaint);

/// Why Delete may hit other nodes than those that look selected; empty when it may not.
QString GetReasonToHitOthers(const CExpectedSelection& expected);

} // namespace KeptExceptions
