// ctlServiceItemGallery: the quick filter, the main filter and its panel, the
// filter-mode options and the state words.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/ErrorReport.h"
#include "foundations/Platform.h"
#include "foundations/TraceLine.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");
const QString kHidePanelCaption = QStringLiteral("&Hide Display Properties");
const QString kShowPanelCaption = QStringLiteral("&Show Display Properties");
const QColor kActiveColour(192, 0, 0); // VB colour 192: red

// Clears a flag when the scope ends, also when a failure passes through.
class FlagScope {
public:
    explicit FlagScope(bool& blnFlag) : m_flag(blnFlag) { m_flag = true; }
    ~FlagScope() { m_flag = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& m_flag;
};
} // namespace

// ---------------------------------------------------------------- Clauses

// The main filter: one field, one operator, one criterion. Sets the where clause
// and its words as a side effect.
QString ctlServiceItemGallery::GetFilterAsWhereClause() {
    TraceLine(kClass, QStringLiteral("GetFilterAsWhereClause")).Write();
    QString strResult;
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("GetFilterAsWhereClause")), [&] {
        const QString P = cboProperty->currentText();
        const QString C = txtCriterion->text();
        QString F;
        if (P == QLatin1String("Description"))
            F = QStringLiteral("ServiceItemDescription");
        else if (P == QLatin1String("Keywords"))
            F = QStringLiteral("KeyWordText");
        else if (P == QLatin1String("Type"))
            F = QStringLiteral("ServiceItemTypeName");
        else if (P == QLatin1String("Source"))
            F = QStringLiteral("ServiceItemSource");
        else if (P == QLatin1String("Provider"))
            F = QStringLiteral("ServiceItemProvider");
        else if (P == QLatin1String("Content"))
            F = QStringLiteral("ServiceItemContent");

        const QString O = cboOperator->currentText();
        QString strClause;
        if (O == QLatin1String("Contains")) {
            strClause = F + QStringLiteral(" LIKE '*") + C + QStringLiteral("*'");
            strFilterInPlainEnglish = P + QStringLiteral(" contains the text '") + C + "'";
        } else if (O == QLatin1String("Does not contain")) {
            strClause = F + QStringLiteral(" NOT LIKE '*") + C + QStringLiteral("*'");
            strFilterInPlainEnglish = P + QStringLiteral(" does not contain the text '") + C + "'";
        } else if (O == QLatin1String("Starts with")) {
            strClause = F + QStringLiteral(" LIKE '") + C + QStringLiteral("*'");
            strFilterInPlainEnglish = P + QStringLiteral(" starts with the text '") + C + "'";
        } else if (O == QLatin1String("Ends with")) {
            strClause = F + QStringLiteral(" LIKE '*") + C + QStringLiteral("'");
            strFilterInPlainEnglish = P + QStringLiteral(" ends with the text '") + C + "'";
        }
        strWhereClauseInEffect = strClause;
        strResult = strClause;
    });
    return strResult;
}

// The quick filter searches ten fields of the joined tables at once.
QString ctlServiceItemGallery::QuickFilterClause() const {
    static const QStringList lstFields = {
        QStringLiteral("ServiceItemTypes.ServiceItemTypeName"),
        QStringLiteral("ServiceItems.ServiceItemDescription"),
        QStringLiteral("ServiceItems.ServiceItemContent"),
        QStringLiteral("ServiceItems.ServiceItemNotes"),
        QStringLiteral("ServiceItems.ServiceItemSource"),
        QStringLiteral("ServiceItems.ServiceItemProvider"),
        QStringLiteral("ServiceItems.ServiceItemMelody"),
        QStringLiteral("KeyWords.KeywordText"),
        QStringLiteral("ServiceItems.ServiceItemOriginalLocation"),
        QStringLiteral("ServiceItemPoints.PointText")};
    const QString T = txtQuickFilter->text();
    QStringList lstParts;
    for (const QString& strField : lstFields)
        lstParts << strField + QStringLiteral(" Like '*") + T + QStringLiteral("*'");
    return lstParts.join(QStringLiteral(" Or "));
}

QString ctlServiceItemGallery::QuickFilterWords() const {
    return QStringLiteral("Service Items with the text '") + txtQuickFilter->text() +
           QStringLiteral("' in one of their properties");
}

