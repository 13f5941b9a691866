#pragma once

#include "foundations/VBError.h"

#include <QString>
#include <utility>

// Runs f and answers the number of the VBError it threw, 0 when it threw none.
// Other exceptions pass through, so that a wrong kind of failure fails the test.
//
//   QCOMPARE(VBErrorNumberOf([&] { tree.Nodes("x"); }), 35601);
template <class F> qint32 VBErrorNumberOf(F&& f, QString* pstrDescription = nullptr) {
    try {
        std::forward<F>(f)();
    } catch (const VBError& e) {
        if (pstrDescription)
            *pstrDescription = e.Description;
        return e.Number;
    }
    return 0;
}
