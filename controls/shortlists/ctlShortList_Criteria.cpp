#include "shortlists/ctlShortList.h"

#include "TraceLog.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBRuntime.h"
#include "foundations/modQVLTControls.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalBlocker>

// The criteria rows of the short-list query language: adding and resetting
// rows, the editors of each field kind and operator, their checks, and the
// WHERE text that narrows tvwAvailable.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlShortList"), QString::fromLatin1(member));
}

// Columns of a row, in twips from the left of the scrolled area.
constexpr qint32 kRowHeight = 700;
constexpr qint32 kTop = 120;
constexpr qint32 kFieldsLeft = 120, kFieldsWidth = 2400;
constexpr qint32 kOperatorLeft = 2640, kOperatorWidth = 1800;
constexpr qint32 kValue1Left = 4560, kValueWidth = 1500;
constexpr qint32 kAndLeft = 6120, kAndWidth = 420;
constexpr qint32 kValue2Left = 6600;
constexpr qint32 kAndOrLeft = 8220, kAndOrWidth = 600;
constexpr qint32 kEditorHeight = 330;

qint32 RowTop(qint16 Index) {
    return kTop + Index * kRowHeight;
}

void Invalid(const QString& strMessage) {
    Platform::Current().MsgBox(strMessage, vbOKOnly, QStringLiteral("Invalid Entry"));
}
} // namespace

// ---- Rows -------------------------------------------------------------------------

void ctlShortList::CreateCriteriaRow(qint16 Index) {
    QWidget* area = SSScrollCriteria->widget();
    CriteriaRow r;
    auto named = [&](QWidget* w, const char* name) {
        w->setObjectName(QString::fromLatin1(name));
        w->setProperty("Index", Index);
        w->hide();
    };
    r.cboFields = new QComboBox(area);
    named(r.cboFields, "cboFields");
    r.cboOperator = new QComboBox(area);
    named(r.cboOperator, "cboOperator");
    r.txtCriterion1 = new QLineEdit(area);
    named(r.txtCriterion1, "txtCriterion1");
    r.txtCriterion2 = new QLineEdit(area);
    named(r.txtCriterion2, "txtCriterion2");
    r.dtpCriterion1 = new QDateEdit(area);
    named(r.dtpCriterion1, "dtpCriterion1");
    r.dtpCriterion2 = new QDateEdit(area);
    named(r.dtpCriterion2, "dtpCriterion2");
    for (QDateEdit* dtp : {r.dtpCriterion1, r.dtpCriterion2}) {
        dtp->setCalendarPopup(true);
        dtp->setDisplayFormat(QStringLiteral("dd-MMM-yyyy"));
    }
    r.cboCriterion = new QComboBox(area);
    named(r.cboCriterion, "cboCriterion");
    r.lblAnd = new QLabel(QStringLiteral("and"), area);
    named(r.lblAnd, "lblAnd");
    r.cmdAndOr = new QPushButton(area);
    named(r.cmdAndOr, "cmdAndOr");
    connect(r.cboFields, &QComboBox::currentIndexChanged, this,
            [this, Index] { cboFields_Click(Index); });
    connect(r.cboOperator, &QComboBox::currentIndexChanged, this,
            [this, Index] { cboOperator_Click(Index); });
    // Picking the same operator again resets its editors as well.
    connect(r.cboOperator, &QComboBox::activated, this, [this, Index](int intPicked) {
        if (intPicked == cboOperator(Index)->currentIndex())
            cboOperator_Click(Index);
    });
    connect(r.cmdAndOr, &QPushButton::clicked, this, [this, Index] { cmdAndOr_Click(Index); });
    if (Index < m_rows.size())
        m_rows[Index] = r;
    else
        m_rows.append(r);
}

void ctlShortList::UnloadCriteriaRow(qint16 Index) {
    CriteriaRow& r = m_rows[Index];
    for (QWidget* w :
         {static_cast<QWidget*>(r.cboCriterion), static_cast<QWidget*>(r.txtCriterion1),
          static_cast<QWidget*>(r.txtCriterion2), static_cast<QWidget*>(r.dtpCriterion1),
          static_cast<QWidget*>(r.dtpCriterion2), static_cast<QWidget*>(r.lblAnd),
          static_cast<QWidget*>(r.cboFields), static_cast<QWidget*>(r.cboOperator),
          static_cast<QWidget*>(r.cmdAndOr)})
        delete w;
    m_rows.removeAt(Index);
}

