#pragma once

#include <QString>

/// Where the libraries are that Kestrel loads at run time.
namespace LibraryFile {

/// The file of a library by its name without "lib": beside the program, as in a build, else in the library folder
/// of the installation, whether or not it is there. Needs an application object.
QString Find(const QString& strName);

} // namespace LibraryFile
