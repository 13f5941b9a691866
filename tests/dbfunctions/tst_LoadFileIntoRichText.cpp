// Filling a rich text box from a file: text files read directly in their
// encodings, documents converted by LibreOffice Writer (a stand-in for the
// failures, the real one for the formats), and the box left as it was
// whenever the file cannot be loaded.
#include "DataAccess.h"
#include "FakeOffice.h"
#include "OfficeConversion.h"
#include "TestDatabase.h"

#include <QDir>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QtTest>

#include <memory>

namespace {
const QString kBefore = QStringLiteral("What the box held before");

// Whether the words are shown in bold somewhere in the box.
bool ShownBold(const QTextEdit& box, const QString& strWords) {
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (it.fragment().text().contains(strWords))
                return it.fragment().charFormat().fontWeight() >= QFont::Bold;
    return false;
}
} // namespace

class tst_LoadFileIntoRichText : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db; // one for the suite: LibreOffice keeps one profile
    QTemporaryDir files;
    QTextEdit box;

    QString write(const QString& strName, const QByteArray& bytes) {
        return TestDocuments::WriteIn(files, strName, bytes);
    }
    QString load(const QString& strFile) {
        QString error;
        DataAccess::Instance().LoadFileIntoRichText(strFile, &box, error);
        return error;
    }
    QHash<QString, QString> made; // format: the document made in it
    // A document made by the real LibreOffice from the test's RTF (once per format).
    QString converted(const QString& strName, const QString& strFormat) {
        if (!made.contains(strFormat)) {
            OfficeConverter converter;
            QString output, error;
            if (!converter.Convert(write("made.rtf", TestDocuments::Rtf()), strFormat, output,
                                   error))
                return QString();
            const QString strKept = files.filePath("made." + strFormat);
            QFile::copy(output, strKept);
            made.insert(strFormat, strKept);
        }
        const QString output = made.value(strFormat);
        const QString strPath = files.filePath(strName);
        QFileInfo(strPath).dir().mkpath(QStringLiteral("."));
        QFile::remove(strPath);
        return QFile::copy(output, strPath) ? strPath : QString();
    }
    void requireLibreOffice() {
        if (OfficeConverter::OfficeProgram().isEmpty())
            QSKIP("LibreOffice is not installed here; scripts/ensure-deps.sh installs it");
    }

