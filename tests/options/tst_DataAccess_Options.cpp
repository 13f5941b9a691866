// The data library's side of the options screen: the transitions and speeds it
// offers, the picture items for the background, and the copy of the church logo.
#include "OptionsTestFixture.h"

using namespace OptionsTest;

class tst_DataAccess_Options : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void transitionsHoldTheSixMovesAndTheCutWithoutSpeed();
    void speedsAreSlowMediumAndFastWithTheirDurations();
    void backgroundListStartsWithNoneAndHoldsOnlyPictureItems();
    void logoIsCopiedIntoTheDataFolderUnderItsExtension();
    void logoOfAnotherExtensionLeavesTheOldCopyOnDisc();
    void missingLogoFileIsRefusedAndNothingIsCopied();
    void logoThatIsNotAPictureIsRefusedAndNothingIsCopied();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void tst_DataAccess_Options::init() {
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsValid());
}

void tst_DataAccess_Options::cleanup() {
    m_db.reset();
}

void tst_DataAccess_Options::transitionsHoldTheSixMovesAndTheCutWithoutSpeed() {
    QList<DataAccess::ListEntry> transitions, speeds;
    QString strErrorMessage = QStringLiteral("left over");
    DataAccess::Instance().FillTransitionCombos(transitions, speeds, strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QStringList names;
    QList<qint32> ids;
    for (const DataAccess::ListEntry& entry : transitions) {
        names << entry.Text;
        ids << entry.ItemData.toInt();
    }
    for (const char* name : {"Fade", "Dissolve through black", "Slide left", "Slide up", "Wipe"})
        QVERIFY2(names.contains(QLatin1String(name)), name);
    QVERIFY(names.contains(QStringLiteral("Cut (no transition)")));
    QCOMPARE(ids.at(names.indexOf(QStringLiteral("Cut (no transition)"))), 38);
    QCOMPARE(ids.at(names.indexOf(QStringLiteral("Fade"))), qint32(DataAccess::transFade));
    // Every number is told once.
    QCOMPARE(QSet<qint32>(ids.begin(), ids.end()).size(), ids.size());
    // The stored default of a new database is one of them.
    QVERIFY(ids.contains(Field(*m_db, QStringLiteral("RunModeTransType")).toInt()));
}

void tst_DataAccess_Options::speedsAreSlowMediumAndFastWithTheirDurations() {
    QList<DataAccess::ListEntry> transitions, speeds;
    QString strErrorMessage;
    DataAccess::Instance().FillTransitionCombos(transitions, speeds, strErrorMessage);
    QCOMPARE(speeds.size(), 3);
    QCOMPARE(speeds.at(0).Text, QStringLiteral("Slow"));
    QCOMPARE(speeds.at(1).Text, QStringLiteral("Medium"));
    QCOMPARE(speeds.at(2).Text, QStringLiteral("Fast"));
    QCOMPARE(DataAccess::TransitionDuration(speeds.at(0).ItemData), 1000);
    QCOMPARE(DataAccess::TransitionDuration(speeds.at(1).ItemData), 600);
    QCOMPARE(DataAccess::TransitionDuration(speeds.at(2).ItemData), 300);
    // The empty speed of a cut, and anything unknown, count as medium.
    QCOMPARE(DataAccess::TransitionDuration(QString()), 600);
    QCOMPARE(DataAccess::TransitionDuration(QVariant()), 600);
    QCOMPARE(DataAccess::TransitionDuration(QStringLiteral("2")), 300);
    // The stored default of a new database is one of them.
    QCOMPARE(Field(*m_db, QStringLiteral("RunModeTransSpeed")).toInt(), 1);
}

void tst_DataAccess_Options::backgroundListStartsWithNoneAndHoldsOnlyPictureItems() {
    const qint32 sky = m_db->AddServiceItem(TestDatabase::Picture, QStringLiteral("Sky"));
    const qint32 hills =
        m_db->AddServiceItem(TestDatabase::PictureFromFile, QStringLiteral("Hills@@ view"));
    const qint32 prayer = m_db->AddServiceItem(TestDatabase::Prayer, QStringLiteral("Amen"));
    QVERIFY(sky > 0 && hills > 0 && prayer > 0);
    QList<DataAccess::ListEntry> pictures;
    QString strErrorMessage;
    DataAccess::Instance().FillBackgroundImageCombo(pictures, strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(pictures.size(), 3);
    QCOMPARE(pictures.at(0).Text, QStringLiteral("(None)"));
    QCOMPARE(pictures.at(0).ItemData.toInt(), 0);
    QCOMPARE(pictures.at(1).Text, QStringLiteral("Hills' view"));
    QCOMPARE(pictures.at(1).ItemData.toInt(), hills);
    QCOMPARE(pictures.at(2).Text, QStringLiteral("Sky"));
    QCOMPARE(pictures.at(2).ItemData.toInt(), sky);
}

void tst_DataAccess_Options::logoIsCopiedIntoTheDataFolderUnderItsExtension() {
    QTemporaryDir elsewhere;
    const QString logo = WritePicture(elsewhere.filePath(QStringLiteral("St Marys.png")));
    QVERIFY(!logo.isEmpty());
    QString strErrorMessage;
    DataAccess::Instance().CopyChurchLogo(logo, strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QString strFolder;
    DataAccess::Instance().GetDataFolder(strFolder);
    QCOMPARE(strFolder, m_db->Folder() + QLatin1Char('/'));
    QVERIFY(QFileInfo::exists(strFolder + QStringLiteral("ChurchLogo.png")));
    QVERIFY(!QImage(strFolder + QStringLiteral("ChurchLogo.png")).isNull());
    // Copying again replaces the copy.
    WritePicture(logo, Qt::red);
    DataAccess::Instance().CopyChurchLogo(logo, strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QCOMPARE(QImage(strFolder + QStringLiteral("ChurchLogo.png")).pixelColor(0, 0),
             QColor(Qt::red));
    QCOMPARE(DataAccess::ChurchLogoName(QStringLiteral("/a/b.c/logo.JPG")),
             QStringLiteral("ChurchLogo.JPG"));
}

void tst_DataAccess_Options::logoOfAnotherExtensionLeavesTheOldCopyOnDisc() {
    QTemporaryDir elsewhere;
    QString strErrorMessage;
    DataAccess::Instance().CopyChurchLogo(
        WritePicture(elsewhere.filePath(QStringLiteral("logo.png"))), strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    DataAccess::Instance().CopyChurchLogo(
        WritePicture(elsewhere.filePath(QStringLiteral("logo.bmp"))), strErrorMessage);
    QCOMPARE(strErrorMessage, QString());
    QVERIFY(QFileInfo::exists(m_db->Folder() + QStringLiteral("/ChurchLogo.png")));
    QVERIFY(QFileInfo::exists(m_db->Folder() + QStringLiteral("/ChurchLogo.bmp")));
}

void tst_DataAccess_Options::missingLogoFileIsRefusedAndNothingIsCopied() {
    QString strErrorMessage;
    DataAccess::Instance().CopyChurchLogo(QStringLiteral("/no/such/logo.gif"), strErrorMessage);
    QVERIFY(strErrorMessage.contains(QStringLiteral("/no/such/logo.gif")));
    QVERIFY(!QFileInfo::exists(m_db->Folder() + QStringLiteral("/ChurchLogo.gif")));
}

void tst_DataAccess_Options::logoThatIsNotAPictureIsRefusedAndNothingIsCopied() {
    QTemporaryDir elsewhere;
    const QString text = elsewhere.filePath(QStringLiteral("notes.gif"));
    QFile file(text);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("These are the notices for Sunday.\n");
    file.close();
    QString strErrorMessage;
    DataAccess::Instance().CopyChurchLogo(text, strErrorMessage);
    QVERIFY(strErrorMessage.contains(QStringLiteral("not a picture")));
    QVERIFY(!QFileInfo::exists(m_db->Folder() + QStringLiteral("/ChurchLogo.gif")));
}

QTEST_MAIN(tst_DataAccess_Options)
#include "tst_DataAccess_Options.moc"
