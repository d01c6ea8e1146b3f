#pragma once

#include "contract/steps/Steps.h"

/// One attempt at a promise, in a process of its own.
struct SAttempt
{
    QString strControl; ///< the library on trial, as the loader takes it
    QString strFolder;  ///< of this attempt alone: its home, its list, its files
    QString strCheck;   ///< the promise, or a part of the attempt at one
    std::vector<SStep> vecStep;
    QString strFile; ///< that a part works on; of a promise, the only one to try

    /// The list of a library that takes one from its host.
    QString GetListPath() const
    {
        return strFolder + QStringLiteral("/list.kvtl");
    }
};
