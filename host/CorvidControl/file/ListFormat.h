#pragma once

#include "CorvidControl/list/SListLimits.h"
#include "nodes/SProcessorAllNode.h"

#include <QByteArray>
#include <QStringList>

/// What a list file turned out to be.
struct SListReading
{
    enum EnVerdict
    {
        Valid,
        Invalid, ///< not a list, damaged, of another version, or against the schema
        TooLarge ///< a list with more processors or groups than the library takes
    };

    EnVerdict verdict = Invalid;
    QString strReason;      ///< in a few words, for any verdict but Valid
    QStringList listMended; ///< one line for each name that was mended
    SProcessorAllNode node; ///< the list; empty for any verdict but Valid
};

/// List files as bytes, see docs/list-file-format.md. Pure functions, for any thread.
namespace ListFormat {

constexpr int nVersion = 1;

/// What happens to names with ends to trim, control characters, nothing visible or a turned direction.
enum EnNames
{
    NamesStrict, ///< the list is refused
    NamesMended  ///< they are mended, with one line each in the reading
};

/// The same list always gives the same bytes, and reading them gives the same list.
QByteArray Write(const SProcessorAllNode& node);

/// Accepts any bytes, in bounded memory. Returns all of the list or none of it.
SListReading Read(const QByteArray& bytes, const SListLimits& limits, EnNames names = NamesStrict);

/// As Read, for what stands behind the first line: without version and check sum.
SListReading ReadBody(const QByteArray& bytes, const SListLimits& limits, EnNames names = NamesStrict);

/// Why a list that was just written could not be read again, in a few words; empty when it can.
QString FindProofFault(const QByteArray& bytes, const SListLimits& limits);

} // namespace ListFormat
