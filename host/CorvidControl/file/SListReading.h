#pragma once

#include "nodes/SProcessorAllNode.h"

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
    QStringList listMended; ///< a line for each name that was mended
    SProcessorAllNode node; ///< the list; empty for any verdict but Valid
};