// Each row stands 700 twips below the one before; lblAnd 60 below the top of
// the row's value editors, which share their top.
void ctlShortList::PlaceCriteriaRow(qint16 Index) {
    const CriteriaRow& r = m_rows[Index];
    const qint32 lngTop = RowTop(Index);
    r.cboFields->setGeometry(Twips::ToPixels(kFieldsLeft, lngTop, kFieldsWidth, kEditorHeight));
    r.cboOperator->setGeometry(
        Twips::ToPixels(kOperatorLeft, lngTop, kOperatorWidth, kEditorHeight));
    for (QWidget* w :
         {static_cast<QWidget*>(r.txtCriterion1), static_cast<QWidget*>(r.dtpCriterion1),
          static_cast<QWidget*>(r.cboCriterion)})
        w->setGeometry(Twips::ToPixels(kValue1Left, lngTop, kValueWidth, kEditorHeight));
    r.lblAnd->setGeometry(Twips::ToPixels(kAndLeft, lngTop + 60, kAndWidth, kEditorHeight));
    for (QWidget* w :
         {static_cast<QWidget*>(r.txtCriterion2), static_cast<QWidget*>(r.dtpCriterion2)})
        w->setGeometry(Twips::ToPixels(kValue2Left, lngTop, kValueWidth, kEditorHeight));
    r.cmdAndOr->setGeometry(Twips::ToPixels(kAndOrLeft, lngTop, kAndOrWidth, kEditorHeight));
}

void ctlShortList::AddNewCriteria() {
    const auto entry = Entry("AddNewCriteria").Enter();
    entry.FullErrorBox([&] {
        const qint16 Index = intCriteriaCount;
        // The store reads a condition of limited depth; more rows than this would
        // only end in its error text at the apply.
        if (Index >= MaxCriteria) {
            Invalid(QStringLiteral("A Short-List can be narrowed by no more than %1 criteria. "
                                   "Please apply these, or start again with New Criteria.")
                        .arg(MaxCriteria));
            return;
        }
        if (Index >= m_rows.size())
            CreateCriteriaRow(Index);
        PlaceCriteriaRow(Index);
        const CriteriaRow& r = m_rows[Index];
        r.cboFields->show();
        LoadFields(r.cboFields);
        r.cboFields->setCurrentIndex(ShortListCriterion::DefaultFieldIndex);
        r.cboOperator->show();
        QString strErrorMessage;
        LoadOperators(r.cboOperator, ShortListCriterion::Text, strErrorMessage);
        {
            // Index 0 may stand selected already after cboFields_Click.
            const QSignalBlocker block(r.cboOperator);
            r.cboOperator->setCurrentIndex(-1);
        }
        r.cboOperator->setCurrentIndex(0);
        r.txtCriterion1->show();
        r.txtCriterion1->clear();
        r.txtCriterion2->clear();
        if (Index > 0) {
            r.cmdAndOr->setText(optAnd->isChecked() ? QStringLiteral("and") : QStringLiteral("or"));
            r.cmdAndOr->show();
        }
        QWidget* area = SSScrollCriteria->widget();
        area->resize(Twips::ToPixels(kAndOrLeft + kAndOrWidth + 120),
                     Twips::ToPixels(RowTop(Index) + intCriteriaCount * 1200));
        area->update();
        if (Index > 0) {
            r.txtCriterion1->setFocus();
            SSScrollCriteria->ensureWidgetVisible(r.txtCriterion1);
        }
        ++intCriteriaCount;
        SetUpMoveSIButtons();
    });
}

void ctlShortList::LoadFields(QComboBox* cboField) {
    const auto entry = Entry("LoadFields").Enter();
    entry.ErrorBox([&] {
        const QSignalBlocker block(cboField);
        cboField->clear();
        const QStringList& captions = ShortListCriterion::FieldCaptions();
        for (qint32 i = 0; i < captions.size(); ++i)
            cboField->addItem(captions[i], ShortListCriterion::FieldKindOf(i));
        cboField->setCurrentIndex(-1);
    });
}

void ctlShortList::LoadOperators(QComboBox* cboOp, qint16 intFieldType, QString& strErrorMessage) {
    const auto entry =
        Entry("LoadOperators").Arg(QStringLiteral("intFieldType"), intFieldType).Enter();
    strErrorMessage.clear();
    entry.ErrorBox([&] {
        const QSignalBlocker block(cboOp);
        cboOp->clear();
        cboOp->addItems(ShortListCriterion::Operators(intFieldType));
        cboOp->setCurrentIndex(-1);
    });
}

