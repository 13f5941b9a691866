#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

// Suites that need two real screens: A, 1024 x 768 at (0, 0), the primary, and B,
// 1920 x 1080 at (1024, 0), right of it. The offscreen platform reads its
// screens from a file when the application starts, so such a suite has its own
// main():
//
//   CORVANTIS_TWO_SCREEN_TEST_MAIN(tst_ctlRun_TwoScreens)
namespace TwoScreens {

// Writes the screen file into dir and selects the offscreen platform with it.
// Must run before the QApplication is made.
void SelectPlatform(const QTemporaryDir& dir);

template <class Test> int Run(int argc, char* argv[]) {
    QTemporaryDir dir;
    SelectPlatform(dir);
    QApplication app(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace TwoScreens

#define CORVANTIS_TWO_SCREEN_TEST_MAIN(TestClass)                                                  \
    int main(int argc, char* argv[]) {                                                             \
        return TwoScreens::Run<TestClass>(argc, argv);                                             \
    }
