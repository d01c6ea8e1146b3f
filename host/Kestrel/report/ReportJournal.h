#pragma once

class QString;

/// The journal in a saved report.
namespace ReportJournal {

/// Writes the files of the journal in it, those "journal/*.jsonl", into strFolder, under their names; nothing else is
/// written, whatever the archive holds. Empty, or the reason why not: it is no archive, has no journal, or is
/// larger than a journal gets. Of a damaged archive what stands before the damage is written; strDamage then says what it is.
/// Any thread; blocks for the disk.
QString Unpack(const QString& strReport, const QString& strFolder, QString& strDamage);

} // namespace ReportJournal