void ctlShortList::cboFields_Click(qint16 Index) {
    const auto entry = Entry("cboFields_Click").Arg(QStringLiteral("Index"), Index).Enter();
    entry.Guarded([&] {
        QComboBox* cbo = cboFields(Index);
        if (!cbo || cbo->currentIndex() < 0)
            return;
        QString strErrorMessage;
        LoadOperators(cboOperator(Index), static_cast<qint16>(cbo->currentData().toInt()),
                      strErrorMessage);
        cboOperator(Index)->setCurrentIndex(0);
    });
}

void ctlShortList::cboOperator_Click(qint16 Index) {
    const auto entry = Entry("cboOperator_Click").Arg(QStringLiteral("Index"), Index).Enter();
    entry.Guarded([&] {
        QComboBox* cbo = cboOperator(Index);
        if (!cbo || cbo->currentIndex() < 0)
            return;
        const qint16 intKind = static_cast<qint16>(cboFields(Index)->currentData().toInt());
        ShowEditors(Index, ShortListCriterion::EditorTag(intKind, cbo->currentText()));
        UserControl_Resize();
    });
}

// The editors of a row for its tag. Every time the editors are set up the date
// pickers take today's date, the text boxes are emptied and the True/False
// combo is filled again with neither chosen.
void ctlShortList::ShowEditors(qint16 Index, const QString& strTag) {
    const CriteriaRow& r = m_rows[Index];
    r.cboOperator->setProperty("Tag", strTag);
    const bool blnDates = strTag == QLatin1String("2Dates");
    const bool blnDate = blnDates || strTag == QLatin1String("1Date");
    const bool blnTexts = strTag == QLatin1String("2Texts");
    const bool blnText = blnTexts || strTag == QLatin1String("1Text");
    const bool blnCombo = strTag == QLatin1String("1Combo");
    r.dtpCriterion1->setVisible(blnDate);
    r.dtpCriterion2->setVisible(blnDates);
    r.txtCriterion1->setVisible(blnText);
    r.txtCriterion2->setVisible(blnTexts);
    r.lblAnd->setVisible(blnDates || blnTexts);
    r.cboCriterion->setVisible(blnCombo);
    const QDate today = QDate::currentDate();
    r.dtpCriterion1->setDate(today);
    r.dtpCriterion2->setDate(today);
    r.txtCriterion1->clear();
    r.txtCriterion2->clear();
    r.cboCriterion->clear();
    r.cboCriterion->addItems({QStringLiteral("True"), QStringLiteral("False")});
    r.cboCriterion->setCurrentIndex(-1);
    if (blnLoading)
        return;
    if (blnDate)
        r.dtpCriterion1->setFocus();
    else if (blnCombo)
        r.cboCriterion->setFocus();
    else
        r.txtCriterion1->setFocus();
}

// ---- The join word ------------------------------------------------------------------

void ctlShortList::SetJoinCaptions(const QString& strWord) {
    for (const CriteriaRow& r : std::as_const(m_rows))
        r.cmdAndOr->setText(strWord);
}

// With one row, choosing the join word starts the second row once the first is
// valid; an invalid first row clears the choice again.
void ctlShortList::JoinClicked(QRadioButton* opt, const QString& strWord) {
    if (intCriteriaCount == 1) {
        if (CriterionIsValid(0)) {
            AddNewCriteria();
        } else {
            opt->setAutoExclusive(false);
            opt->setChecked(false);
            opt->setAutoExclusive(true);
        }
    }
    SetJoinCaptions(strWord);
}

void ctlShortList::optAnd_Click() {
    const auto entry = Entry("optAnd_Click").Enter();
    entry.Guarded([&] { JoinClicked(optAnd, QStringLiteral("and")); });
}

void ctlShortList::optOr_Click() {
    const auto entry = Entry("optOr_Click").Enter();
    entry.Guarded([&] { JoinClicked(optOr, QStringLiteral("or")); });
}

void ctlShortList::cmdAndOr_Click(qint16 Index) {
    const auto entry = Entry("cmdAndOr_Click").Arg(QStringLiteral("Index"), Index).Enter();
    entry.Guarded([&] {
        if (Index == intCriteriaCount - 1 && CriterionIsValid(Index))
            AddNewCriteria();
    });
}

// ---- Checks and the WHERE text ----------------------------------------------------------

