#include "serviceitem/ctlServiceItem.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/PresentationView.h"
#include "foundations/SSTab.h"
#include "foundations/VBError.h"
#include "foundations/modQVLTControls.h"
#include "serviceitem/ContentFiles.h"

#include <QEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTextEdit>

// The file of the Content tab: choosing it (cmdBrowse_Click, with the filter
// and title of the item's type), opening it by a double click on
// txtFileContent (a document into the box, a presentation as its slides), and
// the presentation itself: ShowPowerPointFile shows the slides that
// LibreOffice Impress makes of it over the parent widget, and closing it stops
// a conversion still running.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

// A path as this machine writes it holds "/"; GetFileName cuts at "\".
QString NameOf(const QString& strPath) {
    return modQVLTControls::GetFileName(QString(strPath).replace(QLatin1Char('/'), '\\'));
}
} // namespace

void ctlServiceItem::ConnectContentSources() {
    connect(cmdBrowse, &QPushButton::clicked, this, &ctlServiceItem::cmdBrowse_Click);
    // A read-only rich text box gets its double clicks on its viewport.
    ContentFiles::OnEvent(txtFileContent->viewport(), [this](QEvent* event) {
        if (event->type() != QEvent::MouseButtonDblClick)
            return false;
        txtFileContent_DblClick();
        return true;
    });
    ConnectContentDrops();
    ContentFiles::OnEvent(SSTab2->widget(0), [this](QEvent* event) {
        if (event->type() == QEvent::Resize)
            FitContentPicture();
        return false;
    });
}

// The file's full path in Tag and tool tip, its name as the text (which runs
// txtFilename_Change).
void ctlServiceItem::NameContentFile(const QString& strPath) {
    txtFilename->setProperty("Tag", strPath);
    txtFilename->setToolTip(strPath);
    txtFilename->setText(NameOf(strPath));
}

void ctlServiceItem::cmdBrowse_Click() {
    const auto entry = Entry("cmdBrowse_Click").Enter();
    entry.ErrorBox([&] {
        if (!blnShowingProperties && !txtContent->toPlainText().isEmpty()) {
            const qint32 intAnswer = Platform::Current().MsgBox(
                QStringLiteral("There is already some text in the 'Type Content By Hand' box. "
                               "If you want to point to a file then this box must be cleared. "
                               "Do you want Corvantis to clear this box for you"),
                vbYesNoCancel, QStringLiteral("Clear content in 'Type Content By hand Box'?"));
            if (intAnswer != vbYes)
                return;
            txtContent->clear();
        }
        const ContentFiles::BrowseDialog dialog =
            ContentFiles::BrowseDialogFor(SelectedTypeImage());
        QString strFile;
        try {
            strFile = Platform::Current().ShowOpen(dialog.Filter, dialog.Title, QString(), true);
        } catch (const VBError& e) {
            if (e.Number == 32755) // Cancel
                return;
            throw;
        }
        if (strFile.isEmpty())
            return;
        NameContentFile(strFile);
    });
}

void ctlServiceItem::txtFileContent_DblClick() {
    const auto entry = Entry("txtFileContent_DblClick").Enter();
    entry.Guarded([&] {
        fraOpeningFile->show();
        const QString strPath = txtFilename->property("Tag").toString();
        QString strErrorMessage;
        switch (ContentFiles::OpenedAs(txtFilename->text())) {
        case ContentFiles::Opened::RichText:
            DataAccess::Instance().LoadFileIntoRichText(Platform::LocalPath(strPath),
                                                        txtFileContent, strErrorMessage);
            break;
        case ContentFiles::Opened::Presentation:
            ShowPowerPointFile(strPath, txtFileContent, strErrorMessage);
            break;
        case ContentFiles::Opened::Nothing:
            // A picture or a piece of music shows elsewhere; any other file
            // was invited to a double click, so the box says why it stays.
            if (ContentFiles::ShownAs(txtFilename->text()) == ContentFiles::Shown::Document &&
                !txtFilename->text().isEmpty())
                txtFileContent->setPlainText(ContentFiles::CannotOpenText(txtFilename->text()));
            break;
        }
        if (!strErrorMessage.isEmpty())
            txtFileContent->setPlainText(ContentFiles::OpenErrorText(strErrorMessage));
        fraOpeningFile->hide();
    });
}

// The slides of the presentation are shown over objParent, as large as it is,
// and follow its size. Without LibreOffice, or with a presentation it cannot
// open, the presentation view has told the user in a box; nothing then covers
// objParent, and no error text comes back, so the caller leaves its own text.
void ctlServiceItem::ShowPowerPointFile(const QString& strPowerPointFile, QWidget* objParent,
                                        QString& strErrorMessage) {
    const auto entry = Entry("ShowPowerPointFile")
                           .Arg(QStringLiteral("strPowerPointFile"), strPowerPointFile)
                           .Enter();
    entry.FullErrorBox([&] {
        strErrorMessage.clear();
        ClosePowerPoint();
        if (!objParent) {
            strErrorMessage = QStringLiteral("There is no window to show the presentation in.");
            return;
        }
        objPowerPoint = new PresentationView(objParent);
        objPowerPoint->setObjectName(QStringLiteral("objPowerPoint"));
        objPowerPoint->setGeometry(objParent->rect());
        QPointer<PresentationView> view = objPowerPoint;
        ContentFiles::OnEvent(
            objParent,
            [view, objParent](QEvent* event) {
                if (view && event->type() == QEvent::Resize)
                    view->setGeometry(objParent->rect());
                return false;
            },
            objPowerPoint);
        objPowerPoint->show();
        objPowerPoint->raise();
        blnOpeningPresentation = true;
        blnClosePresentation = false;
        QString strWhy;
        const bool blnShown =
            objPowerPoint->ShowPowerPointFile(Platform::LocalPath(strPowerPointFile), strWhy);
        blnOpeningPresentation = false;
        if (blnClosePresentation) {
            blnClosePresentation = false;
            ClosePowerPoint();
        } else if (!blnShown) {
            strErrorMessage = strWhy;
            ClosePowerPoint();
        } else {
            objPowerPoint->setFocus();
        }
    });
}

// Closing the presentation stops its conversion if LibreOffice is still at
// work. While ShowPowerPointFile waits for it, the view is only stopped here
// and ShowPowerPointFile removes it once the wait is over.
void ctlServiceItem::ClosePowerPoint() {
    if (!objPowerPoint)
        return;
    objPowerPoint->StopConversion();
    if (blnOpeningPresentation) {
        blnClosePresentation = true;
        return;
    }
    PresentationView* view = objPowerPoint;
    objPowerPoint = nullptr;
    view->hide();
    Platform::Current().DoEvents();
    delete view;
}