private slots:
    void initTestCase() { db = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { db.reset(); }
    void init() { box.setPlainText(kBefore); }

    // ---- Text files ----------------------------------------------------------------
    void aUtf8TextFileIsShownAsItsText() {
        QCOMPARE(load(write("a.txt", QString::fromUtf8("Gnade – Café\nZweite Zeile").toUtf8())),
                 QString());
        QCOMPARE(box.toPlainText(), QString::fromUtf8("Gnade – Café\nZweite Zeile"));
    }

    void theMarkOfAUtf8FileIsNotShown() {
        QCOMPARE(load(write("bom.txt", "\xEF\xBB\xBFPsalm 23")), QString());
        QCOMPARE(box.toPlainText(), QString("Psalm 23"));
    }

    void aTextFileOfTheOldWindowsCodePageIsReadInIt() {
        // “Grace” – café €5 in Windows-1252: these bytes are not UTF-8.
        QCOMPARE(load(write("old.txt", "\x93Grace\x94 \x96 caf\xE9 \x80"
                                       "5")),
                 QString());
        QCOMPARE(box.toPlainText(), QString::fromUtf8("“Grace” – café €5"));
    }

    void aUtf16TextFileWithItsMarkIsRead() {
        QByteArray bytes("\xFF\xFE", 2);
        const QString strText = QStringLiteral("Amen");
        bytes.append(reinterpret_cast<const char*>(strText.utf16()), strText.size() * 2);
        QCOMPARE(load(write("wide.txt", bytes)), QString());
        QCOMPARE(box.toPlainText(), strText);
    }

    void aTextFileLoadsWithoutLibreOffice() {
        FakeOffice office(FakeOffice::Without);
        QCOMPARE(load(write("plain.txt", "Lord, have mercy")), QString());
        QCOMPARE(box.toPlainText(), QString("Lord, have mercy"));
    }

    // ---- Bad input -----------------------------------------------------------------
    void aMissingFileLeavesTheBoxAsItWas() {
        const QString error = load(files.filePath("nowhere.docx"));
        QVERIFY2(error.contains("cannot be found"), qPrintable(error));
        QVERIFY(error.startsWith("QVLTDBFUNCTIONS:DataAccess:LoadFileIntoRichText: "));
        QCOMPARE(box.toPlainText(), kBefore);
    }

    void aFileOfAnotherKindIsRefused() {
        const QString error = load(write("picture.jpg", "not words"));
        QVERIFY2(error.contains("picture.jpg cannot be loaded into the text box"),
                 qPrintable(error));
        QCOMPARE(box.toPlainText(), kBefore);
    }

    void anEmptyDocumentLeavesTheBoxAsItWas() {
        FakeOffice office(FakeOffice::Converts, "<p>never</p>");
        const QString error = load(write("empty.docx", QByteArray()));
        QVERIFY2(error.contains("is empty"), qPrintable(error));
        QCOMPARE(office.Runs(), 0);
        QCOMPARE(box.toPlainText(), kBefore);
    }

    void aDocumentLibreOfficeCannotReadLeavesTheBoxAsItWas() {
        FakeOffice office(FakeOffice::ConvertsNothing);
        const QString error = load(write("damaged.docx", "PK\x03\x04 broken"));
        QVERIFY2(error.contains("could not convert damaged.docx"), qPrintable(error));
        QCOMPARE(box.toPlainText(), kBefore);
    }

    void aHangingLibreOfficeIsStoppedAndTheBoxKeepsItsText() {
        FakeOffice office(FakeOffice::Hangs);
        OfficeConverter::SetDefaultTimeLimit(500);
        const QString error = load(write("huge.docx", "PK"));
        OfficeConverter::SetDefaultTimeLimit(120000);
        QVERIFY2(error.contains("took longer than"), qPrintable(error));
        QCOMPARE(box.toPlainText(), kBefore);
    }

    void withoutLibreOfficeADocumentSaysWhatToInstall() {
        FakeOffice office(FakeOffice::Without);
        const QString error = load(write("reading.docx", "PK"));
        QVERIFY2(error.contains("libreoffice-writer"), qPrintable(error));
        QCOMPARE(box.toPlainText(), kBefore);
    }

    void aConvertedDocumentIsShownAsRichText() {
        FakeOffice office(FakeOffice::Converts,
                          "<html><body><h1>Romans 8</h1><p>We know that <b>all things</b> "
                          "work together</p></body></html>");
        QCOMPARE(load(write("romans.odt", "PK")), QString());
        QVERIFY(box.toPlainText().contains("We know that all things work together"));
        QVERIFY(ShownBold(box, "all things"));
        QCOMPARE(office.Arguments(0).at(office.Arguments(0).indexOf("--convert-to") + 1),
                 QString("html"));
    }

    // ---- With LibreOffice itself -------------------------------------------------------
    void anRtfDocumentIsShownWithItsFormatting() {
        requireLibreOffice();
        QCOMPARE(load(write("reading.rtf", TestDocuments::Rtf())), QString());
        QVERIFY2(box.toPlainText().contains(QString::fromUtf8("Café Zürich")),
                 qPrintable(box.toPlainText()));
        QVERIFY(ShownBold(box, "Bold heading"));
        QVERIFY(!ShownBold(box, "Plain text"));
    }

    void aDocxInAFolderWithSpacesAndAccentsIsShown() {
        requireLibreOffice();
        const QString strDocx =
            converted(QString::fromUtf8("Lesungen für Ostern/Römer 8 Lesung.docx"), "docx");
        QVERIFY(!strDocx.isEmpty());
        QCOMPARE(load(strDocx), QString());
        QVERIFY(box.toPlainText().contains("Bold heading"));
        QVERIFY(ShownBold(box, "Bold heading"));
    }

    void anOdtDocumentIsShown() {
        requireLibreOffice();
        const QString strOdt = converted("reading.odt", "odt");
        QVERIFY(!strOdt.isEmpty());
        QCOMPARE(load(strOdt), QString());
        QVERIFY(box.toPlainText().contains(QString::fromUtf8("Café Zürich")));
    }

    void aTruncatedDocxGivesAnErrorAndLeavesTheBox() {
        requireLibreOffice();
        const QString strDocx = converted("whole.docx", "docx");
        QVERIFY(!strDocx.isEmpty());
        QFile whole(strDocx);
        QVERIFY(whole.open(QIODevice::ReadOnly));
        const QByteArray bytes = whole.readAll();
        const QString error = load(write("truncated.docx", bytes.left(bytes.size() / 2)));
        QVERIFY2(!error.isEmpty(), qPrintable(box.toPlainText()));
        QCOMPARE(box.toPlainText(), kBefore);
    }
};

QTEST_MAIN(tst_LoadFileIntoRichText)
#include "tst_LoadFileIntoRichText.moc"
