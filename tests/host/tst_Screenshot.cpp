// The --screenshot mode: pictures of the main window and of the first steps
// of a sample service, drawn without a display.
#include "CommandLine.h"
#include "DataAccess.h"
#include "Screenshot.h"
#include "StartUp.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

class tst_Screenshot : public QObject {
    Q_OBJECT

private:
    static QVariant delivered(qint32 service) {
        QSqlQuery query(DataAccess::Instance().Database());
        query.prepare(
            QStringLiteral("SELECT ServiceDateLastDelivered FROM Services WHERE ServiceID = ?"));
        query.addBindValue(service);
        return query.exec() && query.next() ? query.value(0) : QVariant(QStringLiteral("(no row)"));
    }

    static void checkPictures(const QDir& dir) {
        for (const char* name : {"main-services.png", "main-serviceitems.png", "main-templates.png",
                                 "main-shortlists.png", "main-options.png"}) {
            const QImage image(dir.filePath(QLatin1String(name)));
            QVERIFY2(!image.isNull(), name);
            QVERIFY2(Screenshot::IsNotBlank(image), name);
        }
        const QStringList projector =
            dir.entryList({QStringLiteral("projector-*.png")}, QDir::Files, QDir::Name);
        QVERIFY(projector.size() >= 3);
        QCOMPARE(projector.first(), QStringLiteral("projector-01.png"));
        for (const QString& name : projector) {
            const QImage image(dir.filePath(name));
            QCOMPARE(image.size(), QSize(1024, 768));
            QVERIFY2(Screenshot::IsNotBlank(image), qPrintable(name));
            const QString console =
                QString(name).replace(QStringLiteral("projector"), QStringLiteral("console"));
            QVERIFY2(Screenshot::IsNotBlank(QImage(dir.filePath(console))), qPrintable(console));
        }
    }

private slots:
    void uniformPictureIsBlank() {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(Qt::darkBlue);
        QVERIFY(!Screenshot::IsNotBlank(image));
        image.setPixel(9, 6, qRgb(255, 255, 255));
        QVERIFY(Screenshot::IsNotBlank(image));
        QVERIFY(!Screenshot::IsNotBlank(QImage()));
    }

    void screenshotModeWritesPicturesThatAreNotBlank() {
        QTemporaryDir dir;
        CommandLine line;
        line.screenshotDir = dir.path();
        const StartUp start = StartUp::Run(line);
        QVERIFY(start.sampleMode);
        QVERIFY2(start.DatabaseOpen(), qPrintable(start.errorMessage));
        const qint32 service = Screenshot::SampleServiceID();
        QVERIFY(service > 0);
        const QVariant deliveredBefore = delivered(service);
        QString log;
        QTextStream stream(&log);
        QCOMPARE(Screenshot::Take(dir.path(), start, stream), 0);
        stream.flush();
        QVERIFY(log.contains(QStringLiteral("projector-01.png")));
        checkPictures(QDir(dir.path()));
        // Taking pictures is no delivery of the service.
        QCOMPARE(delivered(service), deliveredBefore);
    }

    void programWritesThePicturesFromTheCommandLine() {
        const QString program =
            QCoreApplication::applicationDirPath() + QStringLiteral("/../host/corvantis");
        if (!QFileInfo::exists(program))
            QSKIP("the corvantis program is not built in this build tree (only the library is)");
        QTemporaryDir dir;
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("QT_QPA_PLATFORM")); // the mode chooses offscreen itself
        process.setProcessEnvironment(env);
        process.start(program, {QStringLiteral("--screenshot"), dir.path()});
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
        checkPictures(QDir(dir.path()));
    }
};

QTEST_MAIN(tst_Screenshot)
#include "tst_Screenshot.moc"
