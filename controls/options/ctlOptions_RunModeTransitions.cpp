// The transitions of the run-mode tab: switched on in the settings file
// (Options/UseTransitions), the kind (RunModeTransType) and its speed
// (RunModeTransSpeed) in the options record. A cut has no speed.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/VBRuntime.h"
#include "options/OptionsHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

using namespace OptionsHelpers;

namespace {

const QString kClass = QStringLiteral("ctlOptions");
const QString kOptions = QStringLiteral("Options");
const QString kUseTransitions = QStringLiteral("UseTransitions");

QLabel* NewCaption(const QString& strText, QWidget* buddy) {
    auto* lbl = new QLabel(strText);
    lbl->setBuddy(buddy);
    return lbl;
}

} // namespace

// Transitions between slides: switched on in the settings file, the kind and
// its speed in the options record.
QGroupBox* ctlOptions::CreateTransitionsFrame() {
    auto* fraTransitions =
        Named(new QGroupBox(QStringLiteral("Transitions")), QStringLiteral("fraTransitions"));
    chkUseTransitions = Named(new QCheckBox(QStringLiteral("Use Transitions")),
                              QStringLiteral("chkUseTransitions"));
    cboTransition = Named(new QComboBox, QStringLiteral("cboTransition"));
    cboTransitionSpeed = Named(new QComboBox, QStringLiteral("cboTransitionSpeed"));
    auto* transitionGrid = new QGridLayout(fraTransitions);
    transitionGrid->addWidget(chkUseTransitions, 0, 0, 1, 2);
    transitionGrid->addWidget(NewCaption(QStringLiteral("&Transition:"), cboTransition), 1, 0);
    transitionGrid->addWidget(cboTransition, 1, 1);
    transitionGrid->addWidget(NewCaption(QStringLiteral("&Speed:"), cboTransitionSpeed), 2, 0);
    transitionGrid->addWidget(cboTransitionSpeed, 2, 1);
    transitionGrid->setColumnStretch(1, 1);

    return fraTransitions;
}

// The lists of transitions and speeds, enabled while transitions are used.
void ctlOptions::FillTransitionLists() {
    QString strErrorMessage;
    QList<DataAccess::ListEntry> transitions, speeds;
    DataAccess::Instance().FillTransitionCombos(transitions, speeds, strErrorMessage);
    FillCombo(cboTransition, transitions);
    FillCombo(cboTransitionSpeed, speeds);
    const bool blnUse = UseTransitionsIsOn(10);
    chkUseTransitions->setChecked(blnUse);
    cboTransition->setEnabled(blnUse);
    cboTransitionSpeed->setEnabled(blnUse);
}

// Chooses the stored transition and speed; a cut shows no speed.
void ctlOptions::ShowStoredTransition(const Recordset& rs) {
    const QVariant varType = rs.Fields(QStringLiteral("RunModeTransType"));
    if (VB::IsNumeric(varType) && VB::CLng(varType) == DataAccess::transCut) {
        cboTransitionSpeed->setEnabled(false);
        cboTransitionSpeed->setCurrentIndex(-1);
        cboTransition->setCurrentIndex(FindItemData(cboTransition, varType));
    } else {
        cboTransition->setCurrentIndex(FindItemData(cboTransition, varType));
        cboTransitionSpeed->setCurrentIndex(
            FindItemData(cboTransitionSpeed, rs.Fields(QStringLiteral("RunModeTransSpeed"))));
    }
}

// Options/UseTransitions of the settings file, read into a buffer of that size.
bool ctlOptions::UseTransitionsIsOn(qint32 lngBufferSize) {
    return ReadSetting(kOptions, kUseTransitions, QString(), lngBufferSize)
               .compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0;
}

void ctlOptions::chkUseTransitions_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("chkUseTransitions_Click")).Enter();
    entry.Guarded([&] {
        const bool blnOn = CheckValue(chkUseTransitions) != 0;
        WriteSetting(kOptions, kUseTransitions,
                     blnOn ? QStringLiteral("True") : QStringLiteral("False"));
        cboTransition->setEnabled(blnOn);
        cboTransitionSpeed->setEnabled(blnOn);
    });
}

void ctlOptions::cboTransition_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboTransition_Click")).Enter();
    entry.Guarded([&] {
        if (cboTransition->currentIndex() < 0)
            return;
        if (!UseTransitionsIsOn(30)) {
            cboTransition->setEnabled(false);
            cboTransitionSpeed->setEnabled(false);
            chkUseTransitions->setChecked(false);
            return;
        }
        const QVariant varType = cboTransition->currentData();
        if (VB::CLng(varType) == DataAccess::transCut) {
            // A cut has no speed: the field holds an empty text (it takes no Null).
            cboTransitionSpeed->setEnabled(false);
            cboTransitionSpeed->setCurrentIndex(-1);
            StoreOptions({{QStringLiteral("RunModeTransType"), varType},
                          {QStringLiteral("RunModeTransSpeed"), QStringLiteral("")}});
            return;
        }
        StoreOption(QStringLiteral("RunModeTransType"), varType);
        if (!cboTransitionSpeed->isEnabled()) {
            cboTransitionSpeed->setEnabled(true);
            {
                const QSignalBlocker quiet(cboTransitionSpeed);
                cboTransitionSpeed->setCurrentIndex(0);
            }
            cboTransitionSpeed_Click();
        }
    });
}

void ctlOptions::cboTransitionSpeed_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboTransitionSpeed_Click")).Enter();
    entry.Guarded([&] {
        if (cboTransitionSpeed->currentIndex() >= 0)
            StoreOption(QStringLiteral("RunModeTransSpeed"), cboTransitionSpeed->currentData());
    });
}