// ---------------------------------------------------------------- State words

// "(Filter is inactive)" always resets the filter state as a whole.
void ctlServiceItemGallery::SetFilterStateInactive() {
    lblFilterState->setText(QStringLiteral("(Filter is inactive)"));
    QPalette pal = lblFilterState->palette();
    pal.setColor(QPalette::WindowText, QApplication::palette().color(QPalette::ButtonText));
    lblFilterState->setPalette(pal);
    strFilterInPlainEnglish = QStringLiteral("No Filter");
    strWhereClauseInEffect = QString();
}

void ctlServiceItemGallery::SetFilterStateActive(const QString& strCaption) {
    lblFilterState->setText(strCaption);
    QPalette pal = lblFilterState->palette();
    pal.setColor(QPalette::WindowText, kActiveColour);
    lblFilterState->setPalette(pal);
}

// ---------------------------------------------------------------- Quick filter

// Escape clears the box; the characters that would break the clause (apostrophe,
// parentheses, asterisk, less-than, equals, greater-than, question mark) are
// thrown away.
void ctlServiceItemGallery::txtQuickFilter_KeyPress(qint16& KeyAscii) {
    if (KeyAscii == 27) {
        txtQuickFilter->setText(QString());
        KeyAscii = 0;
    } else if ((KeyAscii >= 39 && KeyAscii <= 42) || (KeyAscii >= 60 && KeyAscii <= 63)) {
        KeyAscii = 0;
    }
}

void ctlServiceItemGallery::txtQuickFilter_GotFocus() {
    ErrorReport::Guard([&] { txtQuickFilter->selectAll(); });
}

void ctlServiceItemGallery::txtQuickFilter_Change() {
    ErrorReport::Guard([&] {
        TraceLine(kClass, QStringLiteral("txtQuickFilter_Change")).Write();
        // A change that arrives while one is in work (a load can set one off) does nothing.
        if (m_blnQuickFilterBusy)
            return;
        FlagScope busy(m_blnQuickFilterBusy);
        ShowServiceItems();
        BringSelectionIntoSight();
        if (txtQuickFilter->text().isEmpty()) {
            SetFilterStateInactive();
            emit SIListFilterChanged(QStringLiteral("All"), QString(), QString());
        } else {
            SetFilterStateActive(QStringLiteral("(FILTER ACTIVE)"));
            // "All" even though the rows are narrowed: the host reloads by the clause.
            emit SIListFilterChanged(QStringLiteral("All"), QuickFilterWords(),
                                     QuickFilterClause());
        }
    });
}

void ctlServiceItemGallery::BringSelectionIntoSight() {
    if (!tvwServiceItems->isHidden()) {
        VBNode node = tvwServiceItems->SelectedItem();
        if (node)
            node.EnsureVisible();
    } else if (!lvwServiceItems->isHidden()) {
        VBNode item = lvwServiceItems->SelectedItem();
        if (item)
            item.EnsureVisible();
    }
}

// ---------------------------------------------------------------- Main filter

void ctlServiceItemGallery::txtCriterion_Change() {
    ErrorReport::Guard([&] {
        // The timer runs one full second from the last key.
        Timer1->stop();
        Timer1->start();
    });
}

// The key with code 192 (the apostrophe key) takes back what it just typed.
void ctlServiceItemGallery::txtCriterion_KeyUp(qint16& KeyCode, qint16 Shift) {
    Q_UNUSED(Shift);
    if (KeyCode != 192)
        return;
    const QString strText = txtCriterion->text();
    if (!strText.isEmpty())
        txtCriterion->setText(VB::Left(strText, VB::Len(strText) - 1));
    txtCriterion->setCursorPosition(static_cast<int>(txtCriterion->text().size()));
}

void ctlServiceItemGallery::Timer1_Timer() {
    TraceLine(kClass, QStringLiteral("Timer1_Timer")).Write();
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("Timer1_Timer")), [&] {
        if (blnLoaded)
            CheckIfShouldApplyFilter();
        Timer1->stop();
    });
}

