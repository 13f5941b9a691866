#pragma once

#include "SongBreakdown.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextEdit;
class QTreeWidget;

// The dialog of the song breakdown wizard. It shows the parts proposed for a
// song's words (lvwParts: name, kind, first line) and the order in which they
// are sung (lstOrder), and lets the user:
//  - rename the selected part (txtPartName) and make it a chorus or not
//    (chkIsChorus);
//  - merge it with the next part (cmdMerge) or split it before the line of the
//    cursor in txtPartWords (cmdSplit);
//  - add it to the sung order (cmdAddToOrder, Enter or Insert on lvwParts),
//    take an entry out of the order (cmdRemoveFromOrder, Delete on lstOrder),
//    move an entry (cmdOrderUp, cmdOrderDown, Ctrl+Up, Ctrl+Down on lstOrder),
//    or go back to verse, chorus, verse, chorus ... (cmdDefaultOrder).
// cmdFinish (enabled while there are parts and an order) accepts, cmdCancel
// or Escape rejects. The data library stores what Breakdown() holds after
// Finish; the Qt platform shows this dialog for it
// (Platform::RunSongBreakdownWizard).
class SongBreakdownWizard : public QDialog {
    Q_OBJECT
public:
    SongBreakdownWizard(const QString& strTitle, const SongBreakdown::Breakdown& proposal,
                        QWidget* parent = nullptr);

    const SongBreakdown::Breakdown& Breakdown() const { return m_breakdown; }
    // The selected part (0-based), -1 for none.
    int SelectedPart() const;
    void SelectPart(int intPart);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void lvwParts_SelectionChanged();
    void txtPartName_Change();
    void chkIsChorus_Click();
    void cmdMerge_Click();
    void cmdSplit_Click();
    void cmdAddToOrder_Click();
    void cmdRemoveFromOrder_Click();
    void cmdOrderUp_Click();
    void cmdOrderDown_Click();
    void cmdDefaultOrder_Click();
    void SetUpButtons();

private:
    void showParts(int intSelect);
    void showOrder(int intSelect);
    void moveOrderEntry(int intBy);

    QLabel* lblIntro = nullptr;
    QTreeWidget* lvwParts = nullptr;
    QLineEdit* txtPartName = nullptr;
    QCheckBox* chkIsChorus = nullptr;
    QTextEdit* txtPartWords = nullptr;
    QPushButton* cmdMerge = nullptr;
    QPushButton* cmdSplit = nullptr;
    QListWidget* lstOrder = nullptr;
    QPushButton* cmdAddToOrder = nullptr;
    QPushButton* cmdRemoveFromOrder = nullptr;
    QPushButton* cmdOrderUp = nullptr;
    QPushButton* cmdOrderDown = nullptr;
    QPushButton* cmdDefaultOrder = nullptr;
    QPushButton* cmdFinish = nullptr;
    QPushButton* cmdCancel = nullptr;

    SongBreakdown::Breakdown m_breakdown;
    bool m_blnShowing = false;
};
