#pragma once

#include <QJsonObject>

struct SProcessorAllNode;
struct SProcessorGroupNode;
struct SProcessorNode;

/// A list as JSON, the counterpart of CListReader.
class CListWriter
{
public:
    static QJsonObject WriteRoot(const SProcessorAllNode& node);

    CListWriter() = delete;

private:
    static QJsonObject WriteGroup(const SProcessorGroupNode& group);
    static QJsonObject WriteProcessor(const SProcessorNode& processor);
};
