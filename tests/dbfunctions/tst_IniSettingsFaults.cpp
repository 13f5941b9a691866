// Corvantis.ini under faults: a file that cannot be read is never replaced, and a write keeps
// every line it does not change byte for byte, whatever its encoding and line endings.

#include "Settings.h"
#include "TraceFile.h"
#include "WithoutRootPowers.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_IniSettingsFaults : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_saved;

    void writeIni(const QByteArray& bytes) {
        QFile file(Settings::IniPath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray readIni() {
        QFile file(Settings::IniPath());
        QFile::setPermissions(Settings::IniPath(), QFile::ReadOwner | QFile::WriteOwner);
        if (!file.open(QIODevice::ReadOnly))
            return QByteArray();
        return file.readAll();
    }

    // A file with a byte-order mark, CRLF endings, a Latin-1 line and no ending on its last line.
    static QByteArray Awkward() {
        return "\xEF\xBB\xBF; Einstellungen\r\n[Paths]\r\nData=/srv/x\r\n\r\n[Names]\r\n"
               "Owner=M\xFCller\r\nLast=1";
    }

private slots:
    void init() {
        m_saved = qEnvironmentVariable("CORVANTIS_INI_DIR");
        qputenv("CORVANTIS_INI_DIR", m_dir.path().toUtf8());
        QFile::remove(Settings::IniPath());
    }
    void cleanup() {
        QFile::setPermissions(Settings::IniPath(), QFile::ReadOwner | QFile::WriteOwner);
        qputenv("CORVANTIS_INI_DIR", m_saved.toUtf8());
    }

    void unreadableFileIsNeverReplaced() {
        const QByteArray before = "[Options]\nIsSampleMode=True\n[Paths]\nData=/srv/x\n";
        writeIni(before);
        QVERIFY(QFile::setPermissions(Settings::IniPath(), QFileDevice::Permissions()));
        TraceFile trace;
        bool written = true, deleted = true;
        {
            WithoutRootPowers asAnyUser;
            QFile probe(Settings::IniPath());
            QVERIFY2(!probe.open(QIODevice::ReadOnly), "the file should be unreadable here");
            written = Settings::WritePrivateProfileString("Options", "MaxSIsToShow", "50");
            deleted = Settings::DeletePrivateProfileKey("Options", "IsSampleMode");
        }
        QVERIFY(!written);
        QVERIFY(!deleted);
        QCOMPARE(readIni(), before);
        QVERIFY(trace.HasLineContaining("cannot be read"));
        QVERIFY(trace.HasLineContaining("nothing was written"));
    }

    void writeKeepsOtherLinesByteForByte() {
        writeIni(Awkward());
        QVERIFY(Settings::WritePrivateProfileString("Paths", "Data", "/srv/y"));
        QByteArray expected = Awkward();
        expected.replace("Data=/srv/x", "Data=/srv/y");
        QCOMPARE(readIni(), expected);
    }

    void newSectionKeepsTheFilesLineEndings() {
        writeIni(Awkward());
        QVERIFY(Settings::WritePrivateProfileString("Options", "MaxSIsToShow", "50"));
        QCOMPARE(readIni(), Awkward() + "\r\n\r\n[Options]\r\nMaxSIsToShow=50\r\n");
    }

    void deleteKeepsOtherLinesByteForByte() {
        writeIni(Awkward());
        QVERIFY(Settings::DeletePrivateProfileKey("Paths", "Data"));
        QByteArray expected = Awkward();
        expected.replace("Data=/srv/x\r\n", "");
        QCOMPARE(readIni(), expected);
    }

    void latinOneLineIsReadAsItsLetters() {
        writeIni(Awkward());
        QCOMPARE(Settings::GetPrivateProfileString("Names", "Owner"), QString("Müller"));
        QCOMPARE(Settings::GetPrivateProfileString("Names", "Last"), QString("1"));
        QCOMPARE(Settings::GetPrivateProfileString("Paths", "Data"), QString("/srv/x"));
    }
};

QTEST_GUILESS_MAIN(tst_IniSettingsFaults)
#include "tst_IniSettingsFaults.moc"
