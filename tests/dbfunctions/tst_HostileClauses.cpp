// WHERE texts as a user may type or paste them into the quick filter or a short list's
// criteria: nested without end, holding NUL characters or halves of surrogate pairs, patterns
// and literals of megabytes. Every one is answered at once, with the right rows or a clear
// reason, and nothing is stored. A case that could crash runs in a child process (this very
// program, started with "--child CASE"), so that a crash fails its test instead of ending the
// suite.

#include "DataAccess.h"
#include "JetLike.h"
#include "JetWhere.h"
#include "TestDatabase.h"

#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <QtTest>

#include <atomic>
#include <memory>

namespace {

DataAccess& da() {
    return DataAccess::Instance();
}

// The ids of a recordset's rows, in order, without repeats.
QList<qint32> Ids(Recordset* rs, const QString& field) {
    QList<qint32> ids;
    if (!rs)
        return ids;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        const qint32 id = rs->Fields(field).toInt();
        if (!ids.contains(id))
            ids << id;
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

// Runs one of the operations that take a clause; answers the ids and the error text.
QList<qint32> Run(const QString& operation, const QString& clause, QString& error) {
    std::unique_ptr<Recordset> rs;
    error.clear();
    if (operation == "joined") {
        da().GetServiceItemsJoined(clause, 4, error, rs);
        return Ids(rs.get(), "ServiceItems.ServiceItemID");
    }
    if (operation == "candidates") {
        da().GetShortListCandidates(clause, error, rs);
        return Ids(rs.get(), "ServiceItems.ServiceItemID");
    }
    da().GetServices(clause, 4, error, rs);
    return Ids(rs.get(), "ServiceID");
}

QString FieldOf(const QString& operation) {
    return operation == "services" ? QStringLiteral("ServiceID = 5")
                                   : QStringLiteral("ServiceItems.ServiceItemID = 5");
}

// "((((field = 5))))" with depth parentheses, or "NOT NOT ... field = 5".
QString Nested(const QString& operation, const QString& shape, qsizetype depth) {
    if (shape == "parentheses")
        return QString(depth, '(') + FieldOf(operation) + QString(depth, ')');
    return QStringLiteral("NOT ").repeated(depth) + FieldOf(operation);
}

// The child's side: runs an operation on a nested clause and prints what it answered.
int RunChild(const QString& spec) {
    const QStringList parts = spec.split(':'); // operation:shape:depth
    if (parts.size() != 3)
        return 2;
    TestDatabase db;
    if (!db.IsValid())
        return 3;
    for (int i = 0; i < 6; ++i)
        db.AddServiceItem(TestDatabase::Prayer, QStringLiteral("Prayer %1").arg(i));
    db.AddService(QStringLiteral("Morning"));
    QString error;
    const QList<qint32> ids =
        Run(parts[0], Nested(parts[0], parts[1], parts[2].toLongLong()), error);
    QTextStream out(stdout);
    out << "error=" << error << "\nrows=" << ids.size() << "\n";
    return 0;
}

struct ChildAnswer {
    bool finishedNormally = false;
    QString error;
    int rows = -1;
};

ChildAnswer AskChild(const QString& spec) {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {"--child", spec});
    ChildAnswer answer;
    if (!child.waitForFinished(120000)) {
        child.kill();
        child.waitForFinished();
        return answer;
    }
    answer.finishedNormally = child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
    for (const QString& line : QString::fromUtf8(child.readAllStandardOutput()).split('\n')) {
        if (line.startsWith("error="))
            answer.error = line.mid(6);
        else if (line.startsWith("rows="))
            answer.rows = line.mid(5).toInt();
    }
    return answer;
}

JetWhere ItemsWhere() {
    return JetWhere({{"ServiceItems",
                      "si",
                      {{"ServiceItemID", JetWhere::Kind::Number},
                       {"ServiceItemDescription", JetWhere::Kind::Text},
                       {"DateCreated", JetWhere::Kind::Date}}}});
}

// Counts the warnings Qt prints while it lives.
class WarningCounter {
public:
    WarningCounter() { s_count = 0, s_previous = qInstallMessageHandler(Handler); }
    ~WarningCounter() { qInstallMessageHandler(s_previous); }
    int Count() const { return s_count; }

private:
    static void Handler(QtMsgType type, const QMessageLogContext&, const QString&) {
        if (type != QtDebugMsg && type != QtInfoMsg)
            ++s_count;
    }
    static inline std::atomic<int> s_count = 0;
    static inline QtMessageHandler s_previous = nullptr;
};

} // namespace

