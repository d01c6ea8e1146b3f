#pragma once

#include "CorvidControl/SListLimits.h"
#include "CorvidControl/SListReading.h"

#include <QByteArray>

/// List files as bytes, see docs/list-file-format.md. Pure functions without state, for any thread.
class CListFormat
{
public:
    static constexpr int nVersion = 1;
    static constexpr int nMaxBytes = 16 * 1024 * 1024; ///< a longer file is no list

    /// The same list always gives the same bytes, and reading them gives the same list.
    static QByteArray Write(const SProcessorAllNode& node);

    /// Bears any bytes. Never takes a part of a list.
    static SListReading Read(const QByteArray& bytes, const SListLimits& limits);

    /// As Read, for what stands behind the first line: without version and check sum.
    static SListReading ReadBody(const QByteArray& bytes, const SListLimits& limits);

    CListFormat() = delete;

private:
    static QString FindHeaderFault(const QByteArray& line, const QByteArray& body);
};
