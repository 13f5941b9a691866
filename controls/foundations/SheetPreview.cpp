#include "foundations/SheetPreview.h"

#include "DataAccess.h"
#include "foundations/Platform.h"
#include "foundations/VBConstants.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPdfDocument>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

// Width of a page in the preview, in pixels.
constexpr int kPreviewWidth = 760;

// The data library's questions go to the platform in force (installed when the controls
// library is part of the program: Platform's table of members names ShowPrintPreview, which
// brings this file along).
[[maybe_unused]] const bool g_blnDialogsInstalled = [] {
    DataAccess::ExchangeDialogs dialogs;
    dialogs.ChooseFileToOpen = [](const QString& strFilter, const QString& strTitle) {
        return Platform::Current().ShowOpen(strFilter, strTitle, QString(), false);
    };
    dialogs.ChooseFileToSave = [](const QString& strFilter, const QString& strTitle,
                                  const QString& strFileName) {
        return Platform::Current().ShowSave(strFilter, strTitle, QString(), strFileName, false);
    };
    dialogs.Tell = [](const QString& strText, const QString& strTitle) {
        Platform::Current().MsgBox(strText, vbInformation, strTitle);
    };
    dialogs.ShowSheet = [](const QString& strPdfFile, const QString& strTitle) {
        Platform::Current().ShowPrintPreview(strPdfFile, strTitle);
    };
    DataAccess::SetExchangeDialogs(std::move(dialogs));
    return true;
}();

QPushButton* MakeButton(const QString& strName, const QString& strText, QWidget* parent) {
    auto* button = new QPushButton(strText, parent);
    button->setObjectName(strName);
    return button;
}

} // namespace

void Platform::ShowPrintPreview(const QString& strPdfFile, const QString& strTitle) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    SheetPreviewDialog dialog(strPdfFile, strTitle, DialogParent());
    dialog.exec();
}

SheetPreviewDialog::SheetPreviewDialog(const QString& strPdfFile, const QString& strTitle,
                                       QWidget* parent)
    : QDialog(parent), m_file(strPdfFile), m_title(strTitle), m_document(new QPdfDocument(this)) {
    setObjectName(QStringLiteral("frmSheetPreview"));
    setWindowTitle(tr("Print Preview: %1").arg(strTitle));
    scrPages = new QScrollArea(this);
    scrPages->setObjectName(QStringLiteral("scrPages"));
    scrPages->setWidgetResizable(true);
    cmdPrint = MakeButton(QStringLiteral("cmdPrint"), tr("&Print..."), this);
    cmdSave = MakeButton(QStringLiteral("cmdSave"), tr("&Save as PDF..."), this);
    cmdClose = MakeButton(QStringLiteral("cmdClose"), tr("&Close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdPrint);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scrPages);
    layout->addLayout(buttons);
    connect(cmdPrint, &QPushButton::clicked, this, &SheetPreviewDialog::cmdPrint_Click);
    connect(cmdSave, &QPushButton::clicked, this, &SheetPreviewDialog::cmdSave_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    m_document->load(strPdfFile);
    ShowPages();
    resize(kPreviewWidth + 80, 900);
}

SheetPreviewDialog::~SheetPreviewDialog() = default;

qint32 SheetPreviewDialog::PageCount() const {
    return m_document->pageCount();
}

void SheetPreviewDialog::ShowPages() {
    auto* surface = new QWidget;
    m_pages = new QVBoxLayout(surface);
    for (int page = 0; page < m_document->pageCount(); ++page) {
        const QSizeF points = m_document->pagePointSize(page);
        const QSize size(kPreviewWidth,
                         int(kPreviewWidth * points.height() / qMax(1.0, points.width())));
        auto* label = new QLabel(surface);
        label->setObjectName(QStringLiteral("lblPage%1").arg(page + 1));
        label->setPixmap(QPixmap::fromImage(m_document->render(page, size)));
        label->setFrameShape(QFrame::Box);
        m_pages->addWidget(label, 0, Qt::AlignHCenter);
    }
    scrPages->setWidget(surface);
    cmdPrint->setEnabled(m_document->pageCount() > 0);
    cmdSave->setEnabled(m_document->pageCount() > 0);
}

void SheetPreviewDialog::cmdPrint_Click() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(m_title);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QPainter painter(&printer);
    const QRect area = painter.viewport();
    for (int page = 0; page < m_document->pageCount(); ++page) {
        if (page > 0)
            printer.newPage();
        const QSizeF points = m_document->pagePointSize(page);
        const qreal scale = qMin(area.width() / qMax(1.0, points.width()),
                                 area.height() / qMax(1.0, points.height()));
        const QSize size((points * scale).toSize());
        painter.drawImage(QPoint(0, 0), m_document->render(page, size));
    }
}

void SheetPreviewDialog::cmdSave_Click() {
    const QString strTarget =
        Platform::Current().ShowSave(QStringLiteral("PDF files (*.pdf)|*.pdf"),
                                     tr("Save the Sheet"), QString(), m_title + ".pdf", false);
    if (strTarget.isEmpty())
        return;
    QFile::remove(strTarget);
    if (!QFile::copy(m_file, strTarget))
        Platform::Current().MsgBox(tr("The sheet cannot be saved as %1. Choose a folder in "
                                      "which you may save files.")
                                       .arg(strTarget),
                                   vbExclamation, tr("Save the Sheet"));
}
