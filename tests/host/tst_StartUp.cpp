// What happens before the main window opens: the command line, the settings
// file, sample mode and the database that is opened.
#include "CommandLine.h"
#include "DataAccess.h"
#include "Settings.h"
#include "StartUp.h"

#include "foundations/ErrorReport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_StartUp : public QObject {
    Q_OBJECT

private slots:
    void init() {
        QFile::remove(Settings::IniPath());
        DataAccess::Instance().CloseDatabase();
    }
    void cleanup() { DataAccess::Instance().CloseDatabase(); }

    void commandLineKnowsSampleAndScreenshot() {
        const CommandLine plain = CommandLine::Parse(QStringList{QStringLiteral("corvantis")});
        QVERIFY(!plain.sample);
        QVERIFY(!plain.IsScreenshot());
        const CommandLine both =
            CommandLine::Parse({QStringLiteral("corvantis"), QStringLiteral("--sample"),
                                QStringLiteral("--screenshot"), QStringLiteral("/tmp/shots")});
        QVERIFY(both.sample);
        QCOMPARE(both.screenshotDir, QStringLiteral("/tmp/shots"));
        QCOMPARE(
            CommandLine::Parse({QStringLiteral("corvantis"), QStringLiteral("--screenshot=/tmp/x")})
                .screenshotDir,
            QStringLiteral("/tmp/x"));
        QVERIFY(CommandLine::Parse({QStringLiteral("corvantis"), QStringLiteral("-platform"),
                                    QStringLiteral("offscreen")})
                    .error.isEmpty());
    }

    void screenshotWithoutAFolderIsRefused() {
        const CommandLine line =
            CommandLine::Parse({QStringLiteral("corvantis"), QStringLiteral("--screenshot")});
        QVERIFY(!line.IsScreenshot());
        QCOMPARE(line.error, QStringLiteral("--screenshot needs the folder to write into"));
    }

    void firstStartWithoutSettingsFileGoesIntoSampleMode() {
        QVERIFY(!QFile::exists(Settings::IniPath()));
        const StartUp start = StartUp::Run(CommandLine());
        QVERIFY(start.firstStart);
        QVERIFY(start.sampleMode);
        QVERIFY2(start.DatabaseOpen(), qPrintable(start.errorMessage));
        QCOMPARE(start.databasePath, DataAccess::SampleDatabasePath());
        QCOMPARE(DataAccess::Instance().DatabasePath(), DataAccess::SampleDatabasePath());
        QVERIFY(start.WindowTitle().contains(QStringLiteral("Sample Mode")));
        // The choice is written down, so that the options show it and the next start keeps it.
        QCOMPARE(Settings::GetPrivateProfileString(QStringLiteral("Options"),
                                                   QStringLiteral("IsSampleMode")),
                 QStringLiteral("True"));
        QVERIFY(!StartUp::Run(CommandLine()).firstStart);
    }

    void configuredDatabaseOpensWhenSampleModeIsOff() {
        QTemporaryDir data;
        Settings::WritePrivateProfileString(
            QStringLiteral("Options"), QStringLiteral("IsSampleMode"), QStringLiteral("False"));
        Settings::WritePrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"),
                                            data.path());
        const StartUp start = StartUp::Run(CommandLine());
        QVERIFY(!start.firstStart);
        QVERIFY(!start.sampleMode);
        QVERIFY2(start.DatabaseOpen(), qPrintable(start.errorMessage));
        QCOMPARE(QDir::cleanPath(start.databasePath),
                 QDir::cleanPath(data.path() + QStringLiteral("/Corvantis.pdb")));
        QVERIFY(QFile::exists(start.databasePath));
        QCOMPARE(start.WindowTitle(), QStringLiteral("Corvantis"));
    }

    void missingSampleModeKeyReadsAsNotSample() {
        QTemporaryDir data;
        Settings::WritePrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"),
                                            data.path());
        const StartUp start = StartUp::Run(CommandLine());
        QVERIFY(!start.sampleMode);
        QCOMPARE(start.WindowTitle(), QStringLiteral("Corvantis"));
    }

    void sampleFlagOpensTheSampleAndLeavesTheSettingsAlone() {
        QTemporaryDir data;
        Settings::WritePrivateProfileString(
            QStringLiteral("Options"), QStringLiteral("IsSampleMode"), QStringLiteral("False"));
        Settings::WritePrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"),
                                            data.path());
        CommandLine line;
        line.sample = true;
        const StartUp start = StartUp::Run(line);
        QVERIFY(start.sampleMode);
        QCOMPARE(start.databasePath, DataAccess::SampleDatabasePath());
        QCOMPARE(Settings::GetPrivateProfileString(QStringLiteral("Options"),
                                                   QStringLiteral("IsSampleMode")),
                 QStringLiteral("False"));
    }

    void databaseThatCannotBeOpenedFallsBackToTheSample() {
        QTemporaryDir data;
        // A file where the data folder should be: no database can be made there.
        const QString blocker = data.filePath(QStringLiteral("not-a-folder"));
        QFile file(blocker);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        Settings::WritePrivateProfileString(
            QStringLiteral("Options"), QStringLiteral("IsSampleMode"), QStringLiteral("False"));
        Settings::WritePrivateProfileString(QStringLiteral("Paths"), QStringLiteral("Data"),
                                            blocker);
        const StartUp start = StartUp::Run(CommandLine());
        QVERIFY(start.fellBackToSample);
        QVERIFY(start.sampleMode);
        QVERIFY(start.DatabaseOpen());
        QCOMPARE(start.databasePath, DataAccess::SampleDatabasePath());
        QVERIFY(start.WindowTitle().contains(QStringLiteral("Sample Mode")));
    }

    void supportAddressComesFromTheSettingsFile() {
        Settings::WritePrivateProfileString(QStringLiteral("Options"), StartUp::SupportAddressKey(),
                                            QStringLiteral("help@stmarys.example"));
        StartUp::Run(CommandLine());
        QCOMPARE(ErrorReport::SupportAddress(), QStringLiteral("help@stmarys.example"));
    }

    void startupTabIsRead() {
        Settings::WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("StartupTab"),
                                            QStringLiteral("Templates"));
        QCOMPARE(StartUp::Run(CommandLine()).startupTab, QStringLiteral("Templates"));
    }
};

QTEST_MAIN(tst_StartUp)
#include "tst_StartUp.moc"
