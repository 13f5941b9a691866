// ctlServiceItemGallery: the quick filter, the main filter and its panel, the
// filter-mode options and the state words.

#include "galleries/ctlServiceItemGallery.h"

#include "foundations/KeyCodes.h"
#include "foundations/MemberEntry.h"
#include "galleries/GalleryCore.h"

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
#include <QScopedValueRollback>
#include <QTimer>

namespace {
const QString kClass = QStringLiteral("ctlServiceItemGallery");
} // namespace

// ---------------------------------------------------------------- Clauses

// The main filter: one field, one operator, one criterion. Sets the where clause
// and its words as a side effect.
QString ctlServiceItemGallery::GetFilterAsWhereClause() {
    return m_core->GetFilterAsWhereClause(strFilterInPlainEnglish, strWhereClauseInEffect);
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
    m_core->SetFilterStateInactive(strFilterInPlainEnglish, strWhereClauseInEffect);
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
        Entry(QStringLiteral("txtQuickFilter_Change")).Enter();
        // A change that arrives while one is in work (a load can set one off) does nothing.
        if (m_blnQuickFilterBusy)
            return;
        const QScopedValueRollback<bool> busy(m_blnQuickFilterBusy, true);
        ShowServiceItems();
        BringSelectionIntoSight();
        if (txtQuickFilter->text().isEmpty()) {
            SetFilterStateInactive();
            emit SIListFilterChanged(QStringLiteral("All"), QString(), QString());
        } else {
            m_core->SetFilterStateActive(QStringLiteral("(FILTER ACTIVE)"));
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
    ErrorReport::Guard([&] { m_core->RestartTimer(); });
}

// The apostrophe key takes back what it just typed.
void ctlServiceItemGallery::txtCriterion_KeyUp(qint16& KeyCode, qint16 Shift) {
    Q_UNUSED(Shift);
    m_core->TakeBackApostrophe(KeyCode);
}

void ctlServiceItemGallery::Timer1_Timer() {
    m_core->Timer1_Timer(blnLoaded, [&] { CheckIfShouldApplyFilter(); });
}

void ctlServiceItemGallery::cboProperty_Click() {
    m_core->cboProperty_Click([&] { CheckIfShouldApplyFilter(); });
}

void ctlServiceItemGallery::cboOperator_Click() {
    m_core->cboOperator_Click([&] { CheckIfShouldApplyFilter(); });
}

void ctlServiceItemGallery::CheckIfShouldApplyFilter() {
    Entry(QStringLiteral("CheckIfShouldApplyFilter")).Spelt().Enter().ErrorBox([&] {
        if (!blnLoaded)
            return;
        if (!m_core->CheckFilter(strFilterInPlainEnglish, strWhereClauseInEffect,
                                 [&] { ShowServiceItems(); }))
            return;
        emit SIClicked(QStringLiteral("All"), QStringLiteral("All Service Items"),
                       strWhereClauseInEffect, strFilterInPlainEnglish, QStringLiteral("SIGroup"));
    });
}

// ---------------------------------------------------------------- Panel and modes

// The caption of the button is the state of the panel.
void ctlServiceItemGallery::cmdShowHideFilter_Click() {
    Entry(QStringLiteral("cmdShowHideFilter_Click")).Spelt().Enter().ErrorBox([&] {
        if (m_core->PanelOpen()) {
            PlaceViews(960, HeightTwips() - 940);
            m_core->SetPanelOpen(false);
            txtQuickFilter->show();
        } else {
            txtQuickFilter->setText(QString());
            txtQuickFilter->hide();
            PlaceViews(3180, HeightTwips() - 3180);
            m_core->SetPanelOpen(true);
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
        Entry(QStringLiteral("optQuickFilter_Click")).Enter();
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
        Entry(QStringLiteral("optShortList_Click")).Enter();
        SwitchFilterFrames();
    });
}
