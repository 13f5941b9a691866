#pragma once

// The prologue of the console's members: one place names the class, so that
// every member's trace line and failure prefix are made the same way.
//
//   RunMember("SIPartChanged").Arg(QStringLiteral("lngPartID"), lngPartID).Enter();
//   RunMember("cmdForward_Click").Enter().Guarded([&] { ... });

#include "foundations/MemberEntry.h"

inline MemberEntry RunMember(const char* strMember) {
    return MemberEntry(QStringLiteral("ctlRun"), QString::fromLatin1(strMember));
}