void ctlServiceItemGallery::cboProperty_Click() {
    TraceLine(kClass, QStringLiteral("cboProperty_Click")).Write();
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("cboProperty_Click")), [&] {
        if (!cboOperator->currentText().isEmpty()) {
            txtCriterion->selectAll();
            txtCriterion->setFocus();
        } else {
            cboOperator->setCurrentIndex(0); // "Contains"; counts as a click on it
            txtCriterion->setFocus();
        }
        CheckIfShouldApplyFilter();
    });
}

void ctlServiceItemGallery::cboOperator_Click() {
    TraceLine(kClass, QStringLiteral("cboOperator_Click")).Write();
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("cboOperator_Click")), [&] {
        if (!cboProperty->currentText().isEmpty()) {
            txtCriterion->selectAll();
            txtCriterion->setFocus();
        }
        CheckIfShouldApplyFilter();
    });
}

void ctlServiceItemGallery::CheckIfShouldApplyFilter() {
    TraceLine(kClass, QStringLiteral("CheckIfShouldApplyFilter")).Write();
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("CheckIfShouldApplyFilter")), [&] {
        if (!blnLoaded)
            return;
        if (txtCriterion->text().isEmpty()) {
            SetFilterStateInactive();
            ShowServiceItems();
        } else if (!cboProperty->currentText().isEmpty() && !cboOperator->currentText().isEmpty()) {
            SetFilterStateActive(QStringLiteral("(FILTER ACTIVE)"));
            ShowServiceItems();
        } else {
            SetFilterStateInactive();
            tvwServiceItems->Clear();
            return;
        }
        emit SIClicked(QStringLiteral("All"), QStringLiteral("All Service Items"),
                       strWhereClauseInEffect, strFilterInPlainEnglish, QStringLiteral("SIGroup"));
    });
}

// ---------------------------------------------------------------- Panel and modes

// The caption of the button is the state of the panel.
void ctlServiceItemGallery::cmdShowHideFilter_Click() {
    TraceLine(kClass, QStringLiteral("cmdShowHideFilter_Click")).Write();
    ErrorReport::TryErrorBox(PrefixSpaced(QStringLiteral("cmdShowHideFilter_Click")), [&] {
        if (cmdShowHideFilter->text() == kHidePanelCaption) {
            PlaceViews(960, HeightTwips() - 940);
            cmdShowHideFilter->setText(kShowPanelCaption);
            txtQuickFilter->show();
        } else {
            txtQuickFilter->setText(QString());
            txtQuickFilter->hide();
            PlaceViews(3180, HeightTwips() - 3180);
            cmdShowHideFilter->setText(kHidePanelCaption);
        }
        BringSelectionIntoSight();
        if (!txtQuickFilter->isHidden())
            txtQuickFilter->setFocus();
    });
}

void ctlServiceItemGallery::SwitchFilterFrames() {
    fraSelectShortList->setVisible(optShortList->isChecked());
    fraFilter->setVisible(!optShortList->isChecked());
}

void ctlServiceItemGallery::optQuickFilter_Click() {
    ErrorReport::Guard([&] {
        TraceLine(kClass, QStringLiteral("optQuickFilter_Click")).Write();
        if (lngShortListID != 0) {
            const qint32 intAnswer = Platform::Current().MsgBox(
                QStringLiteral("A shortlist is already in effect. Do you want to apply a "
                               "quick-filter instead? If you select ") +
                    QStringLiteral("\r\n") +
                    QStringLiteral("'Yes' then the short-list will no longer be in effect."),
                vbYesNoCancel | vbQuestion | vbDefaultButton2,
                QStringLiteral("Turn off Short-List?"));
            if (intAnswer != vbYes) {
                optShortList->setChecked(true);
                return;
            }
            SwitchFilterFrames();
            SetFilterStateInactive();
            lngShortListID = 0;
            lblShortListDescription->clear();
            lblShortListCreatedBy->clear();
            lblShortListCreatedDate->clear();
            ShowServiceItems();
        } else {
            SwitchFilterFrames();
            ShowServiceItems();
        }
    });
}

// Only switches the frames: the rows change when a short list is picked.
void ctlServiceItemGallery::optShortList_Click() {
    ErrorReport::Guard([&] {
        TraceLine(kClass, QStringLiteral("optShortList_Click")).Write();
        SwitchFilterFrames();
    });
}
