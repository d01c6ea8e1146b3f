#pragma once

#include <QString>

/// Where the libraries are that Kestrel loads at run time.
namespace LibraryFile {

/// The file of a library. strGiven is what the user has named: a file, or a name that the system's loader looks for.
/// Where it is empty the library is the one called strName, without "lib": beside the program, as in a build, else in
/// the library folder of the installation, whether or not it is there. Needs an application object.
QString Find(const QString& strGiven, const QString& strName);

} // namespace LibraryFile
