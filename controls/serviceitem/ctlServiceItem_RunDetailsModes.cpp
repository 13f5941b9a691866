#include "serviceitem/ctlServiceItem.h"
#include "serviceitem/ctlServiceItem_RunDetails.h"

#include "DataAccess.h"
#include "foundations/EditorCycle.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/VBRuntime.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QTreeWidget>

// The Run Mode Details tab, how the item is stepped through: running as
// points, the check that a text can run a number of lines at a time, and the
// display time of its pictures with the tests of its two boxes. Also the
// wiring of the tab's widgets to their handlers.

namespace {
MemberEntry Entry(const char* member) {
    return MemberEntry(QStringLiteral("ctlServiceItem"), QString::fromLatin1(member));
}

const QString& InvalidDataEntry() {
    static const QString title = QStringLiteral("Invalid Data Entry");
    return title;
}
} // namespace

namespace RunDetails {

QString BareFileName(const QString& strPath) {
    const qsizetype slash =
        qMax(strPath.lastIndexOf(QLatin1Char('/')), strPath.lastIndexOf(QLatin1Char('\\')));
    return strPath.mid(slash + 1);
}

bool IsPictureFile(const QString& strPath) {
    static const QStringList pictures = {QStringLiteral("bmp"),  QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("gif"),
                                         QStringLiteral("png"),  QStringLiteral("tif"),
                                         QStringLiteral("tiff"), QStringLiteral("dib")};
    return pictures.contains(QFileInfo(BareFileName(strPath)).suffix().toLower());
}

bool IsMusicFile(const QString& strPath) {
    static const QStringList music = {QStringLiteral("mp3"), QStringLiteral("wav"),
                                      QStringLiteral("mid")};
    return music.contains(QFileInfo(BareFileName(strPath)).suffix().toLower());
}

void ClearOption(QRadioButton* option) {
    const bool blnExclusive = option->autoExclusive();
    option->setAutoExclusive(false);
    option->setChecked(false);
    option->setAutoExclusive(blnExclusive);
}

} // namespace RunDetails

void ctlServiceItem::ConnectRunDetails() {
    connect(optShowSILineByLine, &QRadioButton::clicked, this,
            &ctlServiceItem::optShowSILineByLine_Click);
    // The number of lines means something only with its option.
    connect(optShowSILineByLine, &QRadioButton::toggled, txtNumLinesToShowPerTime,
            &QLineEdit::setEnabled);
    // Sub-points are revealed one by one only where points are: not when all
    // show at the start.
    for (QRadioButton* option : {optOnePointAtATime, optAllPointsByRevealing, optAllPointsAtOnce})
        connect(option, &QRadioButton::toggled, this, &ctlServiceItem::optAllPointsAtOnce_Click);
    connect(optShowImagesWhileRunning, &QRadioButton::clicked, this,
            &ctlServiceItem::optShowImagesWhileRunning_Click);
    connect(optHideImagesWhileRunning, &QRadioButton::clicked, this,
            &ctlServiceItem::optHideImagesWhileRunning_Click);
    connect(cmdNewImage, &QPushButton::clicked, this, &ctlServiceItem::cmdNewImage_Click);
    connect(cmdDeleteImages, &QPushButton::clicked, this, &ctlServiceItem::cmdDeleteImages_Click);
    connect(lvwUsedImages, &QTreeWidget::itemClicked, this,
            &ctlServiceItem::lvwUsedImages_ItemClick);
    connect(optShowUntilClick, &QRadioButton::clicked, this,
            &ctlServiceItem::optShowUntilClick_Click);
    connect(optImageDisplayTime, &QRadioButton::clicked, this,
            &ctlServiceItem::optImageDisplayTime_Click);
    connect(txtImageDisplayMinutes, &QLineEdit::textEdited, this,
            &ctlServiceItem::txtImageDisplayMinutes_Change);
    connect(txtImageDisplaySeconds, &QLineEdit::textEdited, this,
            &ctlServiceItem::txtImageDisplaySeconds_Change);
    // Leaving a time box empty puts 0 in it.
    for (QLineEdit* box : {txtImageDisplayMinutes, txtImageDisplaySeconds})
        connect(box, &QLineEdit::editingFinished, box, [box] {
            if (box->text().isEmpty())
                box->setText(QStringLiteral("0"));
        });
    connect(cmdBrowseMusicFile, &QPushButton::clicked, this,
            &ctlServiceItem::cmdBrowseMusicFile_Click);
    connect(cmdSelectMusicSI, &QPushButton::clicked, this, &ctlServiceItem::cmdSelectMusicSI_Click);
}

// Puts the check box of hiding the details right under a frame: the music
// frame for pictures, the pictures frame for every other item.
void ctlServiceItem::PlaceHideDetails(QWidget* below) {
    auto* layout = qobject_cast<QBoxLayout*>(chkHideDetails->parentWidget()->layout());
    if (!layout || layout->indexOf(below) < 0)
        return;
    layout->removeWidget(chkHideDetails);
    layout->insertWidget(layout->indexOf(below) + 1, chkHideDetails);
}

