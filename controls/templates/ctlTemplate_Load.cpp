// ctlTemplate: showing a template (ShowProperties, LoadGeneralTab) and handing
// its document to the word processor.

#include "templates/ctlTemplate.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "TraceLog.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBConstants.h"
#include "foundations/VBRuntime.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlTemplate"), QString::fromLatin1(member));
}

void SystemError(const QString& strPrompt) {
    Platform::Current().MsgBox(strPrompt, vbOKOnly, QStringLiteral("System Error"));
}

std::unique_ptr<Recordset> ReadTemplate(qint32 lngID, QString& strErrorMessage) {
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetTemplates(QStringLiteral("TemplateID = ") + QString::number(lngID), 4,
                                        strErrorMessage, rs);
    return rs;
}
} // namespace

// A stored text shows with its apostrophes; only a text holding "@@" is decoded.
QString ctlTemplate::Decoded(const QString& strText) {
    if (VB::InStr(strText, QStringLiteral("@@")) == 0)
        return strText;
    QString strErrorMessage;
    QString strResult;
    DataAccess::Instance().DecodeStoredText(strText, strErrorMessage, strResult);
    return strResult;
}

// Without a description a template is named by its author, " ," and the date.
QString ctlTemplate::CaptionOfRecord(const QVariant& varDescription, const QVariant& varAuthor,
                                     const QVariant& varDate) const {
    if (varDescription.isNull())
        return VB::Text(varAuthor) + QStringLiteral(" ,") + VB::Text(varDate);
    return Decoded(VB::Text(varDescription));
}

// Its error prefix keeps the spelling "SHowProperties".
void ctlTemplate::ShowProperties(::ViewMode Mode) {
    m_viewMode = Mode;
    Entry("ShowProperties")
        .Arg(QStringLiteral("Mode"), static_cast<qint32>(Mode))
        .WithPrefix(QStringLiteral("QVLTCONTROLS:ctlTemplate:SHowProperties: Error number is "))
        .Enter()
        .ErrorBox([&] {
            blnShowingProperties = true;
            cmdOpenTemplate->setEnabled(true);
            CleanControl(false);
            blnGeneralLoaded = false;
            if (!VB::IsNumeric(m_strItems)) {
                SystemError(QStringLiteral("Cannot display Template: ") + m_strItems);
                return;
            }
            lngTemplateID = VB::CLng(m_strItems);
            QString strErrorMessage;
            const std::unique_ptr<Recordset> rs = ReadTemplate(lngTemplateID, strErrorMessage);
            if (!strErrorMessage.isEmpty()) {
                Platform::Current().MsgBox(strErrorMessage);
                return;
            }
            if (!rs || rs->RecordCount() == 0) {
                SystemError(QStringLiteral("Template Item: ") + QString::number(lngTemplateID) +
                            QStringLiteral(" does not exist"));
                return;
            }
            rs->MoveFirst();
            if (m_strDescription.isEmpty())
                m_strDescription =
                    CaptionOfRecord(rs->Fields(QStringLiteral("TemplateDescription")),
                                    rs->Fields(QStringLiteral("TemplateAuthor")),
                                    rs->Fields(QStringLiteral("TemplateDateCreated")));
            lblMainCaption->setText(m_strDescription);
            LoadGeneralTab();
            m_cycle->Clear(0);
            cmdApplyChanges->setEnabled(false);
            DataAccess::Instance().TemplateShown(lngTemplateID);
            blnShowingProperties = false;
        });
}

// A click on the tab, whichever way, loads it again: unsaved edits go, the
// apply button keeps its state.
void ctlTemplate::SSTab1_Click() {
    Entry("SSTab1_Click").Enter().Guarded([&] { LoadGeneralTab(); });
}

void ctlTemplate::LoadGeneralTab() {
    Entry("LoadGeneralTab").Enter().FullErrorBox([&] {
        const bool blnApplyEnabled = cmdApplyChanges->isEnabled();
        {
            EditorCycle::Loading loading(*m_cycle);
            if (!LoadOccasions())
                return;
            FillGeneralTab(lngTemplateID);
        }
        cmdApplyChanges->setEnabled(blnApplyEnabled);
        blnGeneralLoaded = true;
        m_cycle->Clear(0);
    });
}

// The occasions are read once; they survive ShowProperties.
bool ctlTemplate::LoadOccasions() {
    if (blnOccasionsLoaded)
        return true;
    cboOccasion->clear();
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetTemplateOccasions(QString(), strErrorMessage, rs);
    if (!strErrorMessage.isEmpty()) {
        Platform::Current().MsgBox(strErrorMessage);
        return false;
    }
    for (; rs && !rs->Eof(); rs->MoveNext()) {
        const QVariant varOccasion = rs->Fields(QStringLiteral("TemplateOccasion"));
        if (!varOccasion.isNull())
            cboOccasion->addItem(VB::CStr(varOccasion));
    }
    blnOccasionsLoaded = true;
    return true;
}

void ctlTemplate::FillGeneralTab(qint32 lngID) {
    QString strErrorMessage;
    const std::unique_ptr<Recordset> rs = ReadTemplate(lngID, strErrorMessage);
    if (!rs || rs->RecordCount() == 0) {
        SystemError(QStringLiteral("Template: ") + QString::number(lngID) +
                    QStringLiteral(" does not exist"));
        return;
    }
    rs->MoveFirst();
    auto field = [&](const char* name) { return rs->Fields(QString::fromLatin1(name)); };
    txtTemplateDescription->setText(Decoded(VB::Text(field("TemplateDescription"))));
    cboOccasion->setCurrentIndex(-1);
    cboOccasion->setEditText(VB::Text(field("TemplateOccasion")));
    txtNotes->setPlainText(VB::Text(field("TemplateNotes")));
    lblSource->setText(field("IsInBuilt").toBool() ? QStringLiteral("In Built")
                                                   : QStringLiteral("User Created"));
    lblType->setText(field("IsServiceTemplate").toBool() ? QStringLiteral("Service Template")
                                                         : QStringLiteral("Service Item Template"));
    lblAuthor->setText(VB::Text(field("TemplateAuthor")));
    const QVariant varDate = field("TemplateDateCreated");
    lblTemplateDateCreated->setText(
        varDate.isNull() ? QString()
                         : VB::Format(varDate.toDateTime(), QStringLiteral("Medium Date")));
}

// One open per display: the button stays disabled until the next ShowProperties.
void ctlTemplate::cmdOpenTemplate_Click() {
    Entry("cmdOpenTemplate_Click").Enter().Guarded([&] {
        cmdOpenTemplate->setEnabled(false);
        QString strErrorMessage;
        QVariant varUnused;
        DataAccess::Instance().OpenTemplate(lngTemplateID, false, QString(), QString(), true,
                                            strErrorMessage, varUnused);
        if (strErrorMessage.isEmpty())
            return;
        const QString strText = QStringLiteral("cmdOpenTemplate_Click:") + strErrorMessage;
        TraceLog::Instance().WriteErrorLine(strText);
        Platform::Current().MsgBox(strText);
    });
}
