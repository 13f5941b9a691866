// ctlTemplate: the save question and the save.

#include "templates/ctlTemplate.h"

#include "DataAccess.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTextEdit>

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlTemplate"), QString::fromLatin1(member));
}
} // namespace

// With changes, asks whether to save them; only No leaves them unsaved (and
// the flag set, so that the question comes again).
void ctlTemplate::CleanControl(bool blnChangingToOtherControl) {
    Entry("CleanControl")
        .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
        .Spelt()
        .Enter()
        .ErrorBox([&] { m_cycle->CleanControl(blnChangingToOtherControl); });
}

void ctlTemplate::cmdApplyChanges_Click() {
    Entry("cmdApplyChanges_Click").Enter().Guarded([&] { SaveChanges(false); });
}

// No validation: a template may be saved with an empty description.
void ctlTemplate::SaveChanges(bool blnChangingToOtherControl) {
    Entry("SaveChanges")
        .Arg(QStringLiteral("blnChangingToOtherControl"), blnChangingToOtherControl)
        .Spelt()
        .Enter()
        .ErrorBox([&] {
            if (m_cycle->IsDirty(0)) {
                SaveGeneralTab();
                if (m_cycle->IsDirty(0))
                    return;
            }
            m_cycle->FinishSave(blnChangingToOtherControl);
        });
}

// The description passes through the data library's text conversion as it
// stands; source and type are read back from their labels. The flag stays set
// when the data library refuses.
void ctlTemplate::SaveGeneralTab() {
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    QString strDescription;
    da.DecodeStoredText(txtTemplateDescription->text(), strErrorMessage, strDescription);
    qint32 lngNewID = 0;
    da.SaveTemplate(
        lngTemplateID, strDescription, lblSource->text() == QLatin1String("User Created"),
        cboOccasion->currentText(), lblAuthor->text(), txtNotes->toPlainText(),
        lblType->text() == QLatin1String("Service Template"), strErrorMessage, lngNewID);
    lngTemplateID = lngNewID;
    if (!strErrorMessage.isEmpty()) {
        const QString strText =
            QStringLiteral("QVLTCONTROLS:ctlTemplate:SaveChanges ") + strErrorMessage;
        TraceLog::Instance().WriteErrorLine(strText);
        Platform::Current().MsgBox(strText);
        return;
    }
    m_cycle->Clear(0);
}
