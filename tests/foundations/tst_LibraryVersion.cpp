// The controls library's version information.
#include "foundations/LibraryVersion.h"

#include <QTest>

class tst_LibraryVersion : public QObject {
    Q_OBJECT
private slots:
    void descriptionIsTheLibrarysNameAsSpelt();
    void versionIsTwoPointZeroOne();
};

void tst_LibraryVersion::descriptionIsTheLibrarysNameAsSpelt() {
    QCOMPARE(LibraryVersion::Description(), QStringLiteral("QV Corvantis Contols"));
}

void tst_LibraryVersion::versionIsTwoPointZeroOne() {
    QCOMPARE(LibraryVersion::Version(), QStringLiteral("2.01"));
    QCOMPARE(LibraryVersion::MajorVersion(), qint16(2));
    QCOMPARE(LibraryVersion::MinorVersion(), qint16(1));
}

QTEST_MAIN(tst_LibraryVersion)
#include "tst_LibraryVersion.moc"