namespace {
// One check of a row: when it fails, its message is shown, the box named is
// emptied and the focus goes to the editor named.
struct Refusal {
    bool blnFails;
    const char* strMessage;
    QWidget* focus;
    QLineEdit* empty = nullptr;
};

// The first check that fails ends the checks with false.
bool PassesAll(std::initializer_list<Refusal> refusals) {
    for (const Refusal& r : refusals) {
        if (!r.blnFails)
            continue;
        Invalid(QString::fromLatin1(r.strMessage));
        if (r.empty)
            r.empty->clear();
        r.focus->setFocus();
        return false;
    }
    return true;
}
} // namespace

// Only the checks of the row's kind run. Text is always valid, the empty text
// included; equal numbers pass "is between".
bool ctlShortList::CriterionIsValid(qint16 Index) {
    const auto entry = Entry("CriterionIsValid").Arg(QStringLiteral("Index"), Index).Enter();
    bool blnValid = false;
    entry.FullErrorBox([&] {
        const CriteriaRow& r = row(Index);
        if (!r.cboFields)
            throw VBError(VBErr::SubscriptOutOfRange);
        const qint16 intKind = static_cast<qint16>(r.cboFields->currentData().toInt());
        const QString strTag = r.cboOperator->property("Tag").toString();
        const QString T1 = r.txtCriterion1->text();
        const QString T2 = r.txtCriterion2->text();
        if (intKind == ShortListCriterion::Number && strTag == QLatin1String("2Texts"))
            blnValid = PassesAll(
                {{T1.isEmpty(), "The first number box is empty. Please enter a number into it",
                  r.txtCriterion1},
                 {T2.isEmpty(), "The second number box is empty. Please enter a number into it",
                  r.txtCriterion2},
                 {!VB::IsNumeric(T1),
                  "The contents of the first number box is not a number. Please enter a number "
                  "into it",
                  r.txtCriterion1, r.txtCriterion1},
                 {!VB::IsNumeric(T2),
                  "The contents of the second number box is not a number. Please enter a "
                  "number into it",
                  r.txtCriterion2, r.txtCriterion2},
                 {VB::IsNumeric(T1) && VB::IsNumeric(T2) && VB::CDbl(T1) > VB::CDbl(T2),
                  "The value of the first number box must be less than the value of the second "
                  "one",
                  r.txtCriterion1}});
        else if (intKind == ShortListCriterion::Number)
            blnValid = PassesAll(
                {{T1.isEmpty(), "The number box is empty. Please enter a number into it",
                  r.txtCriterion1},
                 {!VB::IsNumeric(T1),
                  "The contents of the number box is not a number. Please enter a number into "
                  "it",
                  r.txtCriterion1, r.txtCriterion1}});
        else if (intKind == ShortListCriterion::Date && strTag == QLatin1String("2Dates"))
            blnValid = PassesAll({{r.dtpCriterion1->date() > r.dtpCriterion2->date(),
                                   "The value of the first date box must be less than the value "
                                   "of the second date box",
                                   r.dtpCriterion1}});
        else if (intKind == ShortListCriterion::Boolean)
            blnValid = TrueOrFalseIsChosen(r);
        else
            blnValid = true;
    });
    return blnValid;
}

// A True/False row without its choice is set to True after the message.
bool ctlShortList::TrueOrFalseIsChosen(const CriteriaRow& r) {
    const QString strValue = r.cboCriterion->currentText();
    if (strValue == QLatin1String("True") || strValue == QLatin1String("False"))
        return true;
    Invalid(QStringLiteral("Please set the criterion to True or False."));
    r.cboCriterion->setCurrentIndex(r.cboCriterion->findText(QStringLiteral("True")));
    r.cboCriterion->setFocus();
    return false;
}

ShortListCriterion ctlShortList::Criterion(qint16 Index) const {
    const CriteriaRow& r = row(Index);
    if (!r.cboFields)
        throw VBError(VBErr::SubscriptOutOfRange);
    ShortListCriterion c;
    c.Field = r.cboFields->currentText();
    c.Kind = static_cast<qint16>(r.cboFields->currentData().toInt());
    c.Operator = r.cboOperator->currentText();
    c.Text1 = r.txtCriterion1->text();
    c.Text2 = r.txtCriterion2->text();
    c.Date1 = r.dtpCriterion1->dateTime();
    c.Date2 = r.dtpCriterion2->dateTime();
    c.TrueFalse = r.cboCriterion->currentText();
    return c;
}

