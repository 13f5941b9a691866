// The road of a service from the editor to the console: planned in ctlService,
// stored, then run in ctlRun by a host; the console runs the rows in the
// planned order, Blank rows included, rows hidden at run time left out.
#include "RunTestHost.h"
#include "ScriptedPlatform.h"
#include "ServiceFixture.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"
#include "run/ctlRun.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

using namespace ServiceFixture;

class tst_ctlService_Road : public QObject {
    Q_OBJECT
private slots:
    void aPlannedServiceRunsInItsOrderWithBlanksAndWithoutHiddenRows();
};

void tst_ctlService_Road::aPlannedServiceRunsInItsOrderWithBlanksAndWithoutHiddenRows() {
    TestDatabase db;
    QVERIFY2(db.IsValid(), qPrintable(db.LastError()));
    ScriptedPlatform platform;
    Library lib;
    QVERIFY2(lib.Seed(db), qPrintable(db.LastError()));
    // A new service, as the service gallery makes it.
    QString error;
    qint32 service = 0;
    DataAccess::Instance().AddService(error, service);
    QVERIFY2(service > 0, qPrintable(error));

    {
        ctlService editor;
        editor.SSTab1->setCurrentIndex(1);
        Show(editor, service);
        editor.txtServiceName->setText("Next Sunday");
        editor.cboTypes->setEditText("Morning Worship");
        // grace, Blank, notices (hidden), francis
        for (qint32 id : {lib.grace, 1, lib.notices, lib.francis}) {
            if (id == 1) {
                editor.cmdAddBlank->click();
                continue;
            }
            editor.ctlServiceItemGallery1->SelectServiceItem(id);
            QVERIFY(editor.cmdMoveOneSIToService->isEnabled());
            editor.cmdMoveOneSIToService->click();
        }
        editor.fgItemsInService->setCurrentCell(3, ctlService::colShowAtRunTime);
        editor.cboYesNo->setCurrentIndex(1);
        emit editor.cboYesNo->activated(1);
        QCOMPARE(Column(editor, ctlService::colShowAtRunTime),
                 QStringList({"Yes", "Yes", "No", "Yes"}));
        editor.cmdApplyChanges->click();
        QCOMPARE(platform.BoxCount(), 0);
        QVERIFY(!editor.cmdApplyChanges->isEnabled());
    }

    ctlRun console;
    RunTestHost host(&console);
    QVERIFY2(host.LoadService(service), qPrintable(host.LastError()));
    QCOMPARE(host.ItemCount(), qint16(3));
    QCOMPARE(host.ItemID(1), lib.grace);
    QCOMPARE(host.ItemID(2), 1);
    QCOMPARE(host.ItemID(3), lib.francis);
    // Forward through the service: each item shows in turn.
    QList<qint32> shown{host.ItemID(host.CurrentItem())};
    for (int press = 0; press < 10 && !host.IsPastEndOfService(); ++press) {
        console.cmdForward->click();
        if (!host.IsPastEndOfService() && shown.last() != host.ItemID(host.CurrentItem()))
            shown << host.ItemID(host.CurrentItem());
    }
    QCOMPARE(shown, QList<qint32>({lib.grace, 1, lib.francis}));
}

QTEST_MAIN(tst_ctlService_Road)
#include "tst_ctlService_Road.moc"
