#pragma once

#include <QStringList>

/// Finds the files of a recorded run.
namespace RunFiles {

/// Those of the run that a file belongs to, or, in a folder, of the run with that id, or of the last one for an empty id; in
/// the order of the run. None when there are none, with the reason in one sentence.
QStringList Find(const QString& strPath, const QString& strRun, QString& strError);

} // namespace RunFiles
