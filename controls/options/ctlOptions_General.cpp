// Tab 0, "General Options": the owner, the data path, the start-up page, sample
// mode and tips (all in Corvantis.ini), and two switches of the options record.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBError.h"
#include "options/OptionsHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace OptionsHelpers;

namespace {

const QString kClass = QStringLiteral("ctlOptions");
const QString kOptions = QStringLiteral("Options");
const QString kTrue = QStringLiteral("True");
const QString kFalse = QStringLiteral("False");
const QString kSampleOn = QStringLiteral("Turn off Sample mode");
const QString kSampleOff = QStringLiteral("Change to Sample mode");
// cboStartupTab_Click's handler, copied into cmdBrowse_Click with its name.
const QString kStartupTabPrefix =
    QStringLiteral("QVLTCONTROLS:ctlOptions:cboStartupTab_Click : Error number is ");

bool IsTrue(const QString& strValue) {
    return strValue.compare(kTrue, Qt::CaseInsensitive) == 0;
}

} // namespace

QWidget* ctlOptions::CreateGeneralTab() {
    auto* page = new QWidget;
    auto* form = new QFormLayout;
    txtOwner = Named(new QLineEdit, QStringLiteral("txtOwner"));
    form->addRow(QStringLiteral("&Owner:"), txtOwner);

    txtDataPath = Named(new QLineEdit, QStringLiteral("txtDataPath"));
    txtDataPath->setReadOnly(true);
    txtDataPath->setPlaceholderText(QStringLiteral("(the default data folder)"));
    cmdBrowse = Named(new QPushButton(QStringLiteral("&Browse...")), QStringLiteral("cmdBrowse"));
    auto* pathRow = new QHBoxLayout;
    pathRow->addWidget(txtDataPath, 1);
    pathRow->addWidget(cmdBrowse);
    form->addRow(QStringLiteral("Data folder:"), pathRow);

    cboStartupTab = Named(new QComboBox, QStringLiteral("cboStartupTab"));
    cboStartupTab->addItems({QStringLiteral("Services"), QStringLiteral("ServiceItems"),
                             QStringLiteral("Options"), QStringLiteral("Templates")});
    cboStartupTab->setCurrentIndex(-1);
    form->addRow(QStringLiteral("Page shown at &start-up:"), cboStartupTab);

    fraMakeCopy =
        Named(new QGroupBox(QStringLiteral("Files for Corvantis")), QStringLiteral("fraMakeCopy"));
    optCopy = Named(new QRadioButton(QStringLiteral(
                        "Make a dedicated copy of data files for Corvantis (Recommended)")),
                    QStringLiteral("optCopy"));
    optDontCopy = Named(
        new QRadioButton(QStringLiteral("Point to original copy of data files for Corvantis")),
        QStringLiteral("optDontCopy"));
    optCopy->setChecked(true);
    auto* copyBox = new QVBoxLayout(fraMakeCopy);
    copyBox->addWidget(optCopy);
    copyBox->addWidget(optDontCopy);

    chkAlwaysShowToolbars =
        Named(new QCheckBox(QStringLiteral(
                  "Whenever a gallery is displayed in Corvantis, always show its toolbar")),
              QStringLiteral("chkAlwaysShowToolbars"));
    chkIncludePropBagItems =
        Named(new QCheckBox(QStringLiteral("Whenever I export or import a Service Item or bunch "
                                           "of Service Items, include its propbag items")),
              QStringLiteral("chkIncludePropBagItems"));
    chkShowTipsAtStartUp = Named(new QCheckBox(QStringLiteral("Show Tips at start-up")),
                                 QStringLiteral("chkShowTipsAtStartUp"));

    cmdAddButtonsToNormal =
        Named(new QPushButton(QStringLiteral("&Add Corvantis Browser Buttons to Microsoft Word")),
              QStringLiteral("cmdAddButtonsToNormal"));
    cmdSampleMode = Named(new QPushButton(kSampleOff), QStringLiteral("cmdSampleMode"));
    cmdAbout =
        Named(new QPushButton(QStringLiteral("&About Corvantis")), QStringLiteral("cmdAbout"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAddButtonsToNormal);
    buttons->addWidget(cmdSampleMode);
    buttons->addStretch(1);
    buttons->addWidget(cmdAbout);

    auto* column = new QVBoxLayout(page);
    column->addLayout(form);
    column->addWidget(fraMakeCopy);
    column->addWidget(chkAlwaysShowToolbars);
    column->addWidget(chkIncludePropBagItems);
    column->addWidget(chkShowTipsAtStartUp);
    column->addStretch(1);
    column->addLayout(buttons);
    return page;
}

void ctlOptions::ConnectGeneralTab() {
    connect(txtOwner, &QLineEdit::textChanged, this, &ctlOptions::txtOwner_Change);
    connect(cboStartupTab, &QComboBox::currentIndexChanged, this, &ctlOptions::cboStartupTab_Click);
    connect(chkShowTipsAtStartUp, &QCheckBox::toggled, this,
            &ctlOptions::chkShowTipsAtStartUp_Click);
    connect(chkAlwaysShowToolbars, &QCheckBox::toggled, this,
            &ctlOptions::chkAlwaysShowToolbars_Click);
    connect(chkIncludePropBagItems, &QCheckBox::toggled, this,
            &ctlOptions::chkIncludePropBagItems_Click);
    // An option's Click comes when it is chosen, not when it is left.
    connect(optCopy, &QRadioButton::toggled, this, [this](bool blnOn) {
        if (blnOn)
            optCopy_Click();
    });
    connect(optDontCopy, &QRadioButton::toggled, this, [this](bool blnOn) {
        if (blnOn)
            optDontCopy_Click();
    });
    connect(cmdBrowse, &QPushButton::clicked, this, &ctlOptions::cmdBrowse_Click);
    connect(cmdSampleMode, &QPushButton::clicked, this, &ctlOptions::cmdSampleMode_Click);
    connect(cmdAddButtonsToNormal, &QPushButton::clicked, this,
            &ctlOptions::cmdAddButtonsToNormal_Click);
    connect(cmdAbout, &QPushButton::clicked, this, &ctlOptions::cmdAbout_Click);
}

// ---------------------------------------------------------------- loading

void ctlOptions::LoadGeneralTab(QString& strErrorMessage) {
    const auto entry = MemberEntry(kClass, QStringLiteral("LoadGeneralTab"))
                           .Arg(QStringLiteral("strErrorMessage"), strErrorMessage)
                           .Enter();
    entry.ErrorReturn(strErrorMessage, [&] {
        std::unique_ptr<Recordset> rs = FetchOptions();
        bool blnInstalled = false;
        // The browser buttons go into the word processor itself.
        DataAccess::Instance().IsWriterInstalled(blnInstalled);
        cmdAddButtonsToNormal->setEnabled(blnInstalled);
        // No store holds the file-copy choice; choosing it stores True in the
        // toolbar field (optDontCopy_Click), which the check box then shows.
        optDontCopy->setChecked(true);
        rs = FetchOptions();
        chkAlwaysShowToolbars->setChecked(
            StoredFlag(rs->Fields(QStringLiteral("AlwaysShowGalleryToolbars"))));
        chkIncludePropBagItems->setChecked(
            StoredFlag(rs->Fields(QStringLiteral("IncludePropsOnImpExp"))));
        rs.reset();

        cmdSampleMode->setText(IsTrue(ReadSetting(kOptions, QStringLiteral("IsSampleMode"),
                                                  QStringLiteral("Data"), 50))
                                   ? kSampleOn
                                   : kSampleOff);
        txtOwner->setText(ReadSetting(kOptions, QStringLiteral("Owner"), QString(), 200));
        const QString strStartupTab =
            ReadSetting(kOptions, QStringLiteral("StartupTab"), QString(), 200);
        for (int i = 0; i < cboStartupTab->count(); ++i) {
            if (cboStartupTab->itemText(i) == strStartupTab) {
                cboStartupTab->setCurrentIndex(i);
                break;
            }
        }
        txtDataPath->setText(
            ReadSetting(QStringLiteral("Paths"), QStringLiteral("Data"), QString(), 512));
        chkShowTipsAtStartUp->setChecked(
            IsTrue(ReadSetting(kOptions, QStringLiteral("ShowTips"), QString(), 255)));
    });
}

// ---------------------------------------------------------------- changes

void ctlOptions::txtOwner_Change() {
    const auto entry = MemberEntry(kClass, QStringLiteral("txtOwner_Change")).Enter();
    entry.Guarded([&] { WriteSetting(kOptions, QStringLiteral("Owner"), txtOwner->text()); });
}

void ctlOptions::cboStartupTab_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cboStartupTab_Click")).Spelt().Enter();
    entry.ErrorBox([&] {
        if (cboStartupTab->currentIndex() >= 0)
            WriteSetting(kOptions, QStringLiteral("StartupTab"), cboStartupTab->currentText());
    });
}

