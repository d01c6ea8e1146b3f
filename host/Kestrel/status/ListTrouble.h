#pragma once

class QString;

/// Takes apart the line in which the library says why the list was not read or is not being saved.
namespace ListTrouble {

/// False: it was read, but is not being saved.
bool IsUnread(const QString& strTrouble);

/// The file and the reason alone.
QString GetReason(const QString& strTrouble);

} // namespace ListTrouble
