// The songs of the sample database, as a newcomer meets them in the service
// item gallery: found by their words as a song typed by hand is.
#include "DataAccess.h"
#include "SampleDatabase.h"
#include "ScriptedPlatform.h"

#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QLineEdit>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTreeWidgetItemIterator>
#include <QtTest>

class tst_SampleSongs : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    static QStringList Shown(ctlServiceItemGallery& gallery) {
        QStringList texts;
        for (QTreeWidgetItemIterator it(gallery.tvwServiceItems); *it; ++it)
            texts << (*it)->text(0);
        return texts;
    }

private slots:
    void initTestCase() {
        QString error;
        QVERIFY2(SampleDatabase::Build(m_dir.path() + "/Sample/Corvantis.pdb", error),
                 qPrintable(error));
    }
    void cleanupTestCase() { DataAccess::Instance().CloseDatabase(); }

    void everySampleSongKeepsItsWordsInItsContent() {
        QSqlQuery q = DataAccess::Instance().Database().exec(
            "SELECT count(*) FROM ServiceItems WHERE ServiceItemTypeID = 17 AND "
            "(ServiceItemContent IS NULL OR ServiceItemContent = '')");
        QVERIFY(q.next());
        QCOMPARE(q.value(0).toInt(), 0);
        QSqlQuery grace = DataAccess::Instance().Database().exec(
            "SELECT ServiceItemContent FROM ServiceItems WHERE ServiceItemDescription = "
            "'Amazing Grace'");
        QVERIFY(grace.next());
        const QString words = grace.value(0).toString();
        QVERIFY(words.startsWith(QStringLiteral("Amazing grace! how sweet the sound\n")));
        QVERIFY(words.contains(QStringLiteral("\n\n")));
    }

    void quickFilterFindsASampleSongByItsWords() {
        ScriptedPlatform platform;
        platform.SetDefaultAnswer(vbOK);
        ctlServiceItemGallery gallery;
        gallery.ShowServiceItems();
        gallery.txtQuickFilter->setText(QStringLiteral("wretch"));
        QTRY_VERIFY(Shown(gallery).contains(QStringLiteral("Amazing Grace")));
    }
};

QTEST_MAIN(tst_SampleSongs)
#include "tst_SampleSongs.moc"