QString ctlShortList::GetCriterionAsWhereClause(qint16 Index, QString& strErrorMessage) {
    const auto entry =
        Entry("GetCriterionAsWhereClause").Arg(QStringLiteral("Index"), Index).Enter();
    QString strClause;
    strErrorMessage.clear();
    entry.ErrorBox([&] { strClause = Criterion(Index).WhereClause(); });
    return strClause;
}

QString ctlShortList::GetCriterionInPlainEnglish(qint16 Index) {
    QString strWords;
    Entry("GetCriterionInPlainEnglish").ErrorBox([&] {
        strWords = Criterion(Index).PlainEnglish();
    });
    return strWords;
}

QString ctlShortList::GetFieldName(const QString& strFieldNameInCombo) {
    const auto entry = Entry("GetFieldName")
                           .Arg(QStringLiteral("strFieldNameInCombo"), strFieldNameInCombo)
                           .Enter();
    return ShortListCriterion::FieldName(strFieldNameInCombo);
}

// Only the last row is checked: the rows above it were checked when the row
// after them was added. All rows are joined by the one join word.
void ctlShortList::cmdApplyCriteria_Click() {
    // Its failure prefix has two blanks before the colon.
    const auto entry =
        Entry("cmdApplyCriteria_Click")
            .WithPrefix(QStringLiteral(
                "QVLTCONTROLS:ctlShortList:cmdApplyCriteria_Click  : Error number is "))
            .Enter();
    entry.ErrorBox([&] {
        if (intCriteriaCount < 1 || !CriterionIsValid(static_cast<qint16>(intCriteriaCount - 1)))
            return;
        QString strErrorMessage;
        QString strClause;
        QString strWords;
        if (intCriteriaCount > 1) {
            const QString strJoin =
                optAnd->isChecked() ? QStringLiteral(" AND ") : QStringLiteral(" OR ");
            const QString strWordJoin =
                optAnd->isChecked() ? QStringLiteral(" and ") : QStringLiteral(" or ");
            for (qint16 i = 0; i < intCriteriaCount; ++i) {
                strClause += strJoin + "(" + GetCriterionAsWhereClause(i, strErrorMessage) + ")";
                strWords += (i > 0 ? strWordJoin : QString()) + GetCriterionInPlainEnglish(i);
            }
            modQVLTControls::TrimData(strClause, strJoin);
        } else {
            strClause = GetCriterionAsWhereClause(0, strErrorMessage);
            strWords = GetCriterionInPlainEnglish(0);
        }
        m_strWhereClauseInEffect = strClause;
        m_strFilterInPlainEnglish = strWords;
        if (!ApplyToTrees(strClause, strErrorMessage)) {
            const QString strText =
                QStringLiteral("QVLTCONTROLS:ctlShortList:cmdApplyCriteria_Click: ") +
                strErrorMessage;
            TraceLog::Instance().WriteErrorLine(strText);
            Platform::Current().MsgBox(strText);
        }
    });
}

bool ctlShortList::ApplyToTrees(const QString& strWhereClause, QString& strErrorMessage) {
    FillAvailableTreeview(strWhereClause, strErrorMessage);
    if (!strErrorMessage.isEmpty())
        return false;
    RemoveShortListNodesFromTree();
    RemoveEmptyTypeAndRootNodes();
    SetUpCountsOfSIs();
    return true;
}

void ctlShortList::cmdNewCriteria_Click() {
    const auto entry = Entry("cmdNewCriteria_Click").Enter();
    entry.Guarded([&] { RefreshSearchArea(); });
}

// Starts the criteria over with one new row and shows every service item that
// is not in the short list. The short list being edited is emptied, without a
// question and without touching the dirty flag, so a later save can store an
// empty list.
void ctlShortList::RefreshSearchArea() {
    const auto entry = Entry("RefreshSearchArea").Enter();
    entry.FullErrorBox([&] {
        for (qint16 i = static_cast<qint16>(intCriteriaCount - 1); i >= 1; --i)
            UnloadCriteriaRow(i);
        intCriteriaCount = 0;
        AddNewCriteria();
        for (QRadioButton* opt : {optAnd, optOr}) {
            opt->setAutoExclusive(false);
            opt->setChecked(false);
            opt->setAutoExclusive(true);
        }
        m_strWhereClauseInEffect.clear();
        m_strFilterInPlainEnglish.clear();
        tvwShortList->Clear();
        QString strErrorMessage;
        FillAvailableTreeview(QString(), strErrorMessage);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(strErrorMessage);
        RemoveShortListNodesFromTree();
        SetUpMoveSIButtons();
        SetUpCountsOfSIs();
    });
}
