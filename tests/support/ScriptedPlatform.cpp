#include "ScriptedPlatform.h"

#include "foundations/VBError.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QTest>
#include <QtDebug>

ScriptedPlatform::ScriptedPlatform() : m_previous(Platform::Installed()) {
    Platform::Install(this);
}

ScriptedPlatform::~ScriptedPlatform() {
    const bool alreadyFailed = QTest::currentTestFunction() && QTest::currentTestFailed();
    if (!m_answers.isEmpty() && !alreadyFailed)
        fail(QStringLiteral("%1 queued message box answer(s) never used: the box that was "
                            "expected did not come")
                 .arg(m_answers.size()));
    if (!m_shortListChoices.isEmpty() && !alreadyFailed)
        fail(QStringLiteral("%1 queued short-list choice(s) never used")
                 .arg(m_shortListChoices.size()));
    if (!m_serviceItemChoices.isEmpty() && !alreadyFailed)
        fail(QStringLiteral("%1 queued service item choice(s) never used")
                 .arg(m_serviceItemChoices.size()));
    if (!m_songBreakdowns.isEmpty() && !alreadyFailed)
        fail(QStringLiteral("%1 queued song breakdown answer(s) never used")
                 .arg(m_songBreakdowns.size()));
    if (Platform::Installed() == this)
        Platform::Install(m_previous);
}

void ScriptedPlatform::fail(const QString& strWhy) {
    const QByteArray text = ("ScriptedPlatform: " + strWhy).toUtf8();
    if (QTest::currentTestFunction())
        QTest::qFail(text.constData(), __FILE__, __LINE__);
    else
        qCritical("%s", text.constData());
}

// ---- Message boxes ----------------------------------------------------------

void ScriptedPlatform::QueueAnswer(qint32 lngAnswer) {
    m_answers.append(lngAnswer);
}

void ScriptedPlatform::SetDefaultAnswer(qint32 lngAnswer) {
    m_defaultAnswer = lngAnswer;
}

ScriptedPlatform::Box ScriptedPlatform::LastBox() const {
    return m_boxes.isEmpty() ? Box() : m_boxes.last();
}

qint32 ScriptedPlatform::MsgBox(const QString& strPrompt, qint32 intButtons,
                                const QString& strTitle) {
    Box box{strPrompt, intButtons, strTitle, 0, DialogParent()};
    if (!m_answers.isEmpty()) {
        box.Answer = m_answers.takeFirst();
    } else if (m_defaultAnswer != 0) {
        box.Answer = m_defaultAnswer;
    } else {
        switch (intButtons & 0x7) {
        case vbOKOnly:
            box.Answer = vbOK;
            break;
        case vbYesNo:
            box.Answer = vbNo;
            break;
        case vbAbortRetryIgnore:
            box.Answer = vbAbort;
            break;
        default:
            box.Answer = vbCancel;
            break;
        }
        fail(QStringLiteral("unexpected message box (no answer queued): title \"%1\", "
                            "buttons %2, prompt \"%3\"")
                 .arg(strTitle)
                 .arg(intButtons)
                 .arg(strPrompt));
    }
    m_boxes.append(box);
    return box.Answer;
}

// ---- Dialogs ----------------------------------------------------------------

void ScriptedPlatform::QueueOpenFile(const QString& strFile) {
    m_openFiles.append(strFile.isEmpty() ? std::nullopt : std::optional<QString>(strFile));
}

void ScriptedPlatform::QueueSaveFile(const QString& strFile) {
    m_saveFiles.append(strFile.isEmpty() ? std::nullopt : std::optional<QString>(strFile));
}

void ScriptedPlatform::QueueFont(const std::optional<QFont>& font) {
    m_fonts.append(font);
}

void ScriptedPlatform::QueueColor(const std::optional<qint32>& lngBgrColor) {
    m_colors.append(lngBgrColor);
}

QString ScriptedPlatform::fileDialog(QList<std::optional<QString>>& queue, Dialog dialog) {
    m_dialogs.append(dialog);
    std::optional<QString> answer;
    if (queue.isEmpty())
        fail(QStringLiteral("unexpected %1 dialog (nothing queued): title \"%2\"")
                 .arg(dialog.Kind, dialog.Title));
    else
        answer = queue.takeFirst();
    if (answer)
        return *answer;
    if (dialog.CancelError)
        throw VBError(VBErr::CancelSelected);
    return QString();
}

QString ScriptedPlatform::ShowOpen(const QString& strFilter, const QString& strTitle,
                                   const QString& strInitDir, bool blnCancelError) {
    return fileDialog(
        m_openFiles, {QStringLiteral("Open"), strFilter, strTitle, strInitDir, {}, blnCancelError});
}

QString ScriptedPlatform::ShowSave(const QString& strFilter, const QString& strTitle,
                                   const QString& strInitDir, const QString& strFileName,
                                   bool blnCancelError) {
    return fileDialog(m_saveFiles, {QStringLiteral("Save"), strFilter, strTitle, strInitDir,
                                    strFileName, blnCancelError});
}

