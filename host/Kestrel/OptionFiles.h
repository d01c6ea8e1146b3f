#pragma once

#include <QString>

struct SKestrelOptions;

/// The files and folders that the command line names.
namespace OptionFiles {

/// Why they cannot serve, in one sentence; empty when they can: what is read or written there, or that two options name
/// one file, by whatever path. Looks at the disk and writes nothing.
QString FindFault(const SKestrelOptions& options);

} // namespace OptionFiles
