// The WHERE texts the controls build, run against a seeded database: each must return exactly
// the rows it names. Clauses outside the language, and attempts to smuggle SQL in through them,
// are refused with an error text and change nothing.

#include "DataAccess.h"
#include "JetWhere.h"
#include "TestDatabase.h"

#include <QLocale>
#include <QtTest>

using Names = QStringList;

namespace {
Names Without(Names names, const QString& name) {
    names.removeAll(name);
    return names;
}
} // namespace

class tst_JetWhere : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_db;
    QHash<QString, qint32> m_ids;  // service items
    QHash<QString, qint32> m_more; // services, templates, short lists, keywords

    DataAccess& da() { return DataAccess::Instance(); }

    void setDate(const char* table, const char* column, const char* key, qint32 id,
                 const QVariant& value) {
        QVERIFY(
            m_db->Exec(QStringLiteral("UPDATE %1 SET %2 = ? WHERE %3 = ?")
                           .arg(QLatin1String(table), QLatin1String(column), QLatin1String(key)),
                       {value, id}));
    }

    void setItem(const QString& name, const char* column, const QVariant& value) {
        QVERIFY(m_db->Exec(
            QStringLiteral("UPDATE ServiceItems SET %1 = ? WHERE ServiceItemID = ?").arg(column),
            {value, m_ids[name]}));
    }

    QString expand(QString clause) const {
        for (const auto* map : {&m_ids, &m_more})
            for (auto it = map->cbegin(); it != map->cend(); ++it)
                clause.replace('{' + it.key() + '}', QString::number(it.value()));
        return clause;
    }

    // Runs a clause through one operation; the names of the rows it returned, sorted, once each.
    Names run(const QString& operation, const QString& clause, QString& error) {
        std::unique_ptr<Recordset> rs;
        QString idField;
        if (operation == "joined") {
            da().GetServiceItemsJoined(clause, 4, error, rs);
            idField = "ServiceItems.ServiceItemID";
        } else if (operation == "items") {
            da().GetServiceItems(clause, 4, error, rs);
            idField = "ServiceItemID";
        } else if (operation == "candidates") {
            da().GetShortListCandidates(clause, error, rs);
            idField = "ServiceItems.ServiceItemID";
        } else if (operation == "services") {
            da().GetServices(clause, 4, error, rs);
            idField = "ServiceID";
        } else if (operation == "templates") {
            da().GetTemplates(clause, 4, error, rs);
            idField = "TemplateID";
        } else if (operation == "shortlists") {
            da().GetShortListsWhere(clause, error, rs);
            idField = "ShortListID";
        } else if (operation == "contents") {
            da().GetServiceContents(clause, 4, error, rs);
            idField = "ServiceItemID";
        } else if (operation == "points") {
            da().GetPoints(clause, 4, error, rs);
            idField = "ServiceItemID";
        } else if (operation == "keywords") {
            da().GetServiceItemKeywords(clause, 4, error, rs);
            idField = "ServiceItemKeywords.ServiceItemID";
        }
        const QHash<QString, QStringList> kinds = {{"service:", {"morning", "evening"}},
                                                   {"template:", {"wedding", "hymnsheet"}},
                                                   {"list:", {"favourites"}}};
        Names names;
        if (!rs)
            return names;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const qint32 id = rs->Fields(idField).toInt();
            const QString prefix = operation == "services"     ? "service:"
                                   : operation == "templates"  ? "template:"
                                   : operation == "shortlists" ? "list:"
                                                               : QString();
            QString name = prefix + QString::number(id);
            if (prefix.isEmpty())
                name = m_ids.key(id, name);
            for (const QString& key : kinds.value(prefix))
                if (m_more.value(key) == id)
                    name = prefix + key;
            if (!names.contains(name))
                names << name;
        }
        names.sort();
        return names;
    }

    QString quickFilter(const QString& t) const {
        QStringList parts;
        for (const char* field :
             {"ServiceItemTypes.ServiceItemTypeName", "ServiceItems.ServiceItemDescription",
              "ServiceItems.ServiceItemContent", "ServiceItems.ServiceItemNotes",
              "ServiceItems.ServiceItemSource", "ServiceItems.ServiceItemProvider",
              "ServiceItems.ServiceItemMelody", "KeyWords.KeywordText",
              "ServiceItems.ServiceItemOriginalLocation", "ServiceItemPoints.PointText"})
            parts << QStringLiteral("%1 Like '*%2*'").arg(QLatin1String(field), t);
        return parts.join(" Or ");
    }

    qint32 rowsEverywhere() const {
        qint32 total = 0;
        for (const char* table :
             {"ServiceItems", "Services", "ServiceContents", "KeyWords", "ServiceItemKeywords",
              "ServiceItemPoints", "ShortLists", "Templates", "Options", "ServiceItemTypes"})
            total += m_db->Count(table);
        return total;
    }