void ctlOptions::chkShowTipsAtStartUp_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("chkShowTipsAtStartUp_Click")).Enter();
    entry.Guarded([&] {
        WriteSetting(kOptions, QStringLiteral("ShowTips"),
                     CheckValue(chkShowTipsAtStartUp) == 1 ? kTrue : kFalse);
    });
}

void ctlOptions::chkAlwaysShowToolbars_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("chkAlwaysShowToolbars_Click")).Enter();
    entry.Guarded([&] {
        StoreOption(QStringLiteral("AlwaysShowGalleryToolbars"),
                    CheckValue(chkAlwaysShowToolbars) == 1);
    });
}

void ctlOptions::chkIncludePropBagItems_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("chkIncludePropBagItems_Click")).Enter();
    entry.Guarded([&] {
        StoreOption(QStringLiteral("IncludePropsOnImpExp"),
                    CheckValue(chkIncludePropBagItems) == 1);
    });
}

// Both file-copy options write to the toolbar field: the choice has no field of
// its own, and the screen has always stored it there.
void ctlOptions::optCopy_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("optCopy_Click")).Enter();
    entry.Guarded(
        [&] { StoreOption(QStringLiteral("AlwaysShowGalleryToolbars"), optCopy->isChecked()); });
}

void ctlOptions::optDontCopy_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("optDontCopy_Click")).Enter();
    entry.Guarded([&] {
        StoreOption(QStringLiteral("AlwaysShowGalleryToolbars"), optDontCopy->isChecked());
    });
}

