#pragma once

// What the service item editor's suites share: a small library of items of
// the types the editor treats apart, and the moves of a user in the editor.

#include "DataAccess.h"
#include "ScriptedPlatform.h"
#include "TestDatabase.h"
#include "foundations/SSTab.h"
#include "serviceitem/ctlServiceItem.h"

#include <QComboBox>
#include <QTest>

namespace ServiceItemFixture {

struct Library {
    qint32 prayer = 0;  // a text item with every tab in use
    qint32 song = 0;    // a song with words typed, not broken down
    qint32 points = 0;  // a points list
    qint32 slides = 0;  // a presentation
    qint32 music = 0;   // a piece of music
    qint32 picture = 0; // a picture
    qint32 notices = 0; // another text item, to put in a prop bag
    qint32 creed = 0;   // another, of another type

    bool Seed(TestDatabase& db) {
        prayer = db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis",
                                   "Lord, make me an instrument of your peace");
        song =
            db.AddServiceItem(TestDatabase::Song, "Morning Has Broken",
                              "Morning has broken\nlike the first morning\n\nSweet the rain's new "
                              "fall\nsunlit from heaven");
        points = db.AddServiceItem(TestDatabase::PointsOnly, "Three Points on Grace");
        slides = db.AddServiceItem(TestDatabase::PowerPoint, "Mission Slides");
        music = db.AddServiceItem(TestDatabase::Music, "Prelude in C");
        picture = db.AddServiceItem(TestDatabase::Picture, "Sunrise");
        notices = db.AddServiceItem(TestDatabase::Announcement, "Notices", "Coffee after");
        creed = db.AddServiceItem(TestDatabase::Creed, "Apostles' Creed", "I believe");
        return prayer > 0 && song > 0 && points > 0 && slides > 0 && music > 0 && picture > 0 &&
               notices > 0 && creed > 0;
    }
};

// Shows an item on an editor, its caption built from the item.
inline void Show(ctlServiceItem& ctl, qint32 lngServiceItemID) {
    ctl.setDescription(QString());
    ctl.setItems(QString::number(lngServiceItemID));
    ctl.ShowProperties();
}

// One field of a stored item.
inline QVariant Field(TestDatabase& db, qint32 lngServiceItemID, const QString& strField) {
    return db.Scalar(
        QStringLiteral("SELECT %1 FROM ServiceItems WHERE ServiceItemID = ?").arg(strField),
        {lngServiceItemID});
}

// The type of the entry selected in the type combo (0 for none).
inline qint32 ComboType(const ctlServiceItem& ctl) {
    const int i = ctl.imgcboServiceItemTypes->currentIndex();
    return i < 0 ? 0 : ctl.imgcboServiceItemTypes->itemData(i, Qt::UserRole + 1).toInt();
}

} // namespace ServiceItemFixture
