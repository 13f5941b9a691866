#pragma once

// The set-up that the run console's suites share: a fresh database, a
// scripted platform (or a subclass of it that scripts more) and the console
// on top of them, with the helpers several suites need.
//
//   class tst_ctlRun_X : public QObject, protected RunConsoleFixture<> {
//       Q_OBJECT
//   private slots:
//       void init() { QVERIFY2(StartConsole(), qPrintable(StartError())); }
//       void cleanup() { StopConsole(); }
//       void aTest() {
//           QVERIFY(LoadService({{AddCollectForPurity()}, TestDatabase::Blank()}));
//           ...
//       }
//   };

#include "RunConsoleTest.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"

#include "run/ctlRun.h"

#include <QList>
#include <QTest>

#include <memory>

template <class PlatformType = ScriptedPlatform> class RunConsoleFixture {
protected:
    // A fresh database and platform, then the console, unless the suite makes
    // it later (after scripting the monitors, which the console reads when it
    // is made). False when the database could not be made.
    bool StartConsole(bool blnMakeConsole = true) {
        db = std::make_unique<TestDatabase>();
        if (!db->IsValid())
            return false;
        platform = std::make_unique<PlatformType>();
        if (blnMakeConsole)
            console = std::make_unique<ctlRun>();
        return true;
    }
    QString StartError() const { return db ? db->LastError() : QString(); }

    // The console goes first and the database last, so that nothing the
    // console does as it ends reaches a real box or a closed database.
    void StopConsole() {
        console.reset();
        platform.reset();
        db.reset();
    }

    // Shows the console at the size the suites work with; with blnActive it
    // must also become the active window. False when it did not.
    bool ShowConsole(bool blnActive = false) {
        console->resize(900, 700);
        console->show();
        if (!QTest::qWaitForWindowExposed(console.get()))
            return false;
        if (!blnActive)
            return true;
        console->activateWindow();
        return QTest::qWaitForWindowActive(console.get());
    }

    // Makes a service "Morning" of these rows and props and loads it into the
    // console. False when the service could not be made.
    bool LoadService(const QList<TestDatabase::Row>& rows, const QList<qint32>& props = {}) {
        const qint32 service = db->AddService(QStringLiteral("Morning"), rows);
        if (service <= 0)
            return false;
        if (!props.isEmpty() && !db->AddServicePropBag(service, props))
            return false;
        console->setRunningService(service);
        return true;
    }

    // A song of two verses and a prayer, as several suites use them.
    qint32 AddBeThouMyVision() {
        return db->AddSong(QStringLiteral("Be Thou My Vision"),
                           {{QStringLiteral("Verse 1"), QStringLiteral("Be thou my vision")},
                            {QStringLiteral("Verse 2"), QStringLiteral("Be thou my wisdom")}});
    }
    qint32 AddCollectForPurity() {
        return db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect for Purity"));
    }

    // Deletes an item behind the application's back, leaving the service rows
    // and props that name it.
    bool DeleteItemKeepingItsRows(qint32 lngSIID) {
        return db->Exec(QStringLiteral("PRAGMA foreign_keys = OFF")) &&
               db->Exec(QStringLiteral("DELETE FROM ServiceItems WHERE ServiceItemID = ?"),
                        {lngSIID}) &&
               db->Exec(QStringLiteral("PRAGMA foreign_keys = ON"));
    }

    // Runs checks written with QCOMPARE and QVERIFY and answers whether they
    // all held, so that a checking helper answers bool to its caller:
    //   bool CheckX() { return Holds([&] { QCOMPARE(...); }); }
    //   QVERIFY(CheckX());
    template <class F> static bool Holds(F&& checks) {
        checks();
        return !QTest::currentTestFailed();
    }

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<PlatformType> platform;
    std::unique_ptr<ctlRun> console;
};