class tst_HostileClauses : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_db;
    QHash<QString, qint32> m_ids;

    QList<qint32> itemsWhere(const QString& clause, QString& error) {
        return Run("joined", clause, error);
    }
    QList<qint32> allItemsWithADescription() {
        QString error;
        return itemsWhere("ServiceItemDescription Like '*'", error);
    }
    QList<qint32> allItems() {
        QString error;
        return itemsWhere("ServiceItems.ServiceItemID > 0", error);
    }
    qint32 storedRows() const {
        return m_db->Count("ServiceItems") + m_db->Count("Services") + m_db->Count("ShortLists");
    }

private slots:
    void initTestCase() {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY2(m_db->IsValid(), qPrintable(m_db->LastError()));
        m_ids["grace"] = m_db->AddServiceItem(TestDatabase::Song, "Amazing Grace");
        m_ids["church"] = m_db->AddServiceItem(TestDatabase::Story, "ÉGLISE du village");
        m_ids["greek"] = m_db->AddServiceItem(TestDatabase::Reading, "ΣΟΦΙΑ");
        m_ids["long"] = m_db->AddServiceItem(TestDatabase::Reading,
                                             QStringLiteral("Psalm 119 ").repeated(7000));
        m_ids["nonchar"] = m_db->AddServiceItem(TestDatabase::Prayer, QString("a") + QChar(0xFFFF));
        for (auto it = m_ids.cbegin(); it != m_ids.cend(); ++it)
            QVERIFY2(it.value() > 0, qPrintable(it.key()));
        QVERIFY(m_db->AddService("Morning") > 0);
    }
    void cleanupTestCase() { m_db.reset(); }

    void deepNestingIsRefusedByEveryOperation_data() {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("shape");
        QTest::addColumn<int>("depth");
        for (const char* operation : {"joined", "candidates", "services"})
            for (const auto& [shape, depth] :
                 {std::pair{"parentheses", 15000}, std::pair{"not", 25600}, std::pair{"not", 101}})
                QTest::addRow("%s %s %d", operation, shape, depth) << operation << shape << depth;
    }
    void deepNestingIsRefusedByEveryOperation() {
        QFETCH(QString, operation);
        QFETCH(QString, shape);
        QFETCH(int, depth);
        const ChildAnswer answer =
            AskChild(QStringLiteral("%1:%2:%3").arg(operation, shape).arg(depth));
        QVERIFY2(answer.finishedNormally, "the child process crashed or hung");
        QVERIFY2(answer.error.contains("nests parentheses and Not more than 100 deep"),
                 qPrintable(answer.error));
        QCOMPARE(answer.rows, 0);
    }

    void nestingUpToTheLimitStillFindsItsRows_data() {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("shape");
        for (const char* operation : {"joined", "candidates", "services"})
            for (const char* shape : {"parentheses", "not"})
                QTest::addRow("%s %s", operation, shape) << operation << shape;
    }
    void nestingUpToTheLimitStillFindsItsRows() {
        QFETCH(QString, operation);
        QFETCH(QString, shape);
        // An even number of Not cancels out; 100 parentheses keep the condition as it is.
        const ChildAnswer answer =
            AskChild(QStringLiteral("%1:%2:%3").arg(operation, shape).arg(100));
        QVERIFY2(answer.finishedNormally, "the child process crashed or hung");
        QVERIFY2(answer.error.isEmpty(), qPrintable(answer.error));
        QCOMPARE(answer.rows, operation == "services" ? 0 : 1);
    }

    void mixedNestingThatTheEngineCannotReadIsRefusedWithItsReason() {
        // Not and Or at every level, as deep as the translator allows: more than the engine's
        // parser reads.
        QString clause = "ServiceItems.ServiceItemID = 5";
        for (int i = 0; i < 49; ++i)
            clause = QStringLiteral("NOT (ServiceItems.ServiceItemID = 1 OR ") + clause + ')';
        QString error;
        const QList<qint32> ids = itemsWhere(clause, error);
        QVERIFY2(error.contains("The filter cannot be used: its conditions are nested too deeply"),
                 qPrintable(error));
        QVERIFY(ids.isEmpty());
    }

    void parserStaysWithinASmallStack() {
        // The parser alone, on a thread with a quarter of a megabyte of stack: the depth limit
        // comes long before the stack ends.
        const JetWhere where = ItemsWhere();
        QStringList errors;
        QThread* thread = QThread::create([&] {
            for (const QString& clause :
                 {QString(200000, '(') + "ServiceItemID = 5" + QString(200000, ')'),
                  QStringLiteral("NOT ").repeated(200000) + "ServiceItemID = 5",
                  QStringLiteral("(NOT ").repeated(100000) + "ServiceItemID = 5"})
                errors << where.Translate(clause).error;
        });
        thread->setStackSize(256 * 1024);
        thread->start();
        QVERIFY(thread->wait(60000));
        delete thread;
        QCOMPARE(errors.size(), 3);
        for (const QString& error : errors)
            QVERIFY2(error.contains("more than 100 deep"), qPrintable(error));
    }

    void nulInsideQuotedTextIsRefused() {
        const qint32 before = storedRows();
        for (const QString& clause :
             {QString("ServiceItemDescription Like '*") + QChar(0) + "*'",
              QString("ServiceItemDescription = 'Amazing") + QChar(0) + "Grace'",
              QString("ServiceItemDescription In ('x', '") + QChar(0) + "')"}) {
            QString error;
            const QList<qint32> ids = itemsWhere(clause, error);
            QVERIFY2(error.contains("NUL character"), qPrintable(error));
            QVERIFY(ids.isEmpty());
        }
        QCOMPARE(storedRows(), before);
    }

    void halfASurrogatePairIsRefusedWithoutWarnings() {
        WarningCounter warnings;
        for (QChar half : {QChar(0xD800), QChar(0xDC00)}) {
            QString error;
            const QList<qint32> ids =
                itemsWhere(QString("ServiceItemDescription Like '*") + half + "*'", error);
            QVERIFY2(error.contains("surrogate pair"), qPrintable(error));
            QVERIFY(ids.isEmpty());
        }
        QCOMPARE(warnings.Count(), 0);
    }

    void nonCharacterInAPatternMatchesWithoutWarnings() {
        WarningCounter warnings;
        QString error;
        const QList<qint32> ids =
            itemsWhere(QString("ServiceItemDescription Like '*") + QChar(0xFFFF) + "'", error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(ids, QList<qint32>{m_ids["nonchar"]});
        QCOMPARE(warnings.Count(), 0);
    }

    void megabyteOfStarsMatchesAsOneStar() {
        const QString stars(1024 * 1024, '*');
        QString error;
        QCOMPARE(itemsWhere("ServiceItemDescription Like '" + stars + "'", error),
                 allItemsWithADescription());
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(itemsWhere("ServiceItemDescription Not Like '" + stars + "'", error),
                 QList<qint32>{});
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    void longLiteralThatAnItemHoldsIsFound() {
        const QString text = QStringLiteral("Psalm 119 ").repeated(7000); // 70 KB
        QString error;
        QCOMPARE(itemsWhere("ServiceItemDescription Like '" + text + "'", error),
                 QList<qint32>{m_ids["long"]});
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(itemsWhere("ServiceItemDescription Like '*" + text.mid(5) + "'", error),
                 QList<qint32>{m_ids["long"]});
        QCOMPARE(itemsWhere("ServiceItemDescription = '" + text.toUpper() + "'", error),
                 QList<qint32>{m_ids["long"]});
        QCOMPARE(itemsWhere("ServiceItemDescription Like '" + text + "x'", error), QList<qint32>{});
    }

    void megabyteOfOpeningBracketsIsAnsweredAsText() {
        QString error;
        const QList<qint32> ids =
            itemsWhere("ServiceItemDescription Like '*" + QString(1024 * 1024, '[') + "*'", error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(ids.isEmpty());
    }

    void megabyteDateIsRefusedWithItsReason() {
        QString error;
        const QList<qint32> ids =
            itemsWhere("DateCreated = #" + QStringLiteral("1 ").repeated(512 * 1024) + "#", error);
        QVERIFY2(error.contains("longer than 64 characters"), qPrintable(error));
        QVERIFY(ids.isEmpty());
    }

    void longChainOfOrFindsItsRows() {
        // As many conditions as a filter may hold: grouped, the engine's expression stays
        // shallow.
        QStringList parts;
        for (int i = 0; i < JetWhere::kMaxConditions; ++i)
            parts << QStringLiteral("ServiceItems.ServiceItemID = %1").arg(i + 1);
        QString error;
        const QList<qint32> ids = itemsWhere(parts.join(" OR "), error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(ids, allItems());
        QVERIFY(ids.contains(m_ids["greek"]));
    }

    void chainOfHundredThousandOrIsRefusedWithItsReason() {
        const QString clause = QStringLiteral("ServiceItemDescription = 'x' OR ").repeated(100000) +
                               "ServiceItemID = 1";
        QString error;
        const QList<qint32> ids = itemsWhere(clause, error);
        QVERIFY2(error.contains("more than 1000 conditions"), qPrintable(error));
        QVERIFY(ids.isEmpty());
    }

    void listOfMoreValuesThanTheLimitIsRefusedWithItsReason() {
        const QString clause = "ServiceItems.ServiceItemID In (" +
                               QStringLiteral("7, ").repeated(JetWhere::kMaxValues) + "8)";
        QString error;
        const QList<qint32> ids = itemsWhere(clause, error);
        QVERIFY2(error.contains("more than 30000 values"), qPrintable(error));
        QVERIFY(ids.isEmpty());
    }

    void errorTextQuotesOnlyTheStartOfWhatWasTyped() {
        QString error;
        itemsWhere(QString(1024 * 1024, 'x') + " = 1", error);
        QVERIFY2(error.contains("unknown field 'xxxxxxxx"), qPrintable(error.left(200)));
        QVERIFY(error.size() < 300);
    }

    void backwardsRangeInAPatternIsRefused() {
        QString error;
        const QList<qint32> ids = itemsWhere("ServiceItemDescription Like '[z-a]*'", error);
        QVERIFY2(error.contains("the range [z-a] runs backwards"), qPrintable(error));
        QVERIFY(ids.isEmpty());
    }

    void likeIgnoresCaseInEveryAlphabet() {
        QString error;
        QCOMPARE(itemsWhere("ServiceItemDescription Like '*église*'", error),
                 QList<qint32>{m_ids["church"]});
        QCOMPARE(itemsWhere("ServiceItemDescription Like 'σοφ?α'", error),
                 QList<qint32>{m_ids["greek"]});
        QCOMPARE(itemsWhere("ServiceItemDescription Like '[α-ω]οφια'", error),
                 QList<qint32>{m_ids["greek"]});
        QCOMPARE(itemsWhere("ServiceItemDescription Like '*GRACE'", error),
                 QList<qint32>{m_ids["grace"]});
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    void likeMatchesAsTheRegularExpressionOfThePattern_data() {
        QTest::addColumn<QString>("pattern");
        const QStringList patterns = {
            "",          "*",       "**",    "?",       "a",         "A*",      "*a",
            "*a*",       "a*b",     "*a*b*", "a?c",     "#1",        "##",      "[a-c]x",
            "[!a-c]x",   "[*]",     "[?]*",  "[#]",     "a.b",       "*[0-9]",  "[]",
            "[",         "a[",      "]",     "[!]",     "[a-]",      "[-a]",    "*grâce*",
            "ÉGLISE*",   "*σ",      "Σ*",    "?😀?",     "😀*",        "*Straße", "*ʼ*",
            "a*a*a*a*b", "*ab*ab*", "x*",    "*x*y*z*", "[!x]*[!y]", "?*?",     "*?"};
        for (const QString& pattern : patterns)
            QTest::addRow("%s", qPrintable(pattern.isEmpty() ? QString("(empty)") : pattern))
                << pattern;
    }
    void likeMatchesAsTheRegularExpressionOfThePattern() {
        QFETCH(QString, pattern);
        const QStringList texts = {"",
                                   "a",
                                   "A",
                                   "abc",
                                   "abbc",
                                   "ab",
                                   "aab",
                                   "ab ab",
                                   "axb",
                                   "a.b",
                                   "21",
                                   "a1",
                                   "Bx",
                                   "dx",
                                   "*",
                                   "?x",
                                   "#",
                                   "9",
                                   "[",
                                   "a[",
                                   "]",
                                   "!",
                                   "-",
                                   "Grâce",
                                   "GRÂCE divine",
                                   "église du village",
                                   "ΣΟΦΙΑ",
                                   "σοφια",
                                   "ός",
                                   "Σ",
                                   "a😀b",
                                   "😀",
                                   "straße",
                                   "STRASSE",
                                   "ʼ",
                                   "aaaaab",
                                   "aaaa",
                                   "xyz",
                                   "x",
                                   "٣",
                                   "a\nb",
                                   "zy",
                                   "xy"};
        const QRegularExpression regex(JetWhere::LikePatternToRegex(pattern),
                                       QRegularExpression::CaseInsensitiveOption |
                                           QRegularExpression::DotMatchesEverythingOption);
        QVERIFY(regex.isValid() || pattern == "[!]");
        JetLikePattern like;
        QVERIFY(like.Compile(pattern));
        for (const QString& text : texts) {
            if (!regex.isValid())
                break; // "[!]": Jet's empty negated class, which no expression could read
            const bool expected = regex.match(text).hasMatch();
            const QByteArray utf8 = text.toUtf8();
            QVERIFY2(like.Matches(text) == expected, qPrintable(text));
            QVERIFY2(like.MatchesUtf8(utf8.constData(), utf8.size()) == expected, qPrintable(text));
        }
    }
};

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--child") == 0)
        return RunChild(QString::fromLocal8Bit(argv[2]));
    tst_HostileClauses test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_HostileClauses.moc"
