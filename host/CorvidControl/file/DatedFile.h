#pragma once

#include <QDateTime>
#include <QStringList>

/// Files beside a list that carry a date: "<list>.2024-05-01_12-30-00.kvtl", with a mark before the date
/// and a number behind it where a second one of the same second needs it. A list's name stands without its
/// ".kvtl". All but GetDate block for the disk. For any thread.
namespace DatedFile {

/// Writes bytes to a new file, and over none that is there. Returns its path; empty with the fault in strFault.
QString Write(const QString& strListPath, const QString& strMark, const QDateTime& date, const QByteArray& bytes,
              QString& strFault);

/// The paths of all with that mark, the oldest first. What is dated later than dateNow comes before all
/// others: a clock was wrong.
QStringList Find(const QString& strListPath, const QString& strMark, const QDateTime& dateNow);

/// The date in the name of a path that Find returned.
QDateTime GetDate(const QString& strPath);

} // namespace DatedFile
