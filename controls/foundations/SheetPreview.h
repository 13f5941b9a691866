#pragma once

#include <QDialog>

class QLabel;
class QPdfDocument;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

// The preview of a printed sheet (a service sheet, an item's sheet, the short-cut sheet): its
// pages one below the other (scrPages, one label per page), and
//  - cmdPrint: the printer dialog, then every page to the chosen printer;
//  - cmdSave: a copy of the PDF file where the user chooses (Platform's save dialog);
//  - cmdClose or Escape: closes.
// The Qt platform shows it for Platform::ShowPrintPreview. The same file also routes the data
// library's questions of import, export and printing (DataAccess::SetExchangeDialogs) through
// Platform::Current(), so that a test's platform answers them.
class SheetPreviewDialog : public QDialog {
    Q_OBJECT
public:
    SheetPreviewDialog(const QString& strPdfFile, const QString& strTitle,
                       QWidget* parent = nullptr);
    ~SheetPreviewDialog() override;

    qint32 PageCount() const;

    QScrollArea* scrPages;
    QPushButton* cmdPrint;
    QPushButton* cmdSave;
    QPushButton* cmdClose;

private slots:
    void cmdPrint_Click();
    void cmdSave_Click();

private:
    void ShowPages();

    QString m_file;
    QString m_title;
    QPdfDocument* m_document;
    QVBoxLayout* m_pages = nullptr;
};
