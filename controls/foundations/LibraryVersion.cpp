#include "foundations/LibraryVersion.h"

#ifndef QVLTCONTROLS_DESCRIPTION
#error "QVLTCONTROLS_DESCRIPTION comes from the controls library's CMake project"
#endif
#ifndef QVLTCONTROLS_VERSION
#error "QVLTCONTROLS_VERSION comes from the controls library's CMake project"
#endif

namespace LibraryVersion {

QString Description() {
    return QStringLiteral(QVLTCONTROLS_DESCRIPTION);
}

QString Version() {
    return QStringLiteral(QVLTCONTROLS_VERSION);
}

qint16 MajorVersion() {
    return static_cast<qint16>(Version().section(QLatin1Char('.'), 0, 0).toShort());
}

qint16 MinorVersion() {
    return static_cast<qint16>(Version().section(QLatin1Char('.'), 1, 1).toShort());
}

} // namespace LibraryVersion
