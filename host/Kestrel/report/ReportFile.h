#pragma once

class QJsonObject;
class QString;
struct SReport;

/// A report as one compressed archive. Any thread; blocks for the disk.
namespace ReportFile {

/// Writes it whole or not at all; not in the place of what it is made of. Empty, or one line with the reason why there is none.
QString Write(const SReport& report);

/// What runs here: system, Qt, the files of the libraries that are loaded; bMask: without those that are not installed.
QJsonObject GetVersions(bool bMask);

} // namespace ReportFile
