#pragma once

#include "foundations/ControlFrame.h"
#include "foundations/Unloadable.h"
#include "shortlists/ShortListCriterion.h"

#include <QList>
#include <QString>
#include <QWidget>
#include <memory>

class EditorCycle;
class MemberEntry;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QTextEdit;
class Recordset;
class VBImageList;
class VBTreeWidget;

// The short-list editor: a saved, named selection of service items. On the
// left the criteria rows of the query language narrow the tree tvwAvailable of
// service items; on the right tvwShortList holds the chosen ones. An item
// stands in exactly one of the two trees, and moving it keeps the type nodes
// of both right. The description, notes and selection are stored by
// cmdApplyChanges or by the save question when the user leaves.
//
// The criteria rows are control arrays: row i is cboFields(i), cboOperator(i),
// txtCriterion1(i), txtCriterion2(i), dtpCriterion1(i), dtpCriterion2(i),
// cboCriterion(i), lblAnd(i) and cmdAndOr(i); each widget's objectName is the
// array's name and its property "Index" the row. The tag of cboOperator(i)
// (its property "Tag") names the editor in use.
class ctlShortList : public QWidget, public Unloadable {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(QString Items READ Items WRITE setItems)
    Q_PROPERTY(::ViewMode ViewMode READ GetViewMode WRITE setViewMode)
    Q_PROPERTY(QString FilterInPlainEnglish READ FilterInPlainEnglish STORED false)
    Q_PROPERTY(QString WhereClauseInEffect READ WhereClauseInEffect STORED false)
public:
    explicit ctlShortList(QWidget* parent = nullptr);
    ~ctlShortList() override;

    // ---- The frame ----
    bool CanUnload() override;
    // "ShortListControl"; the let form stores a text that nothing reads.
    QString Description() const;
    void setDescription(const QString& strDescription) { m_strDescription = strDescription; }
    QString Items() const { return m_strItems; }
    void setItems(const QString& strItems) { m_strItems = strItems; }
    ::ViewMode GetViewMode() const { return m_viewMode; }
    void setViewMode(::ViewMode Mode) { m_viewMode = Mode; }
    void ShowProperties(::ViewMode Mode = vmEdit);
    // 1 passed, 3 refused with the message shown, 0 when the check failed.
    qint16 DoChecks(QString& strErrorMessage);

    // ---- The criteria ----
    void LoadFields(QComboBox* cboField);
    void LoadOperators(QComboBox* cboOp, qint16 intFieldType, QString& strErrorMessage);
    void AddNewCriteria();
    bool CriterionIsValid(qint16 Index);
    QString GetCriterionAsWhereClause(qint16 Index, QString& strErrorMessage);
    QString GetFieldName(const QString& strFieldNameInCombo);
    void RefreshSearchArea();
    // The row's sentence for people.
    QString GetCriterionInPlainEnglish(qint16 Index);
    qint16 CriteriaCount() const { return intCriteriaCount; }
    // The most rows a query may have.
    static constexpr qint16 MaxCriteria = 50;
    // The condition and its words of the criteria last applied to the tree
    // (empty before the first apply and after New Criteria).
    QString WhereClauseInEffect() const { return m_strWhereClauseInEffect; }
    QString FilterInPlainEnglish() const { return m_strFilterInPlainEnglish; }

    QComboBox* cboFields(qint16 Index) const { return row(Index).cboFields; }
    QComboBox* cboOperator(qint16 Index) const { return row(Index).cboOperator; }
    QLineEdit* txtCriterion1(qint16 Index) const { return row(Index).txtCriterion1; }
    QLineEdit* txtCriterion2(qint16 Index) const { return row(Index).txtCriterion2; }
    QDateEdit* dtpCriterion1(qint16 Index) const { return row(Index).dtpCriterion1; }
    QDateEdit* dtpCriterion2(qint16 Index) const { return row(Index).dtpCriterion2; }
    QComboBox* cboCriterion(qint16 Index) const { return row(Index).cboCriterion; }
    QLabel* lblAnd(qint16 Index) const { return row(Index).lblAnd; }
    QPushButton* cmdAndOr(qint16 Index) const { return row(Index).cmdAndOr; }

    // ---- The trees ----
    void FillAvailableTreeview(const QString& strWhereClause, QString& strErrorMessage);
    std::unique_ptr<Recordset> ApplyWhereClauseToAvailableTreeview(const QString& strWhereClause,
                                                                   QString& strErrorMessage);
    void MoveSIToShortList(const QString& strNodeKey);
    void MoveSIToAvailableTreeview(const QString& strNodeKey);
    void RemoveEmptyTypeAndRootNodes();
    void RemoveShortListNodesFromTree();
    void SetUpMoveSIButtons();
    void SetUpCountsOfSIs();
    QString GetSelectedSIs();

