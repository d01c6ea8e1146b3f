#pragma once

#include "CorvidControl/file/SListReading.h"
#include "CorvidControl/list/SListLimits.h"

#include <QByteArray>

/// List files as bytes, see docs/list-file-format.md. Pure functions without state, for any thread.
class CListFormat
{
public:
    static constexpr int nVersion = 1;

    /// What happens to names with ends to trim, control characters, nothing visible or a turned direction.
    enum EnNames
    {
        NamesStrict, ///< the list is refused
        NamesMended  ///< they are mended, with a line in the reading each
    };

    /// The same list always gives the same bytes, and reading them gives the same list.
    static QByteArray Write(const SProcessorAllNode& node);

    /// Bears any bytes. Never takes a part of a list.
    static SListReading Read(const QByteArray& bytes, const SListLimits& limits, EnNames names = NamesStrict);

    /// As Read, for what stands behind the first line: without version and check sum.
    static SListReading ReadBody(const QByteArray& bytes, const SListLimits& limits, EnNames names = NamesStrict);

    /// Why a list that was just written could not be read again, in a few words; empty when it can.
    static QString FindProofFault(const QByteArray& bytes, const SListLimits& limits);

    CListFormat() = delete;

private:
    static QString FindHeaderFault(const QByteArray& line, const QByteArray& body);
};
