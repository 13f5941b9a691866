// The options control: its frame (scroll surface and tab set), initialise,
// resize, the dispatch of the tabs and the two stores.
#include "options/ctlOptions.h"

#include "DataAccess.h"
#include "Settings.h"
#include "TraceLog.h"
#include "foundations/ControlFrame.h"
#include "foundations/MemberEntry.h"
#include "foundations/Platform.h"
#include "foundations/SSTab.h"
#include "foundations/VBError.h"
#include "options/OptionsHelpers.h"

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollArea>

using namespace OptionsHelpers;

ctlOptions::ctlOptions(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ctlOptions"));
    CreateWidgets();
    ConnectWidgets();
    UserControl_Initialize();
}

ctlOptions::~ctlOptions() {
    MemberEntry(QStringLiteral("ctlOptions"), QStringLiteral("UserControl_Terminate")).Enter();
}

QString ctlOptions::Description() const {
    return ControlDescriptions::ctlOptions;
}

bool ctlOptions::CanUnload() {
    return true;
}

// ---------------------------------------------------------------- widgets

void ctlOptions::CreateWidgets() {
    SSScroll1 = Named(new QScrollArea(this), QStringLiteral("SSScroll1"));
    SSScroll1->setFrameShape(QFrame::NoFrame);
    SSScroll1->setWidgetResizable(true);
    SSTab1 = Named(new SSTab, QStringLiteral("SSTab1"));
    SSTab1->addTab(CreateGeneralTab(), QStringLiteral("General Options"));
    SSTab1->addTab(CreateServiceBuildingTab(), QStringLiteral(" Service Building"));
    SSTab1->addTab(CreateRunModeTab(), QStringLiteral(" Run Mode Details"));
    SSTab1->addTab(CreateChurchTab(), QStringLiteral("Church Properties"));
    SSScroll1->setWidget(SSTab1);
}

void ctlOptions::ConnectWidgets() {
    connect(SSTab1, &SSTab::Click, this, &ctlOptions::SSTab1_Click);
    ConnectGeneralTab();
    ConnectServiceBuildingTab();
    ConnectRunModeTab();
    ConnectChurchTab();
}

// ---------------------------------------------------------------- initialise, tabs

void ctlOptions::UserControl_Initialize() {
    const auto entry =
        MemberEntry(QStringLiteral("ctlOptions"), QStringLiteral("UserControl_Initialize"))
            .Spelt()
            .Enter();
    entry.ErrorBox([&] {
        QString strErrorMessage;
        LoadGeneralTab(strErrorMessage);
        if (!strErrorMessage.isEmpty())
            Platform::Current().MsgBox(strErrorMessage);
    });
}

void ctlOptions::SSTab1_Click(qint16 PreviousTab) {
    const auto entry = MemberEntry(QStringLiteral("ctlOptions"), QStringLiteral("SSTab1_Click"))
                           .Arg(QStringLiteral("PreviousTab"), PreviousTab)
                           .Enter();
    entry.Guarded([&] {
        switch (SSTab1->Tab()) {
        case 0:
            if (!m_blnGeneralTabLoaded) {
                QString strErrorMessage;
                LoadGeneralTab(strErrorMessage);
                if (!strErrorMessage.isEmpty())
                    Platform::Current().MsgBox(strErrorMessage);
            }
            break;
        case 1:
            if (!m_blnServiceBuildingTabLoaded)
                LoadServiceBuildingTab();
            break;
        case 2:
            if (!m_blnRunModeTabLoaded)
                LoadRunModeDetailsTab();
            break;
        case 3:
            if (!m_blnChurchTabLoaded)
                LoadChurchProps();
            break;
        default:
            break;
        }
    });
}

// ---------------------------------------------------------------- resize, events

void ctlOptions::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

// The scroll surface fills the control and the tab set fills the surface; below
// the size the tabs need, the surface scrolls.
void ctlOptions::UserControl_Resize() {
    const auto entry =
        MemberEntry(QStringLiteral("ctlOptions"), QStringLiteral("UserControl_Resize"))
            .Spelt()
            .Enter();
    entry.ErrorBox([&] { SSScroll1->setGeometry(rect()); });
}

bool ctlOptions::eventFilter(QObject* watched, QEvent* event) {
    if (cboBackgroundImages && watched == cboBackgroundImages->lineEdit() &&
        event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->text().isEmpty() && key->text().at(0).isPrint()) {
            qint16 KeyAscii = static_cast<qint16>(key->text().at(0).unicode());
            cboBackgroundImages_KeyPress(KeyAscii);
            if (KeyAscii == 0)
                return true;
        }
    }
    if (event->type() == QEvent::FocusIn) {
        // A church box selects its whole text on getting focus, so that typing
        // replaces a prompt. Queued: the click that gave the focus would undo it.
        if (auto* txt = qobject_cast<QLineEdit*>(watched); txt && ChurchBoxes().contains(txt))
            QMetaObject::invokeMethod(txt, &QLineEdit::selectAll, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

// ---------------------------------------------------------------- the two stores

std::unique_ptr<Recordset> ctlOptions::FetchOptions() {
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetOptions(strErrorMessage, rs);
    if (!strErrorMessage.isEmpty() || !rs || rs->RecordCount() == 0)
        throw VBError(VBErr::InternalError, strErrorMessage.isEmpty()
                                                ? QStringLiteral("The options are missing.")
                                                : strErrorMessage);
    rs->MoveFirst();
    return rs;
}

void ctlOptions::StoreOption(const QString& strField, const QVariant& varValue) {
    StoreOptions({{strField, varValue}});
}

void ctlOptions::StoreOptions(const QList<std::pair<QString, QVariant>>& fields) {
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetOptions(strErrorMessage, rs);
    if (strErrorMessage.isEmpty() && rs) {
        rs->MoveFirst();
        bool blnOk = rs->Edit();
        for (const auto& [strField, varValue] : fields)
            blnOk = blnOk && rs->SetField(strField, varValue);
        if (!blnOk || !rs->Update())
            strErrorMessage = rs->LastError();
    }
    if (!strErrorMessage.isEmpty() || !rs) {
        QStringList names;
        for (const auto& field : fields)
            names << field.first;
        ReportStoreFailure(QStringLiteral("Option not saved"),
                           QStringLiteral("Corvantis could not store the option %1: %2")
                               .arg(names.join(QStringLiteral(", ")), strErrorMessage));
    }
}

QString ctlOptions::ReadSetting(const QString& strSection, const QString& strKey,
                                const QString& strDefault, qint32 lngBufferSize) {
    return Settings::GetPrivateProfileString(strSection, strKey, strDefault)
        .left(std::max(lngBufferSize - 1, 0));
}

bool ctlOptions::WriteSetting(const QString& strSection, const QString& strKey,
                              const QString& strValue) {
    if (Settings::WritePrivateProfileString(strSection, strKey, strValue))
        return true;
    ReportStoreFailure(QStringLiteral("Settings not saved"),
                       QStringLiteral("Corvantis could not write its settings file %1, so the "
                                      "change of %2 is not kept. Check that this folder can be "
                                      "written to.")
                           .arg(Settings::IniPath(), strKey));
    return false;
}

// Shown once per control: each keystroke in a box stores, and a box per
// keystroke would stop the user from working.
void ctlOptions::ReportStoreFailure(const QString& strTitle, const QString& strText) {
    TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTCONTROLS:ctlOptions: ") + strText);
    if (m_blnStoreFailureShown)
        return;
    m_blnStoreFailureShown = true;
    Platform::Current().MsgBox(strText, vbOKOnly, strTitle);
}
