// Corvantis.ini with the Windows profile-function rules.

#include "Settings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_IniSettings : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_saved;

    void writeIni(const QByteArray& text) {
        QFile file(Settings::IniPath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QString readIni() {
        QFile file(Settings::IniPath());
        if (!file.open(QIODevice::ReadOnly))
            return QString();
        return QString::fromUtf8(file.readAll());
    }

private slots:
    void init() {
        m_saved = qEnvironmentVariable("CORVANTIS_INI_DIR");
        qputenv("CORVANTIS_INI_DIR", m_dir.path().toUtf8());
        QFile::remove(Settings::IniPath());
    }
    void cleanup() { qputenv("CORVANTIS_INI_DIR", m_saved.toUtf8()); }

    void iniLiesInTheFolderOfTheVariable() {
        QCOMPARE(Settings::IniPath(), m_dir.path() + "/Corvantis.ini");
    }

    void missingFileGivesTheDefault() {
        QCOMPARE(Settings::GetPrivateProfileString("Options", "MaxSIsToShow", "100"),
                 QString("100"));
        QCOMPARE(Settings::GetPrivateProfileInt("Options", "MaxSIsToShow", 100), 100);
    }

    void sectionsAndKeysIgnoreLetterCase() {
        writeIni("[OPTIONS]\nmaxsistoshow=250\n");
        QCOMPARE(Settings::GetPrivateProfileString("Options", "MaxSIsToShow", "100"),
                 QString("250"));
        QCOMPARE(Settings::GetPrivateProfileInt("options", "MAXSISTOSHOW", 100), 250);
    }

    void valuesComeBackVerbatim() {
        writeIni("[Options]\nIsSampleMode = True\nPath=C:\\Data\\a, b;c\n");
        QCOMPARE(Settings::GetPrivateProfileString("Options", "IsSampleMode"), QString("True"));
        QCOMPARE(Settings::GetPrivateProfileString("Options", "Path"), QString("C:\\Data\\a, b;c"));
    }

    void missingKeyInAnExistingSectionGivesTheDefault() {
        writeIni("[Options]\nA=1\n[Other]\nB=2\n");
        QCOMPARE(Settings::GetPrivateProfileString("Options", "B", "none"), QString("none"));
        QCOMPARE(Settings::GetPrivateProfileInt("Options", "A", 7), 1);
    }

    void notANumberGivesTheIntDefault() {
        writeIni("[Options]\nA=lots\n");
        QCOMPARE(Settings::GetPrivateProfileInt("Options", "A", 7), 7);
    }

    void writeCreatesFileSectionAndKey() {
        QVERIFY(Settings::WritePrivateProfileString("Options", "IsSampleMode", "True"));
        QCOMPARE(Settings::GetPrivateProfileString("options", "issamplemode"), QString("True"));
    }

    void writeReplacesInPlaceAndKeepsEverythingElse() {
        writeIni("; settings of Corvantis\n[Options]\nA=1\nb=2\n\n[Paths]\nData=/x\n");
        QVERIFY(Settings::WritePrivateProfileString("OPTIONS", "B", "3"));
        QVERIFY(Settings::WritePrivateProfileString("Options", "C", "4"));
        QCOMPARE(
            readIni(),
            QString("; settings of Corvantis\n[Options]\nA=1\nb=3\nC=4\n\n[Paths]\nData=/x\n"));
    }

    void deleteRemovesOneKey() {
        writeIni("[Options]\nA=1\nB=2\n");
        QVERIFY(Settings::DeletePrivateProfileKey("options", "a"));
        QCOMPARE(readIni(), QString("[Options]\nB=2\n"));
    }

    void dataFolderComesFromPathsData() {
        writeIni("[Paths]\nData=/srv/corvantis/\n");
        QCOMPARE(Settings::DataFolder(), QString("/srv/corvantis"));
        writeIni("[Paths]\nData=/srv/corvantis/Corvantis.pdb\n");
        QCOMPARE(Settings::DataFolder(), QString("/srv/corvantis"));
        QFile::remove(Settings::IniPath());
        QVERIFY(Settings::DataFolder().endsWith("/Corvantis"));
    }
};

QTEST_GUILESS_MAIN(tst_IniSettings)
#include "tst_IniSettings.moc"
