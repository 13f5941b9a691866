#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/SSTab.h"
#include "foundations/VBRuntime.h"
#include "run/MediaPlayer.h"

#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>

// The Content tab: text typed by hand, or a file named in txtFilename (its
// full path in the box's "Tag" property, its name as the text).
//
// What is here: the tab filled per type from the stored item, typing by hand
// (with the question when a file is named, and the description taken from the
// first words), and the content stored by the save. What comes with the
// content sources: choosing a file (cmdBrowse_Click), what each kind of file
// shows (the rest of txtFilename_Change, the fit of a picture, the player of a
// music file), dropping files, opening a file by a double click into
// txtFileContent, and showing a presentation (ShowPowerPointFile and its
// closing).

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

const char* const kTag = "Tag";

QString Invitation() {
    return QStringLiteral("Please double click this box to open the file that is named below. "
                          "This operation may take a few moments");
}
} // namespace

void ctlServiceItem::LoadContent() {
    if (blnContentLoaded)
        return;
    const auto entry = Entry("LoadContent").Enter();
    entry.FullErrorBox([&] {
        const QString strPrefix = QStringLiteral("QVLTCONTROLS:ctlServiceItem:LoadContent: ");
        const bool blnSaveEnabled = cmdSave->isEnabled();
        std::unique_ptr<Recordset> rs;
        QString strErrorMessage;
        DataAccess::Instance().GetServiceItemsJoined(WhereThisItem(), 4, strErrorMessage, rs);
        if (!strErrorMessage.isEmpty()) {
            Platform::Current().MsgBox(strPrefix + strErrorMessage);
            return;
        }
        if (!rs || rs->RecordCount() == 0) {
            Platform::Current().MsgBox(
                strPrefix + QStringLiteral("There is no service item with an ID of ") +
                    QString::number(lngServiceItemID),
                vbOKOnly, QStringLiteral("System Error"));
            return;
        }
        rs->MoveFirst();
        const qint32 lngTypeID =
            VB::CLng(rs->Fields(QStringLiteral("ServiceItems.ServiceItemTypeID")));
        const QString strFile = VB::Text(rs->Fields(QStringLiteral("ServiceItemFilename")));
        const QString strContent = VB::Text(rs->Fields(QStringLiteral("ServiceItemContent")));
        txtFilename->setToolTip(QString());
        txtFilename->setProperty(kTag, QString());
        txtFilename->clear();
        imgContent->clear();
        txtContent->clear();
        txtFileContent->clear();

        switch (lngTypeID) {
        case 4:
        case 5:
            SSTab2->setTabEnabled(1, false);
            txtFileContent->hide();
            imgContent->setEnabled(true);
            fraListenToMusic->hide();
            break;
        case 12:
            SSTab2->setTabEnabled(1, false);
            txtFileContent->show();
            imgContent->setEnabled(false);
            fraListenToMusic->hide();
            break;
        case 0:
            Platform::Current().MsgBox(QStringLiteral("LoadContent: ServiceItemType is NONE"));
            SSTab2->setTabEnabled(1, true);
            break;
        case 10:
            SSTab2->setTabEnabled(1, false);
            txtFileContent->hide();
            fraListenToMusic->show();
            break;
        case 16:
            SSTab2->setTabEnabled(1, false);
            txtFileContent->show();
            imgContent->setEnabled(false);
            fraListenToMusic->hide();
            txtContent->hide();
            SSTab2->setTab(0);
            txtFileContent->setPlainText(
                strFile.isEmpty() ? QStringLiteral("Please click the browse button to select a "
                                                   "file that will be your responsive reading "
                                                   "Service Item")
                                  : Invitation());
            break;
        default:
            SSTab2->setTabEnabled(1, true);
            txtFileContent->show();
            imgContent->setEnabled(false);
            fraListenToMusic->hide();
            txtContent->show();
            if (!strFile.isEmpty()) {
                SSTab2->setTab(0);
                txtFileContent->setPlainText(Invitation());
            } else if (!strContent.isEmpty()) {
                SSTab2->setTab(1);
                txtContent->setPlainText(strContent);
            }
            break;
        }

        if (!strFile.isEmpty()) {
            QString strPath = strFile;
            if (!strFile.contains(QLatin1Char('\\')) && !strFile.contains(QLatin1Char('/'))) {
                QString strFolder;
                DataAccess::Instance().GetContentFolder(strFolder);
                strPath = QDir(strFolder).filePath(strFile);
            }
            txtFilename->setProperty(kTag, strPath);
            txtFilename->setToolTip(strPath);
            txtFilename->setText(
                VB::Text(rs->Fields(QStringLiteral("ServiceItemFileDescription"))));
        }
        rs.reset();
        Platform::Current().DoEvents();
        m_cycle->Clear(TabContent);
        cmdSave->setEnabled(blnSaveEnabled);
        blnContentLoaded = true;
    });
}

void ctlServiceItem::txtContent_Change() {
    const auto entry = Entry("txtContent_Change").Enter();
    entry.Guarded([&] {
        if (!blnShowingProperties && !txtFilename->text().isEmpty()) {
            const qint32 intAnswer = Platform::Current().MsgBox(
                QStringLiteral("There is a file already selected for this Service Item. If you "
                               "want to proceed with typing in content by hand then the File box "
                               "must be cleared. Do you want Corvantis to clear this box for you"),
                vbYesNoCancel | vbQuestion, QStringLiteral("Clear Content File Box?"));
            if (intAnswer != vbYes)
                return;
            txtFilename->setProperty(kTag, QString());
            txtFilename->clear();
            txtFileContent->clear();
        }
        // An item without a description takes its first line, or its first words.
        if (txtDescription->text().isEmpty()) {
            const QString strContent = txtContent->toPlainText();
            const qsizetype lngBreak = strContent.left(50).indexOf(QLatin1Char('\n'));
            txtDescription->setText(lngBreak >= 0 ? strContent.left(lngBreak).trimmed()
                                                  : strContent.left(25));
        }
        blnContentTextChanged = true;
        Changed(TabContent);
    });
}

void ctlServiceItem::txtFilename_Change() {
    Entry("txtFilename_Change").Enter();
    Changed(TabContent);
}
