#pragma once

class QString;
class QStringList;
struct SProcessorGroupNode;
struct SProcessorNode;

/// The values of a node's record that can flicker, by name, and what stands in their place then. For any thread.
namespace CarriedValues {

/// All names, in the order of the document.
QStringList GetNames();

/// Whether a group has that value; a processor has them all.
bool IsOfGroup(const QString& strName);

/// Puts another value in the place of that one; of all for an empty name. The same record gives the same lie. What a group does
/// not have stays as it is.
void Flip(SProcessorNode& processor, const QString& strName);
void Flip(SProcessorGroupNode& group, const QString& strName); ///< as above

} // namespace CarriedValues
