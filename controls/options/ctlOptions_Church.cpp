// Tab 3, "Church Properties": the church's details for printed sheets and its
// logo, whose copy lies in the data folder as "ChurchLogo." + extension.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/Twips.h"
#include "foundations/VBError.h"
#include "foundations/modQVLTControls.h"
#include "options/OptionsHelpers.h"

#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace OptionsHelpers;

namespace {

const QString kClass = QStringLiteral("ctlOptions");
const QString kLogoPrompt = QStringLiteral("Select a picture file for your church logo");

// The text boxes of the church's details: the box, its field, the prompt that
// stands in it while the field is Null (none: the box stays empty), and the
// caption before it.
struct ChurchBox {
    QLineEdit* ctlOptions::*Box;
    const char* Name;
    const char* Field;
    const char* Prompt;
    const char* Caption;
};
const ChurchBox kChurchBoxes[] = {
    {&ctlOptions::txtChurchName, "txtChurchName", "ChurchName", "Enter church name here",
     "Church &name:"},
    {&ctlOptions::txtPastorName, "txtPastorName", "ChurchPastorName",
     "Enter the name of the pastor as it should appear on church stationery", "&Pastor:"},
    {&ctlOptions::txtChurchAddress1, "txtChurchAddress1", "ChurchAddress1",
     "Enter church address in these boxes", "&Address:"},
    {&ctlOptions::txtChurchAddress2, "txtChurchAddress2", "ChurchAddress2", "", ""},
    {&ctlOptions::txtChurchAddress3, "txtChurchAddress3", "ChurchAddress3", "", ""},
    {&ctlOptions::txtChurchAddress4, "txtChurchAddress4", "ChurchAddress4", "", ""},
    {&ctlOptions::txtChurchPhone, "txtChurchPhone", "ChurchPhone1",
     "Enter the main church phone number in this box", "P&hone:"},
    {&ctlOptions::txtChurchPhone2, "txtChurchPhone2", "ChurchPhone2",
     "Enter any other church phone number in this box", "&Other phone:"},
    {&ctlOptions::txtChurchEmail, "txtChurchEmail", "ChurchEmail",
     "Enter church email address here", "&Email:"},
    {&ctlOptions::txtChurchWebSite, "txtChurchWebSite", "ChurchWebSite",
     "Enter church web address here", "&Web site:"},
    {&ctlOptions::txtChurchMissionStatement, "txtChurchMissionStatement", "ChurchMissionStatement",
     "Enter church mission statement here", "&Mission statement:"},
};

// The name under which the platform finds a file in a folder, letter case
// aside (as the directory look-up of a case-blind file system answers), or an
// empty text.
QString FoundInFolder(const QString& strFolder, const QString& strName) {
    const QStringList entries = QDir(strFolder).entryList(QDir::Files);
    for (const QString& entry : entries)
        if (entry.compare(strName, Qt::CaseInsensitive) == 0)
            return entry;
    return QString();
}

} // namespace

QString ctlOptions::ChurchPrompt(const QString& strBoxName) {
    if (strBoxName == QLatin1String("txtChurchLogoFilename"))
        return kLogoPrompt;
    for (const ChurchBox& box : kChurchBoxes)
        if (strBoxName == QLatin1String(box.Name))
            return QString::fromUtf8(box.Prompt);
    return QString();
}

QList<QLineEdit*> ctlOptions::ChurchBoxes() const {
    QList<QLineEdit*> boxes;
    for (const ChurchBox& box : kChurchBoxes)
        boxes << this->*box.Box;
    boxes << txtChurchLogoFilename;
    return boxes;
}

// ---------------------------------------------------------------- widgets

QWidget* ctlOptions::CreateChurchTab() {
    auto* page = new QWidget;
    auto* form = new QFormLayout;
    for (const ChurchBox& box : kChurchBoxes) {
        QLineEdit* txt = Named(new QLineEdit, QString::fromLatin1(box.Name));
        this->*box.Box = txt;
        txt->installEventFilter(this);
        form->addRow(QString::fromUtf8(box.Caption), txt);
    }

    txtChurchLogoFilename = Named(new QLineEdit, QStringLiteral("txtChurchLogoFilename"));
    // The logo is chosen with the button; the box shows the name the user knows.
    txtChurchLogoFilename->setReadOnly(true);
    txtChurchLogoFilename->installEventFilter(this);
    cmdBrowseChurchLogo =
        Named(new QPushButton(QStringLiteral("&Browse...")), QStringLiteral("cmdBrowseChurchLogo"));
    auto* logoRow = new QHBoxLayout;
    logoRow->addWidget(txtChurchLogoFilename, 1);
    logoRow->addWidget(cmdBrowseChurchLogo);
    form->addRow(QStringLiteral("Logo:"), logoRow);

    imgChurchLogo = Named(new QLabel, QStringLiteral("imgChurchLogo"));
    imgChurchLogo->setFixedSize(Twips::ToPixels(2400), Twips::ToPixels(1800));
    imgChurchLogo->setFrameShape(QFrame::Box);
    imgChurchLogo->setAlignment(Qt::AlignCenter);
    form->addRow(QString(), imgChurchLogo);

    auto* column = new QVBoxLayout(page);
    column->addLayout(form);
    column->addStretch(1);
    return page;
}

