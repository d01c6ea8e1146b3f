#pragma once

#include <QString>

struct SProcessorAllNode;

/// A list as text, one node per line, members indented.
namespace ListText {

/// What a user gives a list: names, groups, order, Chiefs, and the address: "    alpha 192.168.1.20 Chief". Nothing
/// that devices report and nothing that is folded.
QString Build(const SProcessorAllNode& node);

/// As Build, with all that a list records: ids, types, ports, numbers. Trees of equal text are the same nodes.
QString BuildExact(const SProcessorAllNode& node);

/// As BuildExact, with what devices report and what is folded: trees of equal text are the same records.
QString BuildWhole(const SProcessorAllNode& node);

} // namespace ListText
