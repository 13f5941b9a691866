// The operator's actions: navigation buttons, size buttons, keys, projector,
// and the host's calls that answer them.
#include "run/ctlRun.h"
#include "run/ctlRunMember.h"

#include "ChangeStamps.h"
#include "foundations/KeyCodes.h"
#include "foundations/Platform.h"
#include "foundations/SSRibbon.h"
#include "foundations/VBRuntime.h"
#include "foundations/VBTreeWidget.h"
#include "galleries/ctlServiceItemGallery.h"

#include <QCheckBox>
#include <QPushButton>

namespace {

// Runs a navigation press: the button is disabled for the whole time the
// host works, so that a second press cannot arrive from it, and enabled again
// also when the host's answer fails.
template <class F> void WhileDisabled(QPushButton* cmd, F&& raise) {
    cmd->setEnabled(false);
    try {
        Platform::Current().DoEvents();
        raise();
    } catch (...) {
        cmd->setEnabled(true);
        throw;
    }
    cmd->setEnabled(true);
}

// The ribbon buttons act when pressed in, and spring back at once; springing
// back runs their handler again with Value False, which does nothing.
bool PressedIn(SSRibbon* cmd, bool Value) {
    if (!Value)
        return false;
    cmd->setValue(false);
    return true;
}

} // namespace

// A press of Forward or Back is one action of the operator from its first trace line to its
// mirror: the database's change stamp, the settings file and the trace file are each looked at
// once for all its steps (DatabaseStampHeld).
void ctlRun::cmdForward_Click() {
    const DatabaseStampHeld action;
    RunMember("cmdForward_Click").Enter().Guarded([&] {
        NavigationPress(cmdForward, [&] { emit ShowNextClicked(); });
    });
}

void ctlRun::cmdBack_Click() {
    const DatabaseStampHeld action;
    RunMember("cmdBack_Click").Enter().Guarded([&] {
        NavigationPress(cmdBack, [&] { emit ShowPreviousClicked(); });
    });
}

// The host's answer to Forward or Back may ask for the mirror (AtEndOfSI) before the projector
// has painted what it now shows; the press grabs the mirror itself once the event has returned
// and messages have been pumped. A refresh asked for during the event is left to that grab, so
// that a press costs one grab of the projector, not two. Should the event fail, a refresh that
// was asked for is made before the failure goes on.
void ctlRun::NavigationPress(QPushButton* cmd, const std::function<void()>& raise) {
    ++m_intPressEvents;
    try {
        WhileDisabled(cmd, raise);
    } catch (...) {
        if (--m_intPressEvents == 0 && m_blnMirrorAskedInPress)
            GrabMirror();
        throw;
    }
    --m_intPressEvents;
    Platform::Current().DoEvents();
    RefreshScreenMirror();
}

void ctlRun::cmdEnd_Click() {
    RunMember("cmdEnd_Click").Enter().Guarded([&] {
        emit EndRun();
        RefreshScreenMirror();
    });
}

void ctlRun::cmdRefresh_Click() {
    RunMember("cmdRefresh_Click").Enter().Guarded([&] {
        RefreshScreenMirror();
        cmdForward->setFocus();
    });
}

// The host hears the item index (the root is 0) and usually calls
// ShowServiceSIAsRunning; the clicked node is bold afterwards either way.
void ctlRun::tvwRun_NodeClick(QTreeWidgetItem* Node) {
    RunMember("tvwRun_NodeClick").Enter().Guarded([&] {
        VBNode node(Node);
        emit ShowServiceSI(VB::CInt(node.Index() - 1));
        ClearBoldNodes();
        node.setBold(true);
        RefreshScreenMirror();
    });
}

// Runs on every change of the value, by the operator or by
// ProjectorTurnedOn/Off.
void ctlRun::chkProjectorOn_Click() {
    RunMember("chkProjectorOn_Click").Enter().Guarded([&] {
        if (chkProjectorOn->checkState() == Qt::Checked)
            emit TurnOnProjector();
        else
            emit TurnOffProjector();
    });
}

void ctlRun::cmdShowProperties_Click(bool Value) {
    RunMember("cmdShowProperties_Click").Arg(QStringLiteral("Value"), Value).Enter().Guarded([&] {
        if (!PressedIn(cmdShowProperties, Value))
            return;
        emit ShowPropButtonClicked();
    });
}

void ctlRun::cmdMagnify_Click(bool Value) {
    RunMember("cmdMagnify_Click").Arg(QStringLiteral("Value"), Value).Enter().Guarded([&] {
        if (!PressedIn(cmdMagnify, Value))
            return;
        emit IncreaseSize();
        cmdForward->setFocus();
        RefreshScreenMirror();
    });
}

// Unlike cmdMagnify, pumps messages before the mirror is refreshed.
void ctlRun::cmdMakeSmaller_Click(bool Value) {
    RunMember("cmdMakeSmaller_Click").Arg(QStringLiteral("Value"), Value).Enter().Guarded([&] {
        if (!PressedIn(cmdMakeSmaller, Value))
            return;
        emit DecreaseSize();
        cmdForward->setFocus();
        Platform::Current().DoEvents();
        RefreshScreenMirror();
    });
}

// 187 (the "=" / "+" key) presses cmdMagnify, 189 (the "-" key) presses
// cmdMakeSmaller, with or without Shift; no other key does anything.
void ctlRun::UserControl_KeyUp(qint16 KeyCode, qint16 Shift) {
    RunMember("UserControl_KeyUp")
        .Arg(QStringLiteral("KeyCode"), KeyCode)
        .Arg(QStringLiteral("Shift"), Shift)
        .Enter();
    if (KeyCode == KeyCodes::vbKeyEquals)
        cmdMagnify->setValue(true);
    else if (KeyCode == KeyCodes::vbKeyMinus)
        cmdMakeSmaller->setValue(true);
}

void ctlRun::UserControl_Show() {
    RunMember("UserControl_Show").Enter();
    ctlServiceItemGallery1->ShowServiceItems();
}

// Yes ends what runs: a prop first (a press of cmdEnd while its caption is
// "&End Prop"), then the run. So a prop run raises EndRun twice.
bool ctlRun::CanUnload() {
    RunMember("CanUnload").Enter();
    const qint32 intAnswer = Platform::Current().MsgBox(
        QStringLiteral("Do you want to stop running this item?"), vbYesNo, QString());
    if (intAnswer != vbYes)
        return false;
    if (cmdEnd->text() == QStringLiteral("&End Prop"))
        cmdEnd->click();
    cmdEnd->click();
    return true;
}

// ---------------------------------------------------------------- host calls

void ctlRun::AtEndOfSI() {
    RunMember("AtEndOfSI").Enter();
    cmdForward->setToolTip(QStringLiteral("&Finish this Service Item"));
    RefreshScreenMirror();
}

// Setting the check box raises TurnOnProjector (TurnOffProjector) once more
// when the value changes; a second call with the same value raises nothing.
void ctlRun::ProjectorTurnedOn() {
    RunMember("ProjectorTurnedOn").Enter();
    chkProjectorOn->setCheckState(Qt::Checked);
    RefreshScreenMirror();
}

void ctlRun::ProjectorTurnedOff() {
    RunMember("ProjectorTurnedOff").Enter();
    chkProjectorOn->setCheckState(Qt::Unchecked);
    RefreshScreenMirror();
}

void ctlRun::JustIncreasedSize() {
    RunMember("JustIncreasedSize").Enter();
}

void ctlRun::JustDecreasedSize() {
    RunMember("JustDecreasedSize").Enter();
}