    // The picker of a saved short list is the gallery's; this editor asks none.

    // Children, by their documented names.
    QGroupBox* fraAvailable = nullptr;
    QGroupBox* fraShortList = nullptr;
    QGroupBox* fraGenProps = nullptr;
    QScrollArea* SSScrollCriteria = nullptr;
    QRadioButton* optAnd = nullptr;
    QRadioButton* optOr = nullptr;
    QPushButton* cmdApplyCriteria = nullptr;
    QPushButton* cmdNewCriteria = nullptr;
    VBTreeWidget* tvwAvailable = nullptr;
    VBTreeWidget* tvwShortList = nullptr;
    VBImageList* imlServiceItems = nullptr;
    QPushButton* cmdMoveOneRight = nullptr;
    QPushButton* cmdMoveAllRight = nullptr;
    QPushButton* cmdMoveOneLeft = nullptr;
    QPushButton* cmdMoveAllLeft = nullptr;
    QLabel* lblNumberAvailableSIs = nullptr;
    QLabel* lblSIsInShortList = nullptr;
    QLineEdit* txtDescription = nullptr;
    QTextEdit* txtNotes = nullptr;
    QLabel* lblCreatedBy = nullptr;
    QLabel* lblDateCreated = nullptr;
    QLabel* lblMainCaption = nullptr;
    QPushButton* cmdApplyChanges = nullptr;

signals:
    void ShortListUpdated(qint32 lngShortListID);

protected:
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void cboFields_Click(qint16 Index);
    void cboOperator_Click(qint16 Index);
    void optAnd_Click();
    void optOr_Click();
    void cmdAndOr_Click(qint16 Index);
    void cmdApplyCriteria_Click();
    void cmdNewCriteria_Click();
    void cmdMoveOneRight_Click();
    void cmdMoveAllRight_Click();
    void cmdMoveOneLeft_Click();
    void cmdMoveAllLeft_Click();
    void tvwAvailable_DblClick();
    void tvwShortList_DblClick();
    void tvwAvailable_NodeClick();
    void tvwShortList_NodeClick();
    void txtDescription_Change();
    void txtNotes_Change();
    void cmdApplyChanges_Click();
    void UserControl_LostFocus();

private:
    // One criteria row: a member of each control array.
    struct CriteriaRow {
        QComboBox* cboFields = nullptr;
        QComboBox* cboOperator = nullptr;
        QLineEdit* txtCriterion1 = nullptr;
        QLineEdit* txtCriterion2 = nullptr;
        QDateEdit* dtpCriterion1 = nullptr;
        QDateEdit* dtpCriterion2 = nullptr;
        QComboBox* cboCriterion = nullptr;
        QLabel* lblAnd = nullptr;
        QPushButton* cmdAndOr = nullptr;
    };
    const CriteriaRow& row(qint16 Index) const;
    void CreateWidgets();
    void CreateCriteriaRow(qint16 Index);
    void UnloadCriteriaRow(qint16 Index);
    void PlaceCriteriaRow(qint16 Index);
    void ShowEditors(qint16 Index, const QString& strTag);
    void SetJoinCaptions(const QString& strWord);
    void JoinClicked(QRadioButton* opt, const QString& strWord);
    ShortListCriterion Criterion(qint16 Index) const;
    bool TrueOrFalseIsChosen(const CriteriaRow& r);
    bool ApplyToTrees(const QString& strWhereClause, QString& strErrorMessage);
    void UserControl_Resize();

    // Moves
    void MoveNode(VBTreeWidget* from, VBTreeWidget* to, const QString& strNodeKey,
                  const QString& strTrace);
    void MoveSelected(VBTreeWidget* from, QPushButton* cmdMoveAll,
                      void (ctlShortList::*move)(const QString&));
    void MoveAll(VBTreeWidget* from, void (ctlShortList::*move)(const QString&));
    void AfterMove(VBTreeWidget* target);
    void SortTreeview(VBTreeWidget* tree);
    static bool IsGroup(const QVariant& varImage);
    static qint32 CountSIs(VBTreeWidget* tree);
    QString Decoded(const QString& strText) const;

    // Saving
    void LoadGeneralProperties();
    void FillGeneralProperties();
    void CleanControl(bool blnChangingToOtherControl);
    void SaveChanges(bool blnChangingToOtherControl);
    bool blnGeneralDirty() const;

    QList<CriteriaRow> m_rows;
    qint16 intCriteriaCount = 0;
    bool blnLoading = false;
    bool blnGeneralLoaded = false;
    qint32 lngShortListID = 0;
    EditorCycle* m_cycle = nullptr;
    QString m_strDescription;
    QString m_strItems;
    ::ViewMode m_viewMode = vmEdit;
    QString m_strWhereClauseInEffect;
    QString m_strFilterInPlainEnglish;
};
