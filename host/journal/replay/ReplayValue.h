#pragma once

#include "journal/recording/JournalValue.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>

#include <vector>

/// Arguments and results of calls as a recording has them, and back. What does not fit reads as nothing.
namespace ReplayValue {

QJsonValue Write(const JournalValue& value);

std::vector<QUuid> ReadIds(const QJsonValue& value);
quint32 ReadAddress(const QJsonValue& value);
std::vector<uint> ReadAddresses(const QJsonValue& value);

/// Sets what value has; the rest stays.
void ReadProject(const QJsonValue& value, SProjectInfo& info);

/// The text is an id: 36 characters without braces.
bool IsId(const QString& strText);

/// Calls fn for every id in a value, at any depth, also for null ids.
template <typename Fn> void ForEachId(const QJsonValue& value, Fn fn);

} // namespace ReplayValue

template <typename Fn> void ReplayValue::ForEachId(const QJsonValue& value, Fn fn)
{
    if (value.isString() && IsId(value.toString())) {
        fn(value.toString());
    }
    const QJsonArray array = value.toArray();
    for (const QJsonValue& element : array) {
        ForEachId(element, fn);
    }
    const QJsonObject object = value.toObject();
    for (const QJsonValue& element : object) {
        ForEachId(element, fn);
    }
}
