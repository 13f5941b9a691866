// The shared module of the controls: string, path, tree and shell helpers with
// their answers and quirks as the controls rely on them.
#include "ScriptedPlatform.h"
#include "foundations/ErrorReport.h"
#include "foundations/VBError.h"
#include "foundations/VBTreeWidget.h"
#include "foundations/modQVLTControls.h"

#include <QFile>
#include <QFileDialog>
#include <QListView>
#include <QTest>

using namespace modQVLTControls;

namespace {
QStringList traceLines() {
    QFile file(qEnvironmentVariable("CORVANTIS_TRACE"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

// A tree:  A (A1 (A1a), A2), B (B1), C
void fillTree(VBTreeWidget& tree) {
    tree.Add(QVariant(), tvwLast, QStringLiteral("A"), QStringLiteral("A"));
    tree.Add(QStringLiteral("A"), tvwChild, QStringLiteral("A1"), QStringLiteral("A1"));
    tree.Add(QStringLiteral("A1"), tvwChild, QStringLiteral("A1a"), QStringLiteral("A1a"));
    tree.Add(QStringLiteral("A"), tvwChild, QStringLiteral("A2"), QStringLiteral("A2"));
    tree.Add(QVariant(), tvwLast, QStringLiteral("B"), QStringLiteral("B"));
    tree.Add(QStringLiteral("B"), tvwChild, QStringLiteral("B1"), QStringLiteral("B1"));
    tree.Add(QVariant(), tvwLast, QStringLiteral("C"), QStringLiteral("C"));
}

QStringList expandedKeys(const VBTreeWidget& tree) {
    QStringList keys;
    for (qint32 i = 1; i <= tree.Count(); ++i)
        if (tree.Nodes(i).Expanded())
            keys << tree.Nodes(i).Key();
    return keys;
}
} // namespace

class tst_modQVLTControls : public QObject {
    Q_OBJECT
private slots:
    // GetInstance
    void getInstanceOfZeroSaysCannotReturn();
    void getInstanceBeyondLastFieldSaysInstanceTooLarge();
    void getInstanceOneOfTextWithoutSeparatorIsWholeText();
    void getInstanceOfKeyWithEmptyFields();
    void getInstanceFields_data();
    void getInstanceFields();
    void getInstanceStepsPastWholeSeparators();
    // GetInstances
    void getInstancesCountsOverlappingOccurrences();
    void getInstancesOfAbsentOrEmpty();
    // GetWhatComesBetween
    void getWhatComesBetweenFindsTheText();
    void getWhatComesBetweenRightMarkerFirstShowsFullErrorBox();
    void getWhatComesBetweenMissingRightMarkerShowsFullErrorBox();
    void getWhatComesBetweenMissingLeftMarkerGivesWrongText();
    // TrimData, AddSlash, paths
    void trimDataOfBlanksOnBothSides();
    void trimDataRemovesRepetitionsOnTheArgumentItself();
    void trimDataWithEmptyTrimLeavesText();
    void addSlashLeavesPathEndingInSlashAlone();
    void addSlashAppendsToArgumentItself();
    void addSlashOfEmptyPathIsSlash();
    void getFileNameOfPathEndingInSlashIsEmpty();
    void getFileNameCutsAtLastSlash();
    void getFileExtension_data();
    void getFileExtension();
    // Trees
    void lockAndUnlockTreeviewSwitchRedrawing();
    void lockTreeviewOfNothingRaises91();
    void expandAllNodesByLevelZeroExpandsEveryParent();
    void expandAllNodesByLevelTwoExpandsTopLevel();
    void expandAllNodesByLevelThreeExpandsTwoLevels();
    void expandAllNodesByLevelOneExpandsNothing();
    void expandAllNodesByLevelOfEmptyTreeLeavesIt();
    void expandAllNodesByLevelFailureShowsErrorBox();
    void expandSubNodesOfNothingRaises91();
    void nodeAlreadyExistsTrueForExistingKey();
    void nodeAlreadyExistsQuietFalseForMissingKeyOrIndex();
    void nodeAlreadyExistsOtherFailureShowsFullErrorBox();
    void listviewItemAlreadyExists();
    void listviewItemAlreadyExistsIndexOutOfRangeShowsFullErrorBox();
    // Platform helpers
    void runShellExecuteOpensWithTheSystemsProgram();
    void runShellExecuteOffersChoiceWhenNoProgramIsAssociated_data();
    void runShellExecuteOffersChoiceWhenNoProgramIsAssociated();
    void is2KShellIsTrue();
    void dialogHookProcSwitchesFileListToThumbnails();
    void returnProcAddressReturnsItsArgument();
    void isArrayEmpty();
};

void tst_modQVLTControls::getInstanceOfZeroSaysCannotReturn() {
    QCOMPARE(GetInstance(QStringLiteral("a;b"), QStringLiteral(";"), 0),
             QStringLiteral("Cannot return an instance of zero"));
}

void tst_modQVLTControls::getInstanceBeyondLastFieldSaysInstanceTooLarge() {
    QCOMPARE(GetInstance(QStringLiteral("a;b"), QStringLiteral(";"), 3),
             QStringLiteral("Instance Too Large"));
    QCOMPARE(GetInstance(QStringLiteral("abc"), QStringLiteral(";"), 2),
             QStringLiteral("Instance Too Large"));
}

void tst_modQVLTControls::getInstanceOneOfTextWithoutSeparatorIsWholeText() {
    QCOMPARE(GetInstance(QStringLiteral("Amazing Grace"), QStringLiteral(";"), 1),
             QStringLiteral("Amazing Grace"));
}

void tst_modQVLTControls::getInstanceOfKeyWithEmptyFields() {
    QCOMPARE(GetInstance(QStringLiteral(";;SI;7"), QStringLiteral(";"), 4), QStringLiteral("7"));
    QCOMPARE(GetInstance(QStringLiteral(";;SI;7"), QStringLiteral(";"), 1), QString());
    QCOMPARE(GetInstance(QStringLiteral(";;SI;7"), QStringLiteral(";"), 2), QString());
    QCOMPARE(GetInstance(QStringLiteral(";;SI;7"), QStringLiteral(";"), 3), QStringLiteral("SI"));
}

void tst_modQVLTControls::getInstanceFields_data() {
    QTest::addColumn<QString>("data");
    QTest::addColumn<qint32>("instance");
    QTest::addColumn<QString>("expected");
    const QString key = QStringLiteral("Type;Hymn;;SI;12");
    QTest::newRow("1") << key << 1 << "Type";
    QTest::newRow("2") << key << 2 << "Hymn";
    QTest::newRow("3 empty") << key << 3 << "";
    QTest::newRow("4") << key << 4 << "SI";
    QTest::newRow("5 last") << key << 5 << "12";
    QTest::newRow("6 too large") << key << 6 << "Instance Too Large";
    QTest::newRow("trailing separator") << "a;b;" << 3 << "";
}

void tst_modQVLTControls::getInstanceFields() {
    QFETCH(QString, data);
    QFETCH(qint32, instance);
    QFETCH(QString, expected);
    QCOMPARE(GetInstance(data, QStringLiteral(";"), instance), expected);
}

void tst_modQVLTControls::getInstanceStepsPastWholeSeparators() {
    const QString data = QStringLiteral("one;;two;;three");
    QCOMPARE(GetInstance(data, QStringLiteral(";;"), 1), QStringLiteral("one"));
    QCOMPARE(GetInstance(data, QStringLiteral(";;"), 2), QStringLiteral("two"));
    QCOMPARE(GetInstance(data, QStringLiteral(";;"), 3), QStringLiteral("three"));
    QCOMPARE(GetInstance(data, QStringLiteral(";;"), 4), QStringLiteral("Instance Too Large"));
    // ";;;" holds one whole ";;" and a ";" that belongs to the next field.
    QCOMPARE(GetInstance(QStringLiteral("a;;;b"), QStringLiteral(";;"), 2), QStringLiteral(";b"));
}

void tst_modQVLTControls::getInstancesCountsOverlappingOccurrences() {
    QCOMPARE(GetInstances(QStringLiteral("aaa"), QStringLiteral("aa")), 2);
    QCOMPARE(GetInstances(QStringLiteral("a;b;c"), QStringLiteral(";")), 2);
}

void tst_modQVLTControls::getInstancesOfAbsentOrEmpty() {
    QCOMPARE(GetInstances(QStringLiteral("abc"), QStringLiteral("x")), 0);
    QCOMPARE(GetInstances(QString(), QStringLiteral("x")), 0);
    QCOMPARE(GetInstances(QStringLiteral("abc"), QString()), 0);
}

void tst_modQVLTControls::getWhatComesBetweenFindsTheText() {
    ScriptedPlatform platform;
    QCOMPARE(GetWhatComesBetween(QStringLiteral("<b>bold</b>"), QStringLiteral("<b>"),
                                 QStringLiteral("</b>")),
             QStringLiteral("bold"));
    QCOMPARE(GetWhatComesBetween(QStringLiteral("[]"), QStringLiteral("["), QStringLiteral("]")),
             QString());
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_modQVLTControls::getWhatComesBetweenRightMarkerFirstShowsFullErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    const int linesBefore = static_cast<int>(traceLines().size());
    QCOMPARE(GetWhatComesBetween(QStringLiteral("end) start("), QStringLiteral("("),
                                 QStringLiteral(")")),
             QString());
    QCOMPARE(platform.BoxCount(), 1);
    const ScriptedPlatform::Box box = platform.LastBox();
    QCOMPARE(box.Prompt,
             QStringLiteral("Error number is 5, Invalid procedure call or argument, ERL-0, "
                            "Source=QVLTCONTROLS: modQVLTControls: GetWhatComesBetween:  "
                            "Please send the error details to ") +
                 ErrorReport::SupportAddress());
    QCOMPARE(box.Buttons, vbOKOnly);
    QCOMPARE(box.Title, QString());
    // The full error box traces nothing.
    QCOMPARE(static_cast<int>(traceLines().size()), linesBefore);
}

void tst_modQVLTControls::getWhatComesBetweenMissingRightMarkerShowsFullErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    QCOMPARE(GetWhatComesBetween(QStringLiteral("(open"), QStringLiteral("("), QStringLiteral(")")),
             QString());
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY(platform.LastBox().Prompt.startsWith(QStringLiteral("Error number is 5, ")));
}

void tst_modQVLTControls::getWhatComesBetweenMissingLeftMarkerGivesWrongText() {
    // No tolerance: without the left marker the text is taken from position
    // Len(left marker), which is not what lies between anything.
    ScriptedPlatform platform;
    QCOMPARE(
        GetWhatComesBetween(QStringLiteral("abc)def"), QStringLiteral("("), QStringLiteral(")")),
        QStringLiteral("abc"));
    QCOMPARE(
        GetWhatComesBetween(QStringLiteral("abcd)ef"), QStringLiteral("<<"), QStringLiteral(")")),
        QStringLiteral("bcd"));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_modQVLTControls::trimDataOfBlanksOnBothSides() {
    QString text = QStringLiteral("   Amazing Grace  ");
    QCOMPARE(TrimData(text, QStringLiteral(" ")), QStringLiteral("Amazing Grace"));
}

void tst_modQVLTControls::trimDataRemovesRepetitionsOnTheArgumentItself() {
    QString text = QStringLiteral(",;,;a,;b,;,;");
    const QString result = TrimData(text, QStringLiteral(",;"));
    QCOMPARE(result, QStringLiteral("a,;b"));
    QCOMPARE(text, QStringLiteral("a,;b"));
}

void tst_modQVLTControls::trimDataWithEmptyTrimLeavesText() {
    QString text = QStringLiteral(" x ");
    QCOMPARE(TrimData(text, QString()), QStringLiteral(" x "));
}

void tst_modQVLTControls::addSlashLeavesPathEndingInSlashAlone() {
    QString path = QStringLiteral("C:\\Songs\\");
    QCOMPARE(AddSlash(path), QStringLiteral("C:\\Songs\\"));
    QCOMPARE(path, QStringLiteral("C:\\Songs\\"));
}

void tst_modQVLTControls::addSlashAppendsToArgumentItself() {
    QString path = QStringLiteral("C:\\Songs");
    QCOMPARE(AddSlash(path), QStringLiteral("C:\\Songs\\"));
    QCOMPARE(path, QStringLiteral("C:\\Songs\\"));
}

void tst_modQVLTControls::addSlashOfEmptyPathIsSlash() {
    QString path;
    QCOMPARE(AddSlash(path), QStringLiteral("\\"));
    QCOMPARE(path, QStringLiteral("\\"));
}

void tst_modQVLTControls::getFileNameOfPathEndingInSlashIsEmpty() {
    QCOMPARE(GetFileName(QStringLiteral("C:\\Songs\\")), QString());
}

void tst_modQVLTControls::getFileNameCutsAtLastSlash() {
    QCOMPARE(GetFileName(QStringLiteral("C:\\Songs\\Grace.txt")), QStringLiteral("Grace.txt"));
    QCOMPARE(GetFileName(QStringLiteral("Grace.txt")), QStringLiteral("Grace.txt"));
}

void tst_modQVLTControls::getFileExtension_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << "C:\\Songs\\Grace.txt"
                           << "txt";
    QTest::newRow("last dot") << "C:\\Songs\\Grace.old.rtf"
                              << "rtf";
    QTest::newRow("no dot") << "README"
                            << "README";
    QTest::newRow("dot in folder name") << "C:\\My.Songs\\Grace"
                                        << "Songs\\Grace";
    QTest::newRow("trailing dot") << "Grace."
                                  << "";
}

void tst_modQVLTControls::getFileExtension() {
    QFETCH(QString, path);
    QFETCH(QString, expected);
    QCOMPARE(GetFileExtension(path), expected);
}

void tst_modQVLTControls::lockAndUnlockTreeviewSwitchRedrawing() {
    VBTreeWidget tree;
    QVERIFY(tree.updatesEnabled());
    LockTreeview(&tree);
    QVERIFY(!tree.updatesEnabled());
    UnLockTreeview(&tree);
    QVERIFY(tree.updatesEnabled());
}

void tst_modQVLTControls::lockTreeviewOfNothingRaises91() {
    QVERIFY_THROWS_EXCEPTION(VBError, LockTreeview(nullptr));
    try {
        UnLockTreeview(nullptr);
        QFAIL("no failure");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, VBErr::ObjectNotSet);
    }
}

void tst_modQVLTControls::expandAllNodesByLevelZeroExpandsEveryParent() {
    VBTreeWidget tree;
    fillTree(tree);
    ExpandAllNodesByLevel(&tree, 0);
    QCOMPARE(expandedKeys(tree), (QStringList{"A", "A1", "B"}));
    QVERIFY(tree.updatesEnabled());
}

void tst_modQVLTControls::expandAllNodesByLevelTwoExpandsTopLevel() {
    VBTreeWidget tree;
    fillTree(tree);
    ExpandAllNodesByLevel(&tree, 2);
    QCOMPARE(expandedKeys(tree), (QStringList{"A", "B"}));
    QVERIFY(tree.updatesEnabled());
}

void tst_modQVLTControls::expandAllNodesByLevelThreeExpandsTwoLevels() {
    VBTreeWidget tree;
    fillTree(tree);
    ExpandAllNodesByLevel(&tree, 3);
    QCOMPARE(expandedKeys(tree), (QStringList{"A", "A1", "B"}));
}

void tst_modQVLTControls::expandAllNodesByLevelOneExpandsNothing() {
    // Level 1 hands level 0 to each top-level node, which expands nothing.
    VBTreeWidget tree;
    fillTree(tree);
    ExpandAllNodesByLevel(&tree, 1);
    QCOMPARE(expandedKeys(tree), QStringList());
}

void tst_modQVLTControls::expandAllNodesByLevelOfEmptyTreeLeavesIt() {
    ScriptedPlatform platform;
    VBTreeWidget tree;
    ExpandAllNodesByLevel(&tree, 2);
    ExpandAllNodesByLevel(&tree, 0);
    QCOMPARE(tree.Count(), 0);
    QVERIFY(tree.updatesEnabled());
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_modQVLTControls::expandAllNodesByLevelFailureShowsErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    ExpandAllNodesByLevel(nullptr, 2);
    QCOMPARE(platform.BoxCount(), 1);
    const QString text = QStringLiteral("QVLTCONTROLS:modQVLTControls:ExpandAllNodesByLevel: Error "
                                        "number is 91, Object variable or With block variable not "
                                        "set");
    QCOMPARE(platform.LastBox().Prompt, text);
    QCOMPARE(platform.LastBox().Buttons, vbExclamation | vbOKOnly);
    QCOMPARE(platform.LastBox().Title, QStringLiteral("Error"));
    QVERIFY(traceLines().contains(QStringLiteral("ERROR: ") + text));
}

void tst_modQVLTControls::expandSubNodesOfNothingRaises91() {
    try {
        ExpandSubNodes(VBNode(), 2);
        QFAIL("no failure");
    } catch (const VBError& e) {
        QCOMPARE(e.Number, VBErr::ObjectNotSet);
    }
}

void tst_modQVLTControls::nodeAlreadyExistsTrueForExistingKey() {
    ScriptedPlatform platform;
    VBTreeWidget tree;
    fillTree(tree);
    QVERIFY(NodeAlreadyExists(QStringLiteral("A1a"), &tree));
    QVERIFY(NodeAlreadyExists(3, &tree));
}

void tst_modQVLTControls::nodeAlreadyExistsQuietFalseForMissingKeyOrIndex() {
    ScriptedPlatform platform;
    VBTreeWidget tree;
    fillTree(tree);
    QVERIFY(!NodeAlreadyExists(QStringLiteral("Z"), &tree)); // 35601
    QVERIFY(!NodeAlreadyExists(99, &tree));                  // 35600
    QVERIFY(!NodeAlreadyExists(QString(), &tree));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_modQVLTControls::nodeAlreadyExistsOtherFailureShowsFullErrorBox() {
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    QVERIFY(!NodeAlreadyExists(QStringLiteral("A"), nullptr));
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY(platform.LastBox().Prompt.startsWith(
        QStringLiteral("Error number is 91, Object variable or With block variable not set, "
                       "ERL-0, Source=QVLTCONTROLS: modQVLTControls: NodeAlreadyExists: ")));
    QCOMPARE(platform.LastBox().Buttons, vbOKOnly);
}

void tst_modQVLTControls::listviewItemAlreadyExists() {
    ScriptedPlatform platform;
    VBTreeWidget list;
    list.SetListView();
    list.AddItem(QStringLiteral("SI;5"), QStringLiteral("Amazing Grace"));
    QVERIFY(ListviewItemAlreadyExists(QStringLiteral("SI;5"), &list));
    QVERIFY(ListviewItemAlreadyExists(1, &list));
    QVERIFY(!ListviewItemAlreadyExists(QStringLiteral("SI;6"), &list));
    QCOMPARE(platform.BoxCount(), 0);
}

void tst_modQVLTControls::listviewItemAlreadyExistsIndexOutOfRangeShowsFullErrorBox() {
    // Only 35601 is quiet for a list: an index out of range (35600) is reported.
    ScriptedPlatform platform;
    platform.QueueAnswer(vbOK);
    VBTreeWidget list;
    list.SetListView();
    QVERIFY(!ListviewItemAlreadyExists(4, &list));
    QCOMPARE(platform.BoxCount(), 1);
    QVERIFY(platform.LastBox().Prompt.startsWith(
        QStringLiteral("Error number is 35600, Index out of bounds, ERL-0, "
                       "Source=QVLTCONTROLS: modQVLTControls: ListviewItemAlreadyExists: ")));
}

void tst_modQVLTControls::runShellExecuteOpensWithTheSystemsProgram() {
    ScriptedPlatform platform;
    platform.SetShellResult(42);
    QCOMPARE(RunShellExecute(QStringLiteral("open"), QStringLiteral("C:\\Songs\\Grace.rtf"),
                             QString(), QStringLiteral("C:\\Songs"), 1),
             42);
    QCOMPARE(platform.ShellCalls().size(), 1);
    const ScriptedPlatform::ShellCall call = platform.ShellCalls().first();
    QCOMPARE(call.Verb, QStringLiteral("open"));
    QCOMPARE(call.File, QStringLiteral("C:\\Songs\\Grace.rtf"));
    QCOMPARE(call.Directory, QStringLiteral("C:\\Songs"));
    QCOMPARE(call.ShowCmd, 1);
    QVERIFY(platform.OpenWithFiles().isEmpty());
}

void tst_modQVLTControls::runShellExecuteOffersChoiceWhenNoProgramIsAssociated_data() {
    QTest::addColumn<qint32>("shellAnswer");
    QTest::addColumn<bool>("offersChoice");
    QTest::newRow("31 no association") << 31 << true;
    QTest::newRow("49") << 49 << true;
    QTest::newRow("2 file not found") << 2 << false;
}

void tst_modQVLTControls::runShellExecuteOffersChoiceWhenNoProgramIsAssociated() {
    QFETCH(qint32, shellAnswer);
    QFETCH(bool, offersChoice);
    ScriptedPlatform platform;
    platform.SetShellResult(shellAnswer);
    RunShellExecute(QStringLiteral("open"), QStringLiteral("notes.xyz"), QString(), QString(), 1);
    QCOMPARE(platform.OpenWithFiles(),
             offersChoice ? QStringList{QStringLiteral("notes.xyz")} : QStringList());
}

void tst_modQVLTControls::is2KShellIsTrue() {
    QVERIFY(Is2KShell());
}

void tst_modQVLTControls::dialogHookProcSwitchesFileListToThumbnails() {
    QFileDialog dialog;
    QCOMPARE(DialogHookProc(&dialog), 0);
    QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
    QVERIFY(dialog.iconProvider() != nullptr);
    auto* list = dialog.findChild<QListView*>(QStringLiteral("listView"));
    QVERIFY(list);
    QCOMPARE(list->viewMode(), QListView::IconMode);
    QVERIFY(list->iconSize().width() >= 64);
    QCOMPARE(DialogHookProc(nullptr), 0);
}

void tst_modQVLTControls::returnProcAddressReturnsItsArgument() {
    QCOMPARE(ReturnProcAddress(qintptr(0x1234)), qintptr(0x1234));
    auto* function = &DialogHookProc;
    QVERIFY(ReturnProcAddress(function) == function);
}

void tst_modQVLTControls::isArrayEmpty() {
    QVERIFY(IsArrayEmpty(QList<qint32>()));
    QVERIFY(!IsArrayEmpty(QList<qint32>{1}));
    QVERIFY(IsArrayEmpty(QVariant()));
    QVERIFY(IsArrayEmpty(QVariant(QVariantList())));
    QVERIFY(!IsArrayEmpty(QVariant(QStringList{QStringLiteral("a")})));
    QVERIFY(IsArrayEmpty(QVariant(5)));
}

QTEST_MAIN(tst_modQVLTControls)
#include "tst_modQVLTControls.moc"
