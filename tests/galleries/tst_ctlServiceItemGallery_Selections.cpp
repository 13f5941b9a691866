// What the service item gallery hands to the export, read back from the line
// the data library writes for each export it receives, and the gallery's
// view widgets before it has finished its initialisation.

#include "TraceFile.h"
#include "tst_ctlServiceItemGallery_Fixture.h"

#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"

#include <QDateTime>
#include <QRegularExpression>

class tst_ctlServiceItemGallery_Selections : public QObject {
    Q_OBJECT

    // The ids and the description of one export the data library received.
    struct Export {
        QString ids;
        QString description;
    };

    // Presses btnExport and cancels the dialog that asks where to save. True
    // when exactly one export was received; it lands in *pExport.
    static bool PressExport(GalleryFixture& f, Export* pExport) {
        const TraceFile trace;
        f.platform.QueueSaveFile(QString());
        f.Press(QStringLiteral("btnExport"));
        static const QRegularExpression line(
            QStringLiteral("^QVLTDBFUNCTIONS:DataAccess:ExportServiceItems: varIDs = (.*), "
                           "strDescription = (.*), $"),
            QRegularExpression::MultilineOption);
        const QString written = trace.NewLines().join(QLatin1Char('\n'));
        QRegularExpressionMatchIterator it = line.globalMatch(written);
        if (!it.hasNext())
            return false;
        const QRegularExpressionMatch match = it.next();
        *pExport = {match.captured(1), match.captured(2)};
        return !it.hasNext();
    }

    // The ids of the item nodes of the tree, in the order they were made.
    static QString ShownIDs(const GalleryFixture& f) {
        QStringList ids;
        for (const QString& key : f.ItemKeys())
            ids << key.section(QLatin1Char(';'), 4, 4);
        return ids.join(QLatin1Char(','));
    }

    static QString Today() {
        return VB::Format(QDateTime::currentDateTime(), QStringLiteral("Medium Date"));
    }

private slots:
    void rootExportUnderALimitedTreeExportsWhatTheTreeShows();
    void rootExportIsDescribedAsAllServiceItemsAtToday();
    void rootExportUnderKeywordGroupingCanNameAnIdTwice();
    void itemExportIsDescribedByTheNodeText();
    void groupExportIsDescribedByTheGroupingWordAndTheGroupText();
    void keywordGroupExportIsDescribedByTheWordKeyword();
    void oneListItemExportsUnderItsDescription();
    void twoListItemsExportAsSelectionOfServiceItems();
    void viewAndGroupingChangesBeforeLoadedDoNothing();
};

void tst_ctlServiceItemGallery_Selections::rootExportUnderALimitedTreeExportsWhatTheTreeShows() {
    GalleryFixture f(2);
    for (const char* text : {"One", "Two", "Three"})
        QVERIFY(f.Item(TestDatabase::Prayer, QString::fromLatin1(text)) > 0);
    f.gallery->ShowServiceItems(QStringLiteral("Root"));
    QCOMPARE(f.ItemKeys().size(), 2);

    Export exported;
    QVERIFY(PressExport(f, &exported));

    QCOMPARE(exported.ids, ShownIDs(f));
    QCOMPARE(exported.ids.count(QLatin1Char(',')), 1);
}

void tst_ctlServiceItemGallery_Selections::rootExportIsDescribedAsAllServiceItemsAtToday() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Collect");
    const qint32 b = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(QStringLiteral("Root"));

    const QString before = Today();
    Export exported;
    QVERIFY(PressExport(f, &exported));
    const QString after = Today();

    QCOMPARE(exported.ids, ShownIDs(f));
    QVERIFY(exported.ids.split(QLatin1Char(',')).contains(QString::number(a)));
    QVERIFY(exported.ids.split(QLatin1Char(',')).contains(QString::number(b)));
    const QString prefix = QStringLiteral("All Service Items at ");
    QVERIFY2(exported.description.startsWith(prefix), qPrintable(exported.description));
    const QString date = exported.description.mid(prefix.size());
    QVERIFY2(date == before || date == after, qPrintable(date));
}

void tst_ctlServiceItemGallery_Selections::rootExportUnderKeywordGroupingCanNameAnIdTwice() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Song, "Be Thou My Vision");
    QVERIFY(f.db.AddKeywords(id, {"Light", "Vision"}));
    f.gallery->cboGroupByProperty->setCurrentText(QStringLiteral("Keyword"));
    f.gallery->ShowServiceItems(QStringLiteral("Root"));

    Export exported;
    QVERIFY(PressExport(f, &exported));

    QCOMPARE(exported.ids, QStringLiteral("%1,%1").arg(id));
}

void tst_ctlServiceItemGallery_Selections::itemExportIsDescribedByTheNodeText() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    f.gallery->ShowServiceItems(QStringLiteral("Type;2;;SI;%1").arg(id));

    Export exported;
    QVERIFY(PressExport(f, &exported));

    QCOMPARE(exported.ids, QString::number(id));
    QCOMPARE(exported.description, QStringLiteral("Psalm 23"));
}

