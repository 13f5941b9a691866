// The run asks for its look before every slide; the look is read again from the options row
// and the settings file only when one of them has changed, and then it is the new look.
#include "RunLook.h"
#include "Settings.h"
#include "TestDatabase.h"

#include <QtTest>

#include <memory>

class tst_RunLookKept : public QObject {
    Q_OBJECT

private slots:
    void init() {
        db = std::make_unique<TestDatabase>();
        QVERIFY(db->IsValid());
        m_savedIni = qEnvironmentVariable("CORVANTIS_INI_DIR");
        qputenv("CORVANTIS_INI_DIR", db->Folder().toUtf8());
    }
    void cleanup() {
        db.reset();
        qputenv("CORVANTIS_INI_DIR", m_savedIni.toUtf8());
    }

    void anUnchangedStoreGivesTheLookReadBefore() {
        QString err;
        const RunLook first = RunLook::FromOptionsWhenChanged(err);
        QVERIFY2(err.isEmpty(), qPrintable(err));
        QCOMPARE(RunLook::FromOptionsWhenChanged(err), first);
        QCOMPARE(RunLook::FromOptionsWhenChanged(err), RunLook::FromOptions(err));
    }

    void aChangedOptionsRowIsReadAtTheNextAsk() {
        QString err;
        RunLook::FromOptionsWhenChanged(err);
        QVERIFY(db->Exec("UPDATE Options SET RunModeFontName = 'DejaVu Serif', "
                         "RunModeFontSize = 52"));
        const RunLook look = RunLook::FromOptionsWhenChanged(err);
        QCOMPARE(look.fontName, QStringLiteral("DejaVu Serif"));
        QCOMPARE(look.fontSize, 52.0);
    }

    void aChangedSettingsFileIsReadAtTheNextAsk() {
        QString err;
        QVERIFY(!RunLook::FromOptionsWhenChanged(err).useTransitions);
        QVERIFY(Settings::WritePrivateProfileString("Options", "UseTransitions", "True"));
        QVERIFY(RunLook::FromOptionsWhenChanged(err).useTransitions);
        QVERIFY(Settings::WritePrivateProfileString("Options", "UseTransitions", "False"));
        QVERIFY(!RunLook::FromOptionsWhenChanged(err).useTransitions);
    }

    void anotherDatabaseGivesItsOwnLook() {
        QString err;
        QVERIFY(db->Exec("UPDATE Options SET RunModeFontName = 'DejaVu Serif'"));
        QCOMPARE(RunLook::FromOptionsWhenChanged(err).fontName, QStringLiteral("DejaVu Serif"));
        db.reset();
        db = std::make_unique<TestDatabase>();
        QVERIFY(db->IsValid());
        qputenv("CORVANTIS_INI_DIR", db->Folder().toUtf8());
        QCOMPARE(RunLook::FromOptionsWhenChanged(err).fontName, RunLook::FromOptions(err).fontName);
        QVERIFY(RunLook::FromOptionsWhenChanged(err).fontName != QStringLiteral("DejaVu Serif"));
    }

private:
    std::unique_ptr<TestDatabase> db;
    QString m_savedIni;
};

QTEST_MAIN(tst_RunLookKept)
#include "tst_RunLookKept.moc"
