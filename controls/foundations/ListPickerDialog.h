#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidgetItem;
class RKLvwBannerFilter;
class VBTreeWidget;

// A dialog that asks for one entry of a list: a prompt, a banner filter that
// narrows the list as the user types, the list, OK and Cancel. A double click
// or Enter chooses the selected entry; while the filter hides the selected one,
// the first shown is selected, so that typing part of a name and pressing
// Enter chooses it. Escape cancels. OK is enabled only while a shown entry is
// selected. Each entry carries its id in its Tag.
//
// A picker names its filter and list, adds its columns and entries to List(),
// then calls Finish.
class ListPickerDialog : public QDialog {
    Q_OBJECT
public:
    // The entry selected (and shown): its Tag, 0 for none.
    qint32 ChosenID() const;

protected:
    ListPickerDialog(const QString& strFilterName, const QString& strListName,
                     const QString& strItemDescription, QWidget* parent);

    VBTreeWidget* List() const { return m_list; }
    QLabel* Prompt() const { return lblPrompt; }
    // Lays the dialog out at its first size, selects the first entry and puts
    // the focus in the filter.
    void Finish(int intWidth, int intHeight);

private slots:
    void List_DblClick(QTreeWidgetItem* item);
    void Filter_FilterApplied();
    void SetUpButtons();

private:
    QLabel* lblPrompt = nullptr;
    RKLvwBannerFilter* m_filter = nullptr;
    VBTreeWidget* m_list = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
