#pragma once

// The database and the helpers the short-list suites share: a small library
// of service items whose every criteria field holds a value somewhere, and the
// moves of a user through the criteria rows.

#include "DataAccess.h"
#include "Recordset.h"
#include "TestDatabase.h"
#include "foundations/VBTreeWidget.h"
#include "shortlists/ctlShortList.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QStringList>
#include <QTest>
#include <QTextEdit>

namespace ShortListFixture {

// Four service items and the Blank:
//   "Amazing Grace"          song, in a service delivered 2026-11-01, keyword Grace
//   "O Come All Ye Faithful" song, keyword Christmas, in no service
//   "Prayer of St Francis"   prayer, run as points list, in a service delivered
//                            2025-12-25, keyword Peace
//   "Notices"                announcement, almost nothing filled in
struct Library {
    QMap<QString, qint32> ids;

    bool Seed(TestDatabase& db) {
        ids["grace"] = db.AddServiceItem(TestDatabase::Song, "Amazing Grace",
                                         "Amazing grace how sweet the sound", "Newton wrote it");
        ids["faithful"] = db.AddServiceItem(TestDatabase::Song, "O Come All Ye Faithful",
                                            "O come all ye faithful, joyful", "Christmas morning");
        ids["francis"] = db.AddServiceItem(TestDatabase::Prayer, "Prayer of St Francis",
                                           "Lord, make me an instrument of your peace");
        ids["notices"] = db.AddServiceItem(TestDatabase::Announcement, "Notices");
        for (qint32 id : ids)
            if (id <= 0)
                return false;
        auto set = [&](const char* key, const char* assignments, const QVariantList& values) {
            QVariantList params = values;
            params << ids[key];
            return db.Exec(QStringLiteral("UPDATE ServiceItems SET %1 WHERE ServiceItemID = ?")
                               .arg(QLatin1String(assignments)),
                           params);
        };
        bool ok = set("grace",
                      "ServiceItemCopyrightDetails = ?, ServiceItemSource = ?, "
                      "ServiceItemProvider = ?, ServiceItemOriginalLocation = ?, "
                      "ServiceItemSongKey = ?, ServiceItemMelody = ?, SecondsToRun = ?, "
                      "ServiceItemDateCreated = ?",
                      {"Public Domain", "Olney Hymns", "Hymnary", "Olney", "G", "New Britain", 180,
                       "2026-01-10 09:30:00"});
        ok = ok && set("faithful",
                       "ServiceItemCopyrightDetails = ?, ServiceItemSource = ?, "
                       "ServiceItemProvider = ?, ServiceItemOriginalLocation = ?, "
                       "ServiceItemSongKey = ?, ServiceItemMelody = ?, SecondsToRun = ?, "
                       "ServiceItemDateCreated = ?",
                       {"Traditional", "Carols", "Oxford", "Latin", "A", "Adeste Fideles", 240,
                        "2026-06-15 18:00:00"});
        ok = ok && set("francis",
                       "ServiceItemSource = ?, ServiceItemOriginalLocation = ?, "
                       "SecondsToRun = ?, RunAsPointsList = 1, ServiceItemDateCreated = ?",
                       {"Franciscan", "Assisi", 60, "2025-03-01 08:00:00"});
        ok = ok && set("notices", "SecondsToRun = ?, ServiceItemDateCreated = ?",
                       {0, "2026-11-20 12:00:00"});
        ok = ok && db.AddKeywords(ids["grace"], {"Grace"}) &&
             db.AddKeywords(ids["faithful"], {"Christmas"}) &&
             db.AddKeywords(ids["francis"], {"Peace"});
        const qint32 morning = db.AddService("Morning", {{ids["grace"]}, TestDatabase::Blank()});
        const qint32 christmas = db.AddService("Christmas", {{ids["francis"]}});
        ok = ok && morning > 0 && christmas > 0 &&
             db.Exec("UPDATE Services SET ServiceDateLastDelivered = ? WHERE ServiceID = ?",
                     {"2026-11-01 10:00:00", morning}) &&
             db.Exec("UPDATE Services SET ServiceDateLastDelivered = ? WHERE ServiceID = ?",
                     {"2025-12-25 10:00:00", christmas});
        return ok;
    }

    // The names of the items a clause finds, sorted, the Blank left out.
    QStringList Found(const QString& strClause, QString& strErrorMessage) const {
        std::unique_ptr<Recordset> rs;
        DataAccess::Instance().GetShortListCandidates(strClause, strErrorMessage, rs);
        QStringList names;
        if (!strErrorMessage.isEmpty() || !rs)
            return names;
        for (; !rs->Eof(); rs->MoveNext()) {
            const qint32 id = rs->Fields("ServiceItems.ServiceItemID").toInt();
            const QString name = ids.key(id);
            if (!name.isEmpty() && !names.contains(name))
                names << name;
        }
        names.sort();
        return names;
    }
};

// Sets up row Index as the user would: the field, the operator, the values.
inline void SetRow(ctlShortList& ctl, qint16 Index, const QString& strField,
                   const QString& strOperator, const QString& strText1 = QString(),
                   const QString& strText2 = QString()) {
    ctl.cboFields(Index)->setCurrentIndex(ctl.cboFields(Index)->findText(strField));
    ctl.cboOperator(Index)->setCurrentIndex(ctl.cboOperator(Index)->findText(strOperator));
    ctl.txtCriterion1(Index)->setText(strText1);
    ctl.txtCriterion2(Index)->setText(strText2);
}

inline void SetDates(ctlShortList& ctl, qint16 Index, const QDate& d1, const QDate& d2 = QDate()) {
    ctl.dtpCriterion1(Index)->setDate(d1);
    if (d2.isValid())
        ctl.dtpCriterion2(Index)->setDate(d2);
}

inline void SetTrueFalse(ctlShortList& ctl, qint16 Index, const QString& strValue) {
    ctl.cboCriterion(Index)->setCurrentIndex(ctl.cboCriterion(Index)->findText(strValue));
}

// The texts of the service item nodes of a tree, sorted.
inline QStringList ItemTexts(VBTreeWidget* tree) {
    QStringList texts;
    for (qint32 i = 1; i <= tree->Count(); ++i) {
        const VBNode node = tree->Nodes(i);
        if (node.Key().contains(";;SI;"))
            texts << node.Text();
    }
    texts.sort();
    return texts;
}

} // namespace ShortListFixture