private slots:
    void initTestCase() {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
        TestDatabase& db = *m_db;
        m_ids["song"] = db.AddSong("Amazing Grace", {{"Verse 1", "Amazing grace"}});
        m_ids["prayer"] = db.AddServiceItem(TestDatabase::Prayer, "Lord@@s Prayer", "Our Father");
        m_ids["reading"] = db.AddServiceItem(TestDatabase::Reading, "Psalm 23");
        m_ids["sermon"] = db.AddServiceItem(TestDatabase::PointsOnly, "Sermon");
        m_ids["picture"] = db.AddServiceItem(TestDatabase::Picture, "");
        m_ids["church"] = db.AddServiceItem(TestDatabase::Story, "Église du village");
        m_ids["sale"] = db.AddServiceItem(TestDatabase::Announcement, "50% off at the fair");
        m_ids["sale2"] = db.AddServiceItem(TestDatabase::Announcement, "500 off");
        for (auto it = m_ids.cbegin(); it != m_ids.cend(); ++it)
            QVERIFY2(it.value() > 0, qPrintable(it.key()));
        setItem("song", "ServiceItemSource", "John Newton");
        setItem("song", "ServiceItemMelody", "New Britain");
        setItem("song", "ServiceItemNotes", "Sung slowly");
        setItem("song", "ServiceItemOriginalLocation", "Olney");
        setItem("song", "ServiceItemSongKey", "G");
        setItem("song", "ServiceItemCopyrightDetails", "Public domain");
        setItem("reading", "ServiceItemSource", "Psalm 23");
        setItem("reading", "ServiceItemProvider", "Church");
        setItem("reading", "SecondsToRun", 90);
        setItem("sermon", "SecondsToRun", 30);
        setItem("picture", "ServiceItemSource", "Sunrise.bmp");
        QVERIFY(db.AddKeywords(m_ids["song"], {"grace", "praise"}));
        QVERIFY(db.AddKeywords(m_ids["prayer"], {"prayer"}));
        QVERIFY(db.AddPoints(m_ids["sermon"], {{"P1", "", "The good shepherd", ""},
                                               {"P2", "P1", "Knows his sheep", ""}}));
        m_more["kwGrace"] =
            db.Scalar("SELECT KeywordID FROM KeyWords WHERE KeywordText = 'grace'").toInt();
        setDate("ServiceItems", "ServiceItemDateCreated", "ServiceItemID", m_ids["song"],
                "2026-11-21 10:30:00");
        setDate("ServiceItems", "ServiceItemDateCreated", "ServiceItemID", m_ids["prayer"],
                "2026-11-20 09:00:00");
        setDate("ServiceItems", "ServiceItemDateCreated", "ServiceItemID", m_ids["reading"],
                "2025-01-05 12:00:00");
        setDate("ServiceItems", "ServiceItemDateCreated", "ServiceItemID", m_ids["sermon"],
                "2026-11-22 00:00:00");
        setDate("ServiceItems", "ServiceItemDateCreated", "ServiceItemID", m_ids["picture"],
                "2024-06-01 08:00:00");
        for (const char* other : {"church", "sale", "sale2"})
            setDate("ServiceItems", "ServiceItemDateCreated", "ServiceItemID", m_ids[other],
                    "2020-01-01 00:00:00");
        m_more["morning"] =
            db.AddService("Morning Worship", {{m_ids["song"]}, {m_ids["reading"]}}, "Morning");
        m_more["evening"] = db.AddService("Evening Prayer", {{m_ids["prayer"], false}}, "Evening");
        setDate("Services", "ServiceDateLastDelivered", "ServiceID", m_more["morning"],
                "2026-11-15 10:00:00");
        m_more["favourites"] = db.AddShortList("Favourites", {m_ids["song"]}, "Anna");
        m_more["wedding"] = db.AddTemplate("Wedding Sheet", true, "Wedding");
        m_more["hymnsheet"] = db.AddTemplate("Hymn Sheet", false, "Sunday");
        setDate("Templates", "TemplateDateCreated", "TemplateID", m_more["wedding"],
                "2026-11-21 12:00:00");
        setDate("Templates", "TemplateDateCreated", "TemplateID", m_more["hymnsheet"],
                "2023-02-02 12:00:00");
    }

    void cleanupTestCase() { m_db.reset(); }

    void clauseReturnsItsRows_data() {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("clause");
        QTest::addColumn<Names>("expected");
        const Names all = {"church", "picture", "prayer", "reading",
                           "sale",   "sale2",   "sermon", "song"};

        // Galleries: all items, one item, group nodes.
        QTest::newRow("empty clause") << "joined"
                                      << "" << (all + Names{"1"});
        QTest::newRow("one item") << "joined"
                                  << "ServiceItems.ServiceItemID = {song}" << Names{"song"};
        QTest::newRow("one item, two blanks")
            << "joined"
            << "ServiceItems.ServiceItemID  = {prayer}" << Names{"prayer"};
        QTest::newRow("group by type") << "joined"
                                       << "ServiceItems.ServiceItemTypeID=17" << Names{"song"};
        QTest::newRow("group by keyword") << "joined"
                                          << "Keywords.KeywordID={kwGrace}" << Names{"song"};
        QTest::newRow("group by source") << "joined"
                                         << "ServiceItemSource='John Newton'" << Names{"song"};
        QTest::newRow("group by provider") << "joined"
                                           << "ServiceItemProvider='Church'" << Names{"reading"};
        QTest::newRow("group without source") << "joined"
                                              << "ServiceItemSource='0'" << Names{};
        QTest::newRow("unqualified id") << "items"
                                        << "ServiceItemID = {reading}" << Names{"reading"};

        // Quick filter: every column of the chain.
        QTest::newRow("quick: keyword and description")
            << "joined" << quickFilter("grace") << Names{"song"};
        QTest::newRow("quick: point text")
            << "joined" << quickFilter("shepherd") << Names{"sermon"};
        QTest::newRow("quick: location any case")
            << "joined" << quickFilter("OLNEY") << Names{"song"};
        QTest::newRow("quick: type name")
            << "joined" << quickFilter("points list") << Names{"sermon"};
        QTest::newRow("quick: content") << "joined" << quickFilter("father") << Names{"prayer"};
        QTest::newRow("quick: notes") << "joined" << quickFilter("slowly") << Names{"song"};
        QTest::newRow("quick: melody") << "joined" << quickFilter("britain") << Names{"song"};
        QTest::newRow("quick: provider") << "joined" << quickFilter("church") << Names{"reading"};
        QTest::newRow("quick: accented letters any case")
            << "joined" << quickFilter("ÉGLISE") << Names{"church"};
        QTest::newRow("quick: percent is no wildcard")
            << "joined" << quickFilter("50%") << Names{"sale"};
        QTest::newRow("quick: underscore is no wildcard")
            << "joined" << quickFilter("5_0") << Names{};

        // Main filter of the item gallery.
        QTest::newRow("contains") << "joined"
                                  << "ServiceItemDescription LIKE '*salm*'" << Names{"reading"};
        QTest::newRow("does not contain")
            << "joined"
            << "KeyWordText NOT LIKE '*grace*'" << Names{"prayer", "song"};
        QTest::newRow("starts with") << "joined"
                                     << "ServiceItemTypeName LIKE 'hy*'" << Names{"song"};
        QTest::newRow("ends with") << "joined"
                                   << "ServiceItemSource LIKE '*Newton'" << Names{"song"};
        QTest::newRow("question mark one letter") << "joined"
                                                  << "ServiceItemSongKey Like '?'" << Names{"song"};
        QTest::newRow("hash one digit")
            << "joined"
            << "ServiceItemDescription Like 'Psalm ##'" << Names{"reading"};
        QTest::newRow("bracketed star is a star")
            << "joined"
            << "ServiceItemDescription Like '*[%]*'" << Names{"sale"};

        // Duplicate checks of the item editor.
        QTest::newRow("duplicate description")
            << "joined"
            << "ServiceItems.ServiceItemID <> 0 AND ServiceItemDescription = 'lord@@s prayer' AND "
               "ServiceItems.ServiceItemTypeID = 1"
            << Names{"prayer"};
        QTest::newRow("duplicate description of itself")
            << "joined"
            << "ServiceItems.ServiceItemID <> {prayer} AND ServiceItemDescription = 'Lord@@s "
               "Prayer' AND ServiceItems.ServiceItemTypeID = 1"
            << Names{};
        QTest::newRow("duplicate source")
            << "joined"
            << "ServiceItems.ServiceItemID <> 0 AND ServiceItemSource = 'Sunrise.bmp' AND "
               "ServiceItems.ServiceItemTypeID = 4"
            << Names{"picture"};

        // Short list criteria.
        QTest::newRow("is part of a service")
            << "candidates"
            << "ServiceItemsInUse.ServiceItemID Is NOT Null" << Names{"prayer", "reading", "song"};
        QTest::newRow("is not part of a service")
            << "candidates"
            << "ServiceItemsInUse.ServiceItemID Is Null"
            << Names{"1", "church", "picture", "sale", "sale2", "sermon"};
        QTest::newRow("date is between (exclusive)")
            << "candidates"
            << "ServiceItemDateCreated > #20-Nov-26# AND ServiceItemDateCreated < #22-Nov-26#"
            << Names{"song"};
        QTest::newRow("date is not between")
            << "candidates"
            << "ServiceItemDateCreated < #20-Nov-26# AND ServiceItemDateCreated > #22-Nov-26#"
            << Names{};
        QTest::newRow("date equals") << "candidates"
                                     << "ServiceItemDateCreated = #21-Nov-26#" << Names{"song"};
        QTest::newRow("date does not equal")
            << "candidates"
            << "ServiceItemDateCreated <> #01-Jan-20#"
            << Names{"1", "picture", "prayer", "reading", "sermon", "song"};
        QTest::newRow("date is after") << "candidates"
                                       << "ServiceItemDateCreated > #21-Nov-26#" << Names{"sermon"};
        QTest::newRow("date is before") << "candidates"
                                        << "ServiceItemDateCreated < #01-Jan-25#"
                                        << Names{"1", "church", "picture", "sale", "sale2"};
        QTest::newRow("date is empty") << "candidates"
                                       << "ServiceItemDateCreated Is Null" << Names{};
        QTest::newRow("last delivered in a service")
            << "candidates"
            << "Services.ServiceDateLastDelivered > #01-Nov-26#" << Names{"reading", "song"};
        QTest::newRow("date with four-digit year")
            << "candidates"
            << "ServiceItemDateCreated = #21-Nov-2026#" << Names{"song"};
        QTest::newRow("date in ISO form")
            << "candidates"
            << "ServiceItemDateCreated = #2026-11-21#" << Names{"song"};
        QTest::newRow("date in m/d/yyyy form")
            << "candidates"
            << "ServiceItemDateCreated = #11/21/2026#" << Names{"song"};
        QTest::newRow("date with time compares exactly")
            << "candidates"
            << "ServiceItemDateCreated = #21-Nov-26 10:30:00#" << Names{"song"};
        QTest::newRow("number is between")
            << "candidates"
            << "SecondsToRun > 10 AND SecondsToRun < 100" << Names{"reading", "sermon"};
        QTest::newRow("number 10 and 10 finds nothing")
            << "candidates"
            << "SecondsToRun > 10 AND SecondsToRun < 10" << Names{};
        QTest::newRow("number is not between")
            << "candidates"
            << "SecondsToRun < 10 AND SecondsToRun > 100" << Names{};
        QTest::newRow("number equals") << "candidates"
                                       << "SecondsToRun = 30" << Names{"sermon"};
        QTest::newRow("number does not equal") << "candidates"
                                               << "SecondsToRun <> 0" << Names{"reading", "sermon"};
        QTest::newRow("number is greater than") << "candidates"
                                                << "SecondsToRun > 60" << Names{"reading"};
        QTest::newRow("number is less than")
            << "candidates"
            << "SecondsToRun < 60" << Without(all + Names{"1"}, "reading");
        QTest::newRow("boolean true") << "candidates"
                                      << "RunAsPointsList = True" << Names{"sermon"};
        QTest::newRow("boolean false")
            << "candidates"
            << "RunAsPointsList = False" << Without(all + Names{"1"}, "sermon");
        QTest::newRow("text equals any case")
            << "candidates"
            << "ServiceItemMelody = 'new britain'" << Names{"song"};
        QTest::newRow("text does not equal")
            << "candidates"
            << "ServiceItemCopyrightDetails <> 'Unknown'" << Names{"song"};
        QTest::newRow("empty contains finds every description")
            << "candidates"
            << "ServiceItemDescription Like '**'" << Without(all + Names{"1"}, "picture");
        QTest::newRow("keywords contains") << "candidates"
                                           << "KeywordText Like '*ray*'" << Names{"prayer"};
        QTest::newRow("type equals hymn or long") << "candidates"
                                                  << "(ServiceItemTypeName = 'Hymn') OR "
                                                     "(SecondsToRun > 60)"
                                                  << Names{"reading", "song"};
        QTest::newRow("two rows joined by and")
            << "candidates"
            << "(ServiceItemDescription Like '*a*') AND (ServiceItemsInUse.ServiceItemID Is NOT "
               "Null)"
            << Names{"prayer", "reading", "song"};
        QTest::newRow("not and parentheses")
            << "candidates"
            << "NOT (ServiceItemTypeName = 'Announcement' OR ServiceItemID = 1)"
            << Names{"church", "picture", "prayer", "reading", "sermon", "song"};
        QTest::newRow("in list") << "candidates"
                                 << "ServiceItems.ServiceItemID In ({song}, {prayer})"
                                 << Names{"prayer", "song"};

        // Services.
        QTest::newRow("service by id")
            << "services"
            << "Services.ServiceID = {morning}" << Names{"service:morning"};
        QTest::newRow("service name contains")
            << "services"
            << "ServiceName LIKE '*even*'" << Names{"service:evening"};
        QTest::newRow("service type does not contain")
            << "services"
            << "ServiceType NOT LIKE '*morn*'" << Names{"service:evening"};
        QTest::newRow("service theme starts with") << "services"
                                                   << "ServiceTheme LIKE 'a*'" << Names{};
        QTest::newRow("service contents") << "contents"
                                          << "ServiceID ={morning}" << Names{"reading", "song"};

        // Templates and short lists.
        QTest::newRow("template id") << "templates"
                                     << "TemplateID  = {wedding}" << Names{"template:wedding"};
        QTest::newRow("template description")
            << "templates"
            << "TemplateDescription LIKE '*wed*'" << Names{"template:wedding"};
        QTest::newRow("template date as text")
            << "templates"
            << "TemplateDateCreated LIKE '*2026*'" << Names{"template:wedding"};
        QTest::newRow("template occasion")
            << "templates"
            << "TemplateOccasion NOT LIKE '*wed*'" << Names{"template:hymnsheet"};
        QTest::newRow("service template")
            << "templates"
            << "IsServiceTemplate = True" << Names{"template:wedding"};
        QTest::newRow("short list by id")
            << "shortlists"
            << "ShortListID = {favourites}" << Names{"list:favourites"};
        QTest::newRow("short list by description")
            << "shortlists"
            << "ShortListDescription = 'Favourites'" << Names{"list:favourites"};
        QTest::newRow("short list by author")
            << "shortlists"
            << "ShortListCreatedBy LIKE 'an*'" << Names{"list:favourites"};

        // Lists of one item.
        QTest::newRow("points of an item") << "points"
                                           << "ServiceItemID = {sermon}" << Names{"sermon"};
        QTest::newRow("keywords of an item") << "keywords"
                                             << "ServiceItemID = {song}" << Names{"song"};
    }

    void clauseReturnsItsRows() {
        QFETCH(QString, operation);
        QFETCH(QString, clause);
        QFETCH(Names, expected);
        QString error;
        const Names got = run(operation, expand(clause), error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        Names sorted = expected;
        sorted.sort();
        QCOMPARE(got, sorted);
    }

    void platformShortDateIsUnderstood() {
        const QString shortDate =
            QLocale::system().toString(QDate(2026, 11, 21), QLocale::ShortFormat);
        QString error;
        const Names got = run(
            "candidates", QStringLiteral("ServiceItemDateCreated = #%1#").arg(shortDate), error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(got, Names{"song"});
    }

    void refusedClauseRunsNothing_data() {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("clause");
        QTest::addColumn<QString>("reason");
        QTest::newRow("unknown column") << "services"
                                        << "ServiceCreatedBy LIKE '*anna*'"
                                        << "unknown field 'ServiceCreatedBy'";
        QTest::newRow("empty left side") << "candidates"
                                         << " = 'Sunrise.bmp'"
                                         << "no field before '='";
        QTest::newRow("criterion with apostrophe")
            << "joined"
            << "ServiceItems.ServiceItemID <> 3 AND ServiceItemSource = 'Bob's book' AND "
               "ServiceItems.ServiceItemTypeID = 2"
            << "closing quote";
        QTest::newRow("second statement") << "joined"
                                          << "ServiceItemID = 1; DELETE FROM ServiceItems"
                                          << "second statement";
        QTest::newRow("subquery") << "joined"
                                  << "ServiceItemID IN (SELECT ServiceItemID FROM ServiceItems)"
                                  << "not allowed";
        QTest::newRow("function") << "joined"
                                  << "lower(ServiceItemDescription) = 'x'"
                                  << "not allowed";
        QTest::newRow("comment") << "joined"
                                 << "ServiceItemID = 1 --"
                                 << "";
        QTest::newRow("comparison of two values") << "joined"
                                                  << "'a' = 'a'"
                                                  << "must name a field";
        QTest::newRow("numbers only") << "joined"
                                      << "1=1"
                                      << "must name a field";
        QTest::newRow("unbalanced parenthesis") << "joined"
                                                << "(ServiceItemID = 1"
                                                << "')'";
        QTest::newRow("table of another query") << "services"
                                                << "ServiceItems.ServiceItemID = 1"
                                                << "unknown field";
        QTest::newRow("not a date") << "candidates"
                                    << "ServiceItemDateCreated = #31-Feb-26#"
                                    << "not a date";
        QTest::newRow("operator without value") << "joined"
                                                << "ServiceItemID ="
                                                << "";
        QTest::newRow("double quote unclosed") << "joined"
                                               << "ServiceItemSource = \"abc"
                                               << "closing quote";
    }

    void refusedClauseRunsNothing() {
        QFETCH(QString, operation);
        QFETCH(QString, clause);
        QFETCH(QString, reason);
        const qint32 before = rowsEverywhere();
        QString error;
        const Names got = run(operation, clause, error);
        QVERIFY(!error.isEmpty());
        QVERIFY2(error.contains(reason), qPrintable(error));
        QVERIFY(got.isEmpty());
        QCOMPARE(rowsEverywhere(), before);
    }

    void injectionThroughTheQuickFilterIsRefused_data() {
        QTest::addColumn<QString>("typed");
        QTest::newRow("or always true") << "x' OR 1=1 --";
        QTest::newRow("drop table") << "'; DROP TABLE ServiceItems; --";
        QTest::newRow("quote equals quote") << "' OR ''='";
        QTest::newRow("union select") << "x') UNION SELECT * FROM Options --";
        QTest::newRow("delete after close") << "x*'); DELETE FROM Services; ('";
        QTest::newRow("attach") << "' OR ServiceItemID IN (ATTACH DATABASE 'x' AS y) OR '";
        QTest::newRow("pragma") << "'; PRAGMA writable_schema=1; --";
    }

    void injectionThroughTheQuickFilterIsRefused() {
        QFETCH(QString, typed);
        const qint32 before = rowsEverywhere();
        QString error;
        const Names got = run("joined", quickFilter(typed), error);
        QVERIFY2(!error.isEmpty(), qPrintable(got.join(',')));
        QVERIFY(got.isEmpty());
        QCOMPARE(rowsEverywhere(), before);
        QCOMPARE(m_db->Scalar("PRAGMA writable_schema").toInt(), 0);
    }

    void injectedTextThatParsesIsOnlyAValue() {
        // A criterion that survives the parser is a bound value, so it finds text, not rows.
        const qint32 before = rowsEverywhere();
        QString error;
        const Names got = run("candidates", "ServiceItemDescription = 'x'' OR ''1''=''1'", error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(got.isEmpty());
        QCOMPARE(rowsEverywhere(), before);
    }

    void translationBindsEveryValue() {
        JetWhere where(
            {{"ServiceItems", "si", {{"ServiceItemDescription", JetWhere::Kind::Text}}}});
        const JetWhere::Result result =
            where.Translate("ServiceItemDescription Like '*x*' OR ServiceItemDescription = 'y'");
        QVERIFY(result.ok());
        QVERIFY(!result.sql.contains("'"));
        QCOMPARE(result.params, (QVariantList{"*x*", "y"}));
    }

    void likePatternsFollowJet() {
        const auto matches = [](const QString& pattern, const QString& text) {
            return QRegularExpression(JetWhere::LikePatternToRegex(pattern),
                                      QRegularExpression::CaseInsensitiveOption)
                .match(text)
                .hasMatch();
        };
        QVERIFY(matches("*grace*", "Amazing Grace"));
        QVERIFY(matches("a?c", "abc"));
        QVERIFY(!matches("a?c", "abbc"));
        QVERIFY(matches("#1", "21"));
        QVERIFY(!matches("#1", "a1"));
        QVERIFY(matches("[a-c]x", "Bx"));
        QVERIFY(matches("[!a-c]x", "dx"));
        QVERIFY(matches("[*]", "*"));
        QVERIFY(!matches("[*]", "a"));
        QVERIFY(matches("a.b", "a.b"));
        QVERIFY(!matches("a.b", "axb"));
    }

    void twoDigitYearsFallInTheJetWindow() {
        QCOMPARE(JetWhere::ParseDate("21-Nov-26").date(), QDate(2026, 11, 21));
        QCOMPARE(JetWhere::ParseDate("1-Jan-30").date(), QDate(1930, 1, 1));
        QCOMPARE(JetWhere::ParseDate("31-Dec-29").date(), QDate(2029, 12, 31));
        QVERIFY(!JetWhere::ParseDate("not a date").isValid());
    }
};

QTEST_GUILESS_MAIN(tst_JetWhere)
#include "tst_JetWhere.moc"
