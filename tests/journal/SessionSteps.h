#pragma once

#include "CRecordedSession.h"

/// Sessions that tests record.
namespace SessionSteps {

/// A click on the row of that name.
SSessionStep Click(const QString& strRow);

/// Everything that a user does with the list; a file to import is at strImport.
std::vector<SSessionStep> All(const QString& strImport);

/// A few selections.
std::vector<SSessionStep> Selections();

/// Some selections, a group whose id the panel makes, and a row deleted.
std::vector<SSessionStep> Short();

/// A simulator is added and the list refreshed again and again, before the user goes back to the devices. Like any user he has
/// seen them first: until then what the panel calls depends on time.
std::vector<SSessionStep> InTheOtherPane();

/// Devices that change in bursts.
QByteArray Storm();

} // namespace SessionSteps
