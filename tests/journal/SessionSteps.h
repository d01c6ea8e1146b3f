#pragma once

#include "CRecordedSession.h"

/// Sessions that tests record.
namespace SessionSteps {

/// Everything that a user does with the list; a file to import is at strImport.
std::vector<SSessionStep> All(const QString& strImport);

/// A few selections.
std::vector<SSessionStep> Selections();

/// Some selections, a group whose id the panel makes, and a row deleted.
std::vector<SSessionStep> Short();

/// Devices that change in bursts.
QByteArray Storm();

} // namespace SessionSteps
