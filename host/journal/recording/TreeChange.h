#pragma once

#include <QJsonObject>

struct SProcessorAllNode;

/// The other way: reads what CTreeReading has written.
namespace TreeChange {

/// Makes node, the reading before, the one that object was written for.
void Apply(const QJsonObject& object, SProcessorAllNode& node);

} // namespace TreeChange