void ctlOptions::cmdBrowse_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cmdBrowse_Click"))
                           .WithPrefix(kStartupTabPrefix)
                           .Enter();
    ErrorBoxQuietOnCancel(entry, [&] {
        const QString strFile = Platform::Current().ShowOpen(
            QStringLiteral("Corvantis Database File (Corvantis.pdb)|Corvantis.pdb"),
            QStringLiteral("Select the Corvantis database file"), QString(), true);
        QString strFolder;
        DataAccess::Instance().GetFolderOfPath(strFile, strFolder);
        if (!WriteSetting(QStringLiteral("Paths"), QStringLiteral("Data"), strFolder))
            return;
        txtDataPath->setProperty("Tag", strFile);
        txtDataPath->setText(strFolder);
        Platform::Current().MsgBox(
            QStringLiteral(
                "Data path changed. You must restart Corvantis for the change to take effect"),
            vbOKOnly, QStringLiteral("Path Changed"));
        emit SampleModeValueChanged();
    });
}

void ctlOptions::cmdSampleMode_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cmdSampleMode_Click")).Enter();
    entry.Guarded([&] {
        const bool blnTurnOff = cmdSampleMode->text() == kSampleOn;
        if (!WriteSetting(kOptions, QStringLiteral("IsSampleMode"), blnTurnOff ? kFalse : kTrue))
            return;
        cmdSampleMode->setText(blnTurnOff ? kSampleOff : kSampleOn);
        Platform::Current().MsgBox(
            QStringLiteral("You must restart Corvantis for changes to take effect"), vbOKOnly,
            QStringLiteral("Restart Corvantis"));
        emit SampleModeValueChanged();
    });
}

void ctlOptions::cmdAddButtonsToNormal_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cmdAddButtonsToNormal_Click")).Enter();
    entry.Guarded([&] {
        QString strErrorMessage;
        DataAccess::Instance().AddBrowserButtonsToWord(strErrorMessage);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(strErrorMessage);
    });
}

void ctlOptions::cmdAbout_Click() {
    const auto entry = MemberEntry(kClass, QStringLiteral("cmdAbout_Click")).Enter();
    entry.Guarded([&] { emit AboutCorvantis(); });
}
