#pragma once

#include <QJsonValue>
#include <QSharedPointer>

struct SProcessorAllNode;

/// What a call of the panel gets, with the ids of this panel. Undefined, as for an unknown id: false, 0, nothing.
struct SReplayAnswer
{
    QJsonValue value{ QJsonValue::Undefined };
    QSharedPointer<const SProcessorAllNode> pTree;
};
