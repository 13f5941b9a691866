#pragma once

#include <QString>

// The version information of the controls library, as a host or an installer
// reads it: the description "QV Corvantis Contols" (spelt so) and the version
// 2.01. Both come from the library's CMake project, so that the build and the
// code cannot disagree.
namespace LibraryVersion {

QString Description();
// "2.01": the major version, a dot and the minor version in two digits.
QString Version();
qint16 MajorVersion();
qint16 MinorVersion();

} // namespace LibraryVersion
