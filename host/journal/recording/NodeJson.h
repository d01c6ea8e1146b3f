#pragma once

#include <QJsonObject>

class CJournalMask;
struct SProcessorAllNode;
struct SProcessorGroupNode;
struct SProcessorNode;

/// The node records as JSON, every field of them, and back.
namespace NodeJson {

/// Without the members of a group or root, whose lists are written apart.
QJsonObject GetFields(const SProcessorNode& node, CJournalMask& mask);
QJsonObject GetFields(const SProcessorGroupNode& node, CJournalMask& mask);
QJsonObject GetFields(const SProcessorAllNode& node, CJournalMask& mask);

/// With their members.
QJsonObject GetWhole(const SProcessorNode& node, CJournalMask& mask);
QJsonObject GetWhole(const SProcessorGroupNode& node, CJournalMask& mask);
QJsonObject GetWhole(const SProcessorAllNode& node, CJournalMask& mask);

/// Sets the fields that object has; lists are replaced where it has them.
void Read(const QJsonObject& object, SProcessorNode& node);
void Read(const QJsonObject& object, SProcessorGroupNode& node);
void Read(const QJsonObject& object, SProcessorAllNode& node);

} // namespace NodeJson
