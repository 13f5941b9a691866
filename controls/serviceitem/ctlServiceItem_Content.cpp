#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/SSTab.h"
#include "foundations/Twips.h"
#include "foundations/VBRuntime.h"
#include "run/MediaPlayer.h"
#include "serviceitem/ContentFiles.h"

#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTextEdit>

// The Content tab: text typed by hand, or a file named in txtFilename (its
// full path in the box's "Tag" property and its tool tip, its name as the
// text). This file fills the tab per type from the stored item, keeps typed
// text and a file apart, and shows what the named file is: a picture fitted to
// the tab, the music player for a piece of music, or the invitation to open a
// document or presentation by a double click. Choosing and opening a file are
// in ctlServiceItem_ContentFile.cpp, dropping one in
// ctlServiceItem_ContentDrop.cpp, the rules of the file kinds in
// ContentFiles.h.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

const char* const kTag = "Tag";
const char* const kFittedPicture = ContentFiles::FittedPictureProperty;

// The room that the file page of SSTab2 gives its widgets, in twips: the
// picture is fitted to it. Before the page was laid out, the tab's own size.
QSize FilePageRoom(const SSTab* tab) {
    const QWidget* page = tab->widget(0);
    QRect rcRoom = page && page->layout() ? page->layout()->contentsRect() : QRect();
    if (rcRoom.width() < 2 || rcRoom.height() < 2)
        rcRoom = tab->rect();
    return QSize(Twips::FromPixels(rcRoom.width()), Twips::FromPixels(rcRoom.height()));
}

void ResetFont(QTextEdit* box) {
    QFont font(QStringLiteral("Arial"), 10);
    font.setBold(false);
    font.setItalic(false);
    font.setUnderline(false);
    font.setStrikeOut(false);
    box->document()->setDefaultFont(font);
    box->setCurrentFont(font);
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
        ClearContentPicture();
        ResetContentBoxes();

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
            txtFileContent->setPlainText(strFile.isEmpty() ? ContentFiles::BrowseInvitation()
                                                           : ContentFiles::DoubleClickInvitation());
            txtFileContent->raise();
            break;
        default:
            SSTab2->setTabEnabled(1, true);
            txtFileContent->show();
            imgContent->setEnabled(false);
            fraListenToMusic->hide();
            txtContent->show();
            if (!strFile.isEmpty()) {
                SSTab2->setTab(0);
                txtFileContent->setPlainText(ContentFiles::DoubleClickInvitation());
            } else if (!strContent.isEmpty()) {
                SSTab2->setTab(1);
                txtContent->setPlainText(strContent);
            }
            txtContent->raise();
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
            txtFileContent->raise();
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
        if (txtDescription->text().isEmpty())
            txtDescription->setText(
                ContentFiles::DescriptionFromContent(txtContent->toPlainText()));
        blnContentTextChanged = true;
        Changed(TabContent);
    });
}

// Empties both text boxes with their font reset, and the music frame of what
// it said about the previous item's file.
void ctlServiceItem::ResetContentBoxes() {
    fraListenToMusic->setTitle(QString());
    txtContent->clear();
    txtFileContent->clear();
    ResetFont(txtContent);
    ResetFont(txtFileContent);
}

// What the named file shows: a picture, the music player, or the invitation to
// open it. The name typed into the description of an item without one is the
// file's name.
void ctlServiceItem::txtFilename_Change() {
    const auto entry = Entry("txtFilename_Change").Enter();
    entry.Guarded([&] {
        Changed(TabContent);
        const QString strName = txtFilename->text();
        if (strName.isEmpty())
            return;
        if (txtDescription->text().isEmpty())
            txtDescription->setText(ContentFiles::DescriptionFromFileName(strName));
        const QString strPath = txtFilename->property(kTag).toString();
        switch (ContentFiles::ShownAs(strName)) {
        case ContentFiles::Shown::Picture:
            ShowContentPicture(strPath);
            break;
        case ContentFiles::Shown::Music:
            ShowContentMusic(strPath);
            break;
        case ContentFiles::Shown::Document:
            imgContent->setEnabled(false);
            imgContent->setProperty(kFittedPicture, QString());
            imgContent->hide();
            txtFileContent->show();
            txtFileContent->setPlainText(ContentFiles::DoubleClickInvitation());
            break;
        }
    });
}

void ctlServiceItem::ClearContentPicture() {
    imgContent->clear();
    imgContent->setProperty(kFittedPicture, QString());
    imgContent->setToolTip(QString());
    imgContent->setMinimumSize(0, 0);
    imgContent->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    imgContent->hide();
}

// Shows the picture at strPath in imgContent at szTwips; a picture that cannot
// be read leaves the box saying why. The picture is read once (the pixmap
// cache keeps it), so fitting it again as the tab changes size is cheap.
void ctlServiceItem::SetContentPicture(const QString& strPath, const QSize& szTwips) {
    QPixmap picture;
    picture.load(Platform::LocalPath(strPath));
    imgContent->setAlignment(Qt::AlignCenter);
    if (picture.isNull()) {
        imgContent->setMinimumSize(0, 0);
        imgContent->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        imgContent->setWordWrap(true);
        imgContent->setText(
            Platform::Current().FileExists(Platform::LocalPath(strPath))
                ? QStringLiteral("The picture file %1 cannot be read.").arg(strPath)
                : ContentFiles::MissingFileText(QStringLiteral("picture file"), strPath));
        return;
    }
    // The picture takes the size it was given where the tab has room for it,
    // and is cut, never squeezed, where it has not; it never makes the editor
    // larger.
    const QSize szPixels(Twips::ToPixels(szTwips.width()), Twips::ToPixels(szTwips.height()));
    imgContent->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    imgContent->setMinimumSize(0, 0);
    imgContent->setMaximumSize(szPixels);
    imgContent->setPixmap(
        picture.scaled(szPixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void ctlServiceItem::ShowContentPicture(const QString& strPath) {
    imgContent->hide();
    imgContent->setEnabled(false);
    imgContent->setProperty(kFittedPicture, strPath);
    FitContentPicture();
    imgContent->show();
    imgContent->setEnabled(true);
}

// Fits the picture that a named file shows to the room of the file page; done
// again whenever that room changes (the page laid out, the window resized).
void ctlServiceItem::FitContentPicture() {
    const QString strPath = imgContent->property(kFittedPicture).toString();
    if (strPath.isEmpty())
        return;
    QPixmap picture;
    picture.load(Platform::LocalPath(strPath));
    const QSize szNatural(Twips::FromPixels(picture.width()), Twips::FromPixels(picture.height()));
    SetContentPicture(strPath, ContentFiles::FitPicture(szNatural, FilePageRoom(SSTab2)));
}

// A piece of music goes to the player; one that has gone from its place says
// so in the frame instead.
void ctlServiceItem::ShowContentMusic(const QString& strPath) {
    imgContent->setEnabled(false);
    txtFileContent->hide();
    fraListenToMusic->show();
    const QString strLocal = Platform::LocalPath(strPath);
    if (Platform::Current().FileExists(strLocal)) {
        fraListenToMusic->setTitle(QString());
        MediaPlayer1->setFileName(strLocal);
    } else {
        MediaPlayer1->setFileName(QString());
        fraListenToMusic->setTitle(
            ContentFiles::MissingFileText(QStringLiteral("music file"), strPath));
    }
}
