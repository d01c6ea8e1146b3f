#pragma once

#include <QStringList>

/// The process of an attempt.
namespace AttemptMain {

/// Makes the attempt that the arguments name, as CAttemptProcess starts it, and tells its story on the standard output,
/// which the library does not get. Returns the exit code, or ends the process.
int Run(const QStringList& listArgument);

} // namespace AttemptMain
