// The zip reader and writer of the export files: what is written reads back, and a damaged or
// hostile archive is refused with a sentence, never read past its end.

#include "ZipArchive.h"

#include <QBuffer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

class tst_ZipArchive : public QObject {
    Q_OBJECT

private slots:
    void entriesComeBackAsTheyWereWritten();
    void anArchiveIsReadByOtherProgramsToo();
    void namesThatClimbOutOfTheirFolderAreUnsafe();
    void aWrongChecksumIsRefused();
    void everyCutOfAnArchiveIsRefused();
    void anArchiveThatUnpacksTooLargeIsRefused();
    void bytesThatAreNoArchiveAreRefused();

private:
    static QByteArray Archive(const QList<Zip::Entry>& entries) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        Zip::Writer zip(&buffer);
        for (const Zip::Entry& entry : entries)
            if (!zip.Add(entry.Name, entry.Data))
                return QByteArray();
        return zip.Finish() ? bytes : QByteArray();
    }
};

void tst_ZipArchive::entriesComeBackAsTheyWereWritten() {
    const QList<Zip::Entry> written = {
        {QStringLiteral("manifest.json"), QByteArray("{}")},
        {QStringLiteral("songs/Größe Gnade.xml"), QByteArray(5000, 'a')},            // deflated
        {QStringLiteral("files/2/picture.png"), QByteArray("\x89PNG\r\n\x1a\n", 8)}, // stored
        {QStringLiteral("empty.txt"), QByteArray()}};
    const QByteArray bytes = Archive(written);
    QVERIFY(Zip::LooksLikeArchive(bytes));
    QVERIFY(bytes.size() < 1000);
    QList<Zip::Entry> read;
    QString error;
    QVERIFY2(Zip::Read(bytes, read, error), qPrintable(error));
    QCOMPARE(read.size(), written.size());
    for (int n = 0; n < written.size(); ++n) {
        QCOMPARE(read.at(n).Name, written.at(n).Name);
        QCOMPARE(read.at(n).Data, written.at(n).Data);
    }
}

void tst_ZipArchive::anArchiveIsReadByOtherProgramsToo() {
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        QSKIP("python3, whose zipfile module checks the archive, is not installed here.");
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("a.cvx")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(Archive({{QStringLiteral("a.txt"), QByteArray(3000, 'x')},
                        {QStringLiteral("b/c.txt"), QByteArray("cee")}}));
    file.close();
    QProcess check;
    check.start(python,
                {QStringLiteral("-c"),
                 QStringLiteral("import sys, zipfile; z = zipfile.ZipFile(sys.argv[1]); "
                                "assert z.testzip() is None; print(','.join(z.namelist()))"),
                 file.fileName()});
    QVERIFY(check.waitForFinished(30000));
    QCOMPARE(check.exitCode(), 0);
    QCOMPARE(check.readAllStandardOutput().trimmed(), QByteArray("a.txt,b/c.txt"));
}

void tst_ZipArchive::namesThatClimbOutOfTheirFolderAreUnsafe() {
    for (const char* name :
         {"../../x", "a/../../x", "/etc/passwd", "C:x", "a\\..\\..\\x", "..", ""})
        QVERIFY2(!Zip::IsSafeName(QString::fromLatin1(name)), name);
    for (const char* name : {"manifest.json", "files/2/a..b.png", "songs/x.xml"})
        QVERIFY2(Zip::IsSafeName(QString::fromLatin1(name)), name);
    QList<Zip::Entry> read;
    QString error;
    QVERIFY(!Zip::Read(Archive({{QStringLiteral("ok.txt"), "a"}, {QStringLiteral("../x"), "b"}}),
                       read, error));
    QVERIFY(error.contains(QStringLiteral("\"../x\"")));
    QVERIFY(read.isEmpty());
}

void tst_ZipArchive::aWrongChecksumIsRefused() {
    QByteArray bytes = Archive({{QStringLiteral("a.txt"), QByteArray("abc")}});
    const qsizetype at = bytes.indexOf("abc");
    QVERIFY(at > 0);
    bytes[at] = 'x';
    QList<Zip::Entry> read;
    QString error;
    QVERIFY(!Zip::Read(bytes, read, error));
    QVERIFY2(error.contains(QStringLiteral("checksum")), qPrintable(error));
}

void tst_ZipArchive::everyCutOfAnArchiveIsRefused() {
    const QByteArray bytes = Archive({{QStringLiteral("a.txt"), QByteArray(2000, 'a')},
                                      {QStringLiteral("b.txt"), QByteArray("bee")}});
    for (qsizetype size = 0; size < bytes.size(); ++size) {
        QList<Zip::Entry> read;
        QString error;
        QVERIFY2(!Zip::Read(bytes.left(size), read, error), qPrintable(QString::number(size)));
        QVERIFY(!error.isEmpty());
    }
}

void tst_ZipArchive::anArchiveThatUnpacksTooLargeIsRefused() {
    // A small archive of zeros that would unpack to 8 MB, read with a limit of 1 MB.
    const QByteArray bytes = Archive({{QStringLiteral("zeros"), QByteArray(8 << 20, '\0')}});
    QVERIFY(bytes.size() < 100000);
    Zip::Limits limits;
    limits.MaxUnpackedBytes = 1 << 20;
    QList<Zip::Entry> read;
    QString error;
    QVERIFY(!Zip::Read(bytes, read, error, limits));
    QVERIFY2(error.contains(QStringLiteral("more than 1 MB")), qPrintable(error));
}

void tst_ZipArchive::bytesThatAreNoArchiveAreRefused() {
    QList<Zip::Entry> read;
    QString error;
    QVERIFY(!Zip::Read(QByteArray("\xff\xd8\xff\xe0 JFIF", 10), read, error));
    QVERIFY(error.contains(QStringLiteral("not a zip archive")));
    QVERIFY(!Zip::LooksLikeArchive("<?xml"));
}

QTEST_MAIN(tst_ZipArchive)
#include "tst_ZipArchive.moc"