void tst_ctlServiceItemGallery_Selections::
    groupExportIsDescribedByTheGroupingWordAndTheGroupText() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Prayer, "Bravo");
    const qint32 b = f.Item(TestDatabase::Prayer, "Alpha");
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 23") > 0);
    f.gallery->ShowServiceItems(QStringLiteral("Type;1"));
    const VBNode group = f.Tree()->Nodes(QStringLiteral("Type;1"));
    QVERIFY(!group.Text().isEmpty());

    Export exported;
    QVERIFY(PressExport(f, &exported));

    // The children in the tree's sorted order: Alpha before Bravo.
    QCOMPARE(exported.ids, QStringLiteral("%1,%2").arg(b).arg(a));
    QCOMPARE(exported.description, QStringLiteral("Service Items for Type ") + group.Text());
}

void tst_ctlServiceItemGallery_Selections::keywordGroupExportIsDescribedByTheWordKeyword() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Song, "Be Thou My Vision");
    QVERIFY(f.db.AddKeywords(id, {"Light"}));
    f.gallery->cboGroupByProperty->setCurrentText(QStringLiteral("Keyword"));
    f.gallery->ShowServiceItems();
    QString groupKey;
    for (const QString& key : GalleryFixture::Keys(f.Tree()))
        if (key.startsWith(QStringLiteral("Keyword;")) && !key.contains(QStringLiteral(";;SI;")))
            groupKey = key;
    QVERIFY(!groupKey.isEmpty());
    f.gallery->ShowServiceItems(groupKey);

    Export exported;
    QVERIFY(PressExport(f, &exported));

    QCOMPARE(exported.ids, QString::number(id));
    QCOMPARE(exported.description, QStringLiteral("Service Items for Keyword Light"));
}

void tst_ctlServiceItemGallery_Selections::oneListItemExportsUnderItsDescription() {
    GalleryFixture f;
    const qint32 id = f.Item(TestDatabase::Reading, "Psalm 23");
    QVERIFY(f.Item(TestDatabase::Prayer, "Collect") > 0);
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QStringLiteral("SI;%1").arg(id));

    Export exported;
    QVERIFY(PressExport(f, &exported));

    QCOMPARE(exported.ids, QString::number(id));
    QCOMPARE(exported.description, QStringLiteral("Psalm 23"));
}

void tst_ctlServiceItemGallery_Selections::twoListItemsExportAsSelectionOfServiceItems() {
    GalleryFixture f;
    const qint32 a = f.Item(TestDatabase::Reading, "Psalm 23");
    QVERIFY(f.Item(TestDatabase::Reading, "Psalm 24") > 0);
    const qint32 c = f.Item(TestDatabase::Prayer, "Collect");
    f.gallery->optShowAsList->setChecked(true);
    f.ClickNode(f.List(), QStringLiteral("SI;%1").arg(a));
    f.CtrlClickNode(f.List(), QStringLiteral("SI;%1").arg(c));

    Export exported;
    QVERIFY(PressExport(f, &exported));

    // In the list's order: newest first.
    QCOMPARE(exported.ids, QStringLiteral("%1,%2").arg(c).arg(a));
    QCOMPARE(exported.description, QStringLiteral("Selection of Service Items"));
}

// A limit beyond a Long makes the initialisation fail before it sets
// blnLoaded (its error box is answered); the view widgets and the timer must
// then leave the views alone. The gallery is built here rather than by the
// fixture, so that the box can be answered while it is constructed.
void tst_ctlServiceItemGallery_Selections::viewAndGroupingChangesBeforeLoadedDoNothing() {
    TestDatabase db;
    QVERIFY(db.IsValid());
    QVERIFY(db.AddServiceItem(TestDatabase::Prayer, QStringLiteral("Collect")) > 0);
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    Settings::WritePrivateProfileString(QStringLiteral("Options"), QStringLiteral("MaxSIsToShow"),
                                        QStringLiteral("99999999999"));
    const TraceFile trace;
    ctlServiceItemGallery gallery;
    Settings::DeletePrivateProfileKey(QStringLiteral("Options"), QStringLiteral("MaxSIsToShow"));
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY2(platform.LastBox().Prompt.contains(QStringLiteral("UserControl_Initialize")),
             qPrintable(platform.LastBox().Prompt));
    QSignalSpy changed(&gallery, &ctlServiceItemGallery::SIListFilterChanged);
    QSignalSpy fired(gallery.Timer1, &QTimer::timeout);

    gallery.optShowAsList->setChecked(true);
    gallery.optShowAsTree->setChecked(true);
    gallery.cboGroupByProperty->setCurrentText(QStringLiteral("Keyword"));
    gallery.Timer1->start();
    QVERIFY(fired.wait(5000));

    const QString written = trace.NewLines().join(QLatin1Char('\n'));
    QVERIFY2(written.contains(QStringLiteral(":optShowAsList_Click @ ")), qPrintable(written));
    QVERIFY2(written.contains(QStringLiteral(":cboGroupByProperty_Click @ ")), qPrintable(written));
    QVERIFY2(!written.contains(QStringLiteral(":ShowServiceItems @ ")), qPrintable(written));
    QVERIFY2(written.contains(QStringLiteral(":Timer1_Timer @ ")), qPrintable(written));
    QVERIFY2(!written.contains(QStringLiteral(":CheckIfShouldApplyFilter @ ")),
             qPrintable(written));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(gallery.tvwServiceItems->Count(), 0);
    QCOMPARE(gallery.lvwServiceItems->topLevelItemCount(), 0);
    QCOMPARE(platform.BoxCount(), 1);
}

QTEST_MAIN(tst_ctlServiceItemGallery_Selections)
#include "tst_ctlServiceItemGallery_Selections.moc"
