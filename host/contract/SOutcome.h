#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

/// What became of a promise, or of one attempt at it.
struct SOutcome
{
    enum EnResult
    {
        Kept,
        Broken,
        Untried, ///< the library offers no way to try it; the reason says why
    };

    EnResult result = Kept;
    QString strReason;                   ///< one sentence; empty when kept
    QStringList listStory;               ///< the calls that led to it, in order; one line each
    std::chrono::milliseconds time{ 0 }; ///< of all attempts together
    QString strAlone;                    ///< the file that has broken it among several; empty for none
};

/// For the checks: what they return.
namespace Outcome {

inline SOutcome Keep()
{
    return {};
}

inline SOutcome Break(const QString& strReason)
{
    return { SOutcome::Broken, strReason, {}, {}, {} };
}

inline SOutcome LeaveUntried(const QString& strReason)
{
    return { SOutcome::Untried, strReason, {}, {}, {} };
}

/// Kept for an empty fault.
inline SOutcome Judge(const QString& strFault)
{
    return strFault.isEmpty() ? Keep() : Break(strFault);
}

} // namespace Outcome