void ctlOptions::ConnectChurchTab() {
    for (const ChurchBox& box : kChurchBoxes) {
        QLineEdit* txt = this->*box.Box;
        connect(txt, &QLineEdit::textChanged, this, [this, txt] { ChurchBox_Change(txt); });
    }
    connect(txtChurchLogoFilename, &QLineEdit::textChanged, this,
            &ctlOptions::txtChurchLogoFilename_Change);
    connect(cmdBrowseChurchLogo, &QPushButton::clicked, this,
            &ctlOptions::cmdBrowseChurchLogo_Click);
}

// ---------------------------------------------------------------- loading

// A Null field shows its prompt as ordinary text, and showing it stores it, so
// after the first look the record holds the prompts: the screen has always
// worked so. The tab loads once per control, whichever way the loading ends.
void ctlOptions::LoadChurchProps() {
    const auto entry = MemberEntry(kClass, QStringLiteral("LoadChurchProps"))
                           .WithPrefix(QStringLiteral("LoadChurchProps: Error number is "))
                           .Enter();
    entry.ErrorBox([&] {
        m_blnChurchTabLoaded = true;
        std::unique_ptr<Recordset> rs = FetchOptions();
        for (const ChurchBox& box : kChurchBoxes) {
            const QVariant varValue = rs->Fields(QString::fromLatin1(box.Field));
            (this->*box.Box)
                ->setText(varValue.isNull() ? QString::fromUtf8(box.Prompt) : varValue.toString());
        }

        const QVariant varLogo = rs->Fields(QStringLiteral("ChurchLogoFilename"));
        if (varLogo.isNull() || varLogo.toString().isEmpty()) {
            txtChurchLogoFilename->setText(kLogoPrompt);
            txtChurchLogoFilename->setToolTip(QString());
            return;
        }
        QString strFolder;
        DataAccess::Instance().GetDataFolder(strFolder);
        const QString strCopyName =
            QStringLiteral("ChurchLogo.") + modQVLTControls::GetFileExtension(varLogo.toString());
        const QString strFound = FoundInFolder(strFolder, strCopyName);
        if (strFound.toUpper() != strCopyName.toUpper()) {
            Platform::Current().MsgBox(
                QStringLiteral("LoadChurchProps: Logo file was moved from original location"));
            txtChurchLogoFilename->setText(kLogoPrompt);
            txtChurchLogoFilename->setToolTip(QString());
            imgChurchLogo->clear();
            return;
        }
        const QString strFullName = strFolder + strFound;
        const QPixmap picture(strFullName);
        if (picture.isNull())
            throw VBError(481, QStringLiteral("Invalid picture"));
        imgChurchLogo->setPixmap(picture.scaled(imgChurchLogo->contentsRect().size(),
                                                Qt::KeepAspectRatio, Qt::SmoothTransformation));
        txtChurchLogoFilename->setToolTip(strFullName);
        txtChurchLogoFilename->setText(
            rs->Fields(QStringLiteral("ChurchLogoFileDescription")).toString());
    });
}

// ---------------------------------------------------------------- changes

void ctlOptions::ChurchBox_Change(QLineEdit* txt) {
    const auto entry = MemberEntry(kClass, txt->objectName() + QStringLiteral("_Change")).Enter();
    entry.Guarded([&] {
        for (const ChurchBox& box : kChurchBoxes)
            if (this->*box.Box == txt)
                StoreOption(QString::fromLatin1(box.Field), txt->text());
    });
}

// The record keeps the copy's full name (the tool tip) and the name that the
// user knows (the text).
void ctlOptions::txtChurchLogoFilename_Change() {
    const auto entry = MemberEntry(kClass, QStringLiteral("txtChurchLogoFilename_Change")).Enter();
    entry.Guarded([&] {
        StoreOptions(
            {{QStringLiteral("ChurchLogoFilename"), txtChurchLogoFilename->toolTip()},
             {QStringLiteral("ChurchLogoFileDescription"), txtChurchLogoFilename->text()}});
    });
}

void ctlOptions::cmdBrowseChurchLogo_Click() {
    const auto entry =
        MemberEntry(kClass, QStringLiteral("cmdBrowseChurchLogo_Click"))
            .WithPrefix(QStringLiteral("ctlOptions: cmdBrowseChurchLogo:Error number is "))
            .Enter();
    ErrorBoxQuietOnCancel(entry, [&] {
        const QString strFile = Platform::Current().ShowOpen(
            PictureFilter, QStringLiteral("Select a picture as your church logo"), QString(), true);
        QString strErrorMessage;
        DataAccess::Instance().CopyChurchLogo(strFile, strErrorMessage);
        Platform::Current().DoEvents();
        if (!strErrorMessage.isEmpty()) {
            // Nothing was copied: the logo in force stays.
            Platform::Current().MsgBox(strErrorMessage, vbOKOnly | vbExclamation,
                                       QStringLiteral("Logo not changed"));
            return;
        }
        QString strFolder;
        DataAccess::Instance().GetDataFolder(strFolder);
        const QString strCopy = strFolder + DataAccess::ChurchLogoName(FileNameOf(strFile));
        txtChurchLogoFilename->setToolTip(strCopy);
        txtChurchLogoFilename->setText(FileNameOf(strFile));
        const QPixmap picture(strCopy);
        if (picture.isNull())
            throw VBError(481, QStringLiteral("Invalid picture"));
        imgChurchLogo->setPixmap(picture.scaled(imgChurchLogo->contentsRect().size(),
                                                Qt::KeepAspectRatio, Qt::SmoothTransformation));
    });
}