void ctlServiceItem::chkShowAsPointsList_Click() {
    const auto entry = Entry("chkShowAsPointsList_Click").Enter();
    entry.Guarded([&] {
        const bool blnTicked = chkShowAsPointsList->isChecked();
        fraAsPointsList->setVisible(blnTicked);
        fraNotAsPointsList->setVisible(!blnTicked);
        if (blnTicked) {
            bool blnRevealSubPoints = false;
            qint16 intPointsMode = 4;
            QString strErrorMessage;
            DataAccess::Instance().GetDefaultPointsDisplay(blnRevealSubPoints, strErrorMessage,
                                                           intPointsMode);
            if (intPointsMode == 6)
                optAllPointsAtOnce->setChecked(true);
            else if (intPointsMode == 5)
                optAllPointsByRevealing->setChecked(true);
            else
                optOnePointAtATime->setChecked(true);
            chkShowSubPointsOneByOne->setChecked(blnRevealSubPoints);
        }
        Changed(TabRunDetails);
    });
}

// A text made of sentences and paragraphs cannot be cut into lines: the
// choice is refused and the whole item shown instead. The words checked are
// those typed on the Content tab when they changed, else the stored ones.
void ctlServiceItem::optShowSILineByLine_Click() {
    const auto entry = Entry("optShowSILineByLine_Click").Enter();
    entry.Guarded([&] {
        if (!optShowSILineByLine->isChecked())
            return;
        Platform& platform = Platform::Current();
        DataAccess& da = DataAccess::Instance();
        fraChecking->show();
        platform.DoEvents();
        QString strErrorMessage;
        QString strText;
        if (ContentDirty() && !txtContent->toPlainText().isEmpty())
            strText = txtContent->toPlainText();
        else
            da.GetServiceItemText(lngServiceItemID, strErrorMessage, strText);
        bool blnLines = false;
        if (strErrorMessage.isEmpty())
            da.TextIsLineStructured(strText, strErrorMessage, blnLines);
        if (!strErrorMessage.isEmpty()) {
            platform.MsgBox(strErrorMessage);
            return;
        }
        if (!blnLines) {
            platform.MsgBox(
                QStringLiteral("The text of this service item cannot be broken into lines. It is "
                               "made \r\nup of sentences and paragraphs. Please select a "
                               "different option"),
                vbOKOnly, QStringLiteral("Invalid Option"));
            optShowEntireSI->setChecked(true);
        }
        fraChecking->hide();
        platform.DoEvents();
        const QString strLines = txtNumLinesToShowPerTime->text();
        if (strLines.isEmpty() || strLines == QLatin1String("0"))
            txtNumLinesToShowPerTime->setText(QStringLiteral("2"));
        txtNumLinesToShowPerTime->setEnabled(optShowSILineByLine->isChecked());
        Changed(TabRunDetails);
    });
}

void ctlServiceItem::optAllPointsAtOnce_Click() {
    fraSubPoints->setHidden(optAllPointsAtOnce->isChecked());
}

void ctlServiceItem::EnableTimeBoxes() {
    const bool blnEnable = !optShowUntilClick->isChecked();
    txtImageDisplayMinutes->setEnabled(blnEnable);
    txtImageDisplaySeconds->setEnabled(blnEnable);
}

void ctlServiceItem::optShowUntilClick_Click() {
    EnableTimeBoxes();
}

void ctlServiceItem::optImageDisplayTime_Click() {
    EnableTimeBoxes();
}

void ctlServiceItem::txtImageDisplayMinutes_Change() {
    TimeBox_Change(txtImageDisplayMinutes, QStringLiteral("minutes"));
}

void ctlServiceItem::txtImageDisplaySeconds_Change() {
    TimeBox_Change(txtImageDisplaySeconds, QStringLiteral("seconds"));
}

// An empty box is left alone (LostFocus fills it); a text that is no number,
// or a number below zero, is refused and emptied.
void ctlServiceItem::TimeBox_Change(QLineEdit* box, const QString& strWhat) {
    const QString strValue = box->text();
    if (strValue.isEmpty())
        return;
    QString strRefusal;
    if (!VB::IsNumeric(strValue))
        strRefusal = QStringLiteral("Please enter a number of %1 in this box").arg(strWhat);
    else if (strValue.toDouble() < 0)
        strRefusal = QStringLiteral("Please enter a number of %1 greater than zero in this box")
                         .arg(strWhat);
    if (!strRefusal.isEmpty()) {
        Platform::Current().MsgBox(strRefusal, vbOKOnly, InvalidDataEntry());
        box->clear();
        return;
    }
    Changed(TabRunDetails);
}