QFont ScriptedPlatform::ShowFont(const QFont& fntInitial, bool blnCancelError) {
    m_dialogs.append({QStringLiteral("Font"), {}, {}, {}, {}, blnCancelError});
    std::optional<QFont> answer;
    if (m_fonts.isEmpty())
        fail(QStringLiteral("unexpected font dialog (nothing queued)"));
    else
        answer = m_fonts.takeFirst();
    if (answer)
        return *answer;
    if (blnCancelError)
        throw VBError(VBErr::CancelSelected);
    return fntInitial;
}

qint32 ScriptedPlatform::ShowColor(qint32 lngInitial, bool blnCancelError) {
    m_dialogs.append({QStringLiteral("Color"), {}, {}, {}, {}, blnCancelError});
    std::optional<qint32> answer;
    if (m_colors.isEmpty())
        fail(QStringLiteral("unexpected colour dialog (nothing queued)"));
    else
        answer = m_colors.takeFirst();
    if (answer)
        return *answer;
    if (blnCancelError)
        throw VBError(VBErr::CancelSelected);
    return lngInitial;
}

// ---- Shell, keys, pumping, files ----------------------------------------------

void ScriptedPlatform::DoEvents() {
    ++m_doEvents;
    QCoreApplication::processEvents();
    if (m_doEventsHook)
        m_doEventsHook();
}

void ScriptedPlatform::SetFileExists(const QString& strPath, bool blnExists) {
    m_files.insert(strPath, blnExists);
}

bool ScriptedPlatform::FileExists(const QString& strPath) {
    const auto it = m_files.constFind(strPath);
    if (it != m_files.constEnd())
        return it.value();
    return Platform::FileExists(strPath);
}

qint32 ScriptedPlatform::ShellExecute(const QString& sVerb, const QString& sFile,
                                      const QString& sParams, const QString& sDirectory,
                                      qint32 nShowCmd) {
    m_shellCalls.append({sVerb, sFile, sParams, sDirectory, nShowCmd, m_shellResult});
    return m_shellResult;
}

void ScriptedPlatform::OpenWith(const QString& sFile) {
    m_openWith.append(sFile);
}

void ScriptedPlatform::SendKeys(const QString& strKeys) {
    m_sentKeys.append(strKeys);
}

// ---- Monitors, metrics, desktop -------------------------------------------------

void ScriptedPlatform::SetMonitors(const QList<QRect>& rects, const QList<QRect>& workRects) {
    m_monitors = rects;
    m_workRects = workRects.isEmpty() ? rects : workRects;
}

void ScriptedPlatform::SetMetric(qint32 nIndex, qint32 lngValue) {
    m_metrics.insert(nIndex, lngValue);
}

void ScriptedPlatform::SetDesktop(const QPixmap& pixDesktop) {
    m_desktop = pixDesktop;
}

QList<QRect> ScriptedPlatform::MonitorRects() {
    return m_monitors ? *m_monitors : Platform::MonitorRects();
}

QList<QRect> ScriptedPlatform::MonitorWorkRects() {
    return m_monitors ? m_workRects : Platform::MonitorWorkRects();
}

qint32 ScriptedPlatform::GetSystemMetrics(qint32 nIndex) {
    const auto it = m_metrics.constFind(nIndex);
    if (it != m_metrics.constEnd())
        return it.value();
    if (!m_monitors)
        return Platform::GetSystemMetrics(nIndex);
    const QRect primary = m_monitors->isEmpty() ? QRect() : m_monitors->first();
    QRect desktop;
    for (const QRect& r : *m_monitors)
        desktop = desktop.united(r);
    switch (nIndex) {
    case 0:
        return primary.width();
    case 1:
        return primary.height();
    case 16:
        return m_workRects.isEmpty() ? 0 : m_workRects.first().width();
    case 17:
        return m_workRects.isEmpty() ? 0 : m_workRects.first().height();
    case 76:
        return desktop.x();
    case 77:
        return desktop.y();
    case 78:
        return desktop.width();
    case 79:
        return desktop.height();
    case 80:
        return static_cast<qint32>(m_monitors->size());
    default:
        return Platform::GetSystemMetrics(nIndex);
    }
}

QPixmap ScriptedPlatform::GrabDesktop(const QRect& rcArea) {
    m_grabs.append(rcArea);
    if (m_desktop.isNull())
        return Platform::GrabDesktop(rcArea);
    QPoint origin;
    if (m_monitors && !m_monitors->isEmpty()) {
        QRect desktop;
        for (const QRect& r : *m_monitors)
            desktop = desktop.united(r);
        origin = desktop.topLeft();
    }
    QPixmap picture(rcArea.size());
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.drawPixmap(QPoint(0, 0), m_desktop, rcArea.translated(-origin));
    return picture;
}

