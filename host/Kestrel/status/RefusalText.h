#pragma once

class QString;
struct SRefusal;

/// A refused command in the language of the user, without an end mark.
namespace RefusalText {

/// What was asked for: "Rename to Wall left".
QString GetCommand(const SRefusal& refusal);

/// Why not: "the list is locked".
QString GetReason(const SRefusal& refusal);

/// Both: "Rename to Wall left: the list is locked".
QString Get(const SRefusal& refusal);

/// One line of it: what was commanded, in any words, and the reason.
QString Join(const QString& strCommand, const SRefusal& refusal);

} // namespace RefusalText