// Monitor handles: the base numbers the monitors of MonitorRects() from 1; the
// scripted handles replace those numbers.
qint32 ScriptedPlatform::MonitorFromRect(const QRect& rcRect, qint32 dwFlags) {
    if (m_monitorLookupError != 0 && !m_inWindowLookup)
        throw VBError(m_monitorLookupError);
    const qint32 number = Platform::MonitorFromRect(rcRect, dwFlags);
    const qint32 handle = number == 0 ? 0 : m_monitorHandles.value(number - 1, number);
    if (!m_inWindowLookup)
        m_monitorLookups.append({rcRect, nullptr, dwFlags, handle});
    return handle;
}

qint32 ScriptedPlatform::MonitorFromWindow(const QWidget* hWnd, qint32 dwFlags) {
    if (m_monitorLookupError != 0)
        throw VBError(m_monitorLookupError);
    m_inWindowLookup = true;
    const qint32 handle = Platform::MonitorFromWindow(hWnd, dwFlags);
    m_inWindowLookup = false;
    m_monitorLookups.append({QRect(), hWnd, dwFlags, handle});
    return handle;
}

bool ScriptedPlatform::GetMonitorInfo(qint32 hMonitor, MonitorInfo& lpmi) {
    const qsizetype index =
        m_monitorHandles.isEmpty() ? hMonitor - 1 : m_monitorHandles.indexOf(hMonitor);
    bool ok = !m_monitorInfoFails && index >= 0 &&
              Platform::GetMonitorInfo(static_cast<qint32>(index + 1), lpmi);
    if (ok && m_monitors && lpmi.cbSize == MonitorInfo::SizeOfMonitorInfoEx)
        lpmi.szDevice = QStringLiteral("\\\\.\\DISPLAY%1").arg(index + 1);
    m_monitorInfoCalls.append({hMonitor, lpmi.cbSize, ok});
    return ok;
}

qint32 ScriptedPlatform::TwipsPerPixelX() {
    return m_twipsPerPixel ? m_twipsPerPixel->x() : Platform::TwipsPerPixelX();
}

qint32 ScriptedPlatform::TwipsPerPixelY() {
    return m_twipsPerPixel ? m_twipsPerPixel->y() : Platform::TwipsPerPixelY();
}

// ---- Sound of media players ------------------------------------------------------

namespace {

// A silent sound that writes down what its player asked of it.
class RecordedSound : public MediaSound {
public:
    explicit RecordedSound(std::shared_ptr<QStringList> calls) : m_calls(std::move(calls)) {}
    void Load(const QString& strFile) override {
        m_calls->append(QStringLiteral("Load ") + strFile);
    }
    void Play() override { m_calls->append(QStringLiteral("Play")); }
    void Stop() override { m_calls->append(QStringLiteral("Stop")); }

private:
    std::shared_ptr<QStringList> m_calls;
};

} // namespace

std::unique_ptr<MediaSound> ScriptedPlatform::CreateMediaSound() {
    auto sound = std::make_unique<RecordedSound>(m_soundCalls);
    m_lastSound = sound.get();
    return sound;
}

MediaSound* ScriptedPlatform::LastSound() const {
    return m_lastSound.data();
}

void ScriptedPlatform::ClearRecords() {
    m_boxes.clear();
    m_dialogs.clear();
    m_shellCalls.clear();
    m_openWith.clear();
    m_sentKeys.clear();
    m_doEvents = 0;
    m_grabs.clear();
    m_monitorLookups.clear();
    m_monitorInfoCalls.clear();
    m_soundCalls->clear();
    m_shortListOffers.clear();
    m_serviceItemOffers.clear();
    m_songBreakdownOffers.clear();
    m_sheets.clear();
}

// ---- Short-list picker --------------------------------------------------------

qint32 ScriptedPlatform::SelectShortList(const QList<ShortListChoice>& choices) {
    m_shortListOffers.append(choices);
    if (m_shortListChoices.isEmpty()) {
        fail(QStringLiteral("unexpected short-list picker (no choice queued)"));
        return 0;
    }
    return m_shortListChoices.takeFirst();
}

// ---- Service item picker -----------------------------------------------------------

qint32 ScriptedPlatform::PickServiceItem(const QString& strTypeName,
                                         const QList<ServiceItemPick::Choice>& choices) {
    m_serviceItemOffers.append({strTypeName, choices});
    if (m_serviceItemChoices.isEmpty()) {
        fail(QStringLiteral("unexpected service item picker (no choice queued)"));
        return 0;
    }
    return m_serviceItemChoices.takeFirst();
}

// ---- Song breakdown wizard ------------------------------------------------------

bool ScriptedPlatform::RunSongBreakdownWizard(const QString& strTitle,
                                              SongBreakdown::Breakdown& breakdown) {
    m_songBreakdownOffers.append({strTitle, breakdown});
    if (m_songBreakdowns.isEmpty()) {
        fail(QStringLiteral("unexpected song breakdown wizard (no answer queued)"));
        return false;
    }
    return m_songBreakdowns.takeFirst()(breakdown);
}

// ---- Printed sheets -------------------------------------------------------------

void ScriptedPlatform::ShowPrintPreview(const QString& strPdfFile, const QString& strTitle) {
    QFile file(strPdfFile);
    m_sheets.append({strTitle, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()});
}
