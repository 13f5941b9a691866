#pragma once

#include "foundations/ControlFrame.h"
#include "foundations/Unloadable.h"

#include <QString>
#include <QWidget>

class EditorCycle;
class MemberEntry;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QTabWidget;
class QTextEdit;

// The template editor: the properties of one document template (description,
// occasion, notes) on the single tab "General Details". The document itself is
// edited in the word processor, which cmdOpenTemplate starts once per display.
//
// Source and type are shown, not edited; the save reads their two labels back
// ("User Created", "Service Template") to form its two booleans, so an
// in-built template is saved like any other and stays in-built.
class ctlTemplate : public QWidget, public Unloadable {
    Q_OBJECT
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(QString Items READ Items WRITE setItems)
    Q_PROPERTY(QString FilterInPlainEnglish READ FilterInPlainEnglish WRITE setFilterInPlainEnglish)
    Q_PROPERTY(QString WhereClauseInEffect READ WhereClauseInEffect WRITE setWhereClauseInEffect)
public:
    explicit ctlTemplate(QWidget* parent = nullptr);
    ~ctlTemplate() override;

    // ---- The frame ----
    // Stored only: nothing in the editor reads them.
    QString FilterInPlainEnglish() const { return m_strFilterInPlainEnglish; }
    void setFilterInPlainEnglish(const QString& str) { m_strFilterInPlainEnglish = str; }
    QString WhereClauseInEffect() const { return m_strWhereClauseInEffect; }
    void setWhereClauseInEffect(const QString& str) { m_strWhereClauseInEffect = str; }
    bool CanUnload() override;
    // "TemplateControl". The let form sets the caption of the next display; an
    // empty one makes ShowProperties take the template's own description.
    QString Description() const;
    void setDescription(const QString& strDescription) { m_strDescription = strDescription; }
    QString Items() const { return m_strItems; }
    void setItems(const QString& strItems) { m_strItems = strItems; }
    void setViewMode(::ViewMode Mode) { m_viewMode = Mode; }
    void ShowProperties(::ViewMode Mode = vmEdit);
    // Sets the tab's flag and enables cmdApplyChanges.
    void MakeControlDirty();
    qint32 TemplateID() const { return lngTemplateID; }
    bool IsGeneralDirty() const;

    // Children, by their documented names.
    QScrollArea* SSScroll1 = nullptr;
    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtTemplateDescription = nullptr;
    QComboBox* cboOccasion = nullptr;
    QGroupBox* fraNotes = nullptr;
    QTextEdit* txtNotes = nullptr;
    QLabel* lblSource = nullptr;
    QLabel* lblType = nullptr;
    QLabel* lblAuthor = nullptr;
    QLabel* lblTemplateDateCreated = nullptr;
    QPushButton* cmdOpenTemplate = nullptr;
    QPushButton* cmdApplyChanges = nullptr;
    QLabel* lblMainCaption = nullptr;

signals:
    // Raised only behind blnTemplateChangedNotify, which nothing sets: no event
    // follows a save.
    void TemplateUpdated(qint32 lngTemplateID);

protected:
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void cmdOpenTemplate_Click();
    void cmdApplyChanges_Click();
    void SSTab1_Click();
    void txtTemplateDescription_Change();
    void txtNotes_Change();
    void cboOccasion_Change();
    void cboOccasion_Click();
    void UserControl_LostFocus();

private:
    void CreateWidgets();
    void UserControl_Resize();
    void LoadGeneralTab();
    bool LoadOccasions();
    void FillGeneralTab(qint32 lngID);
    void CleanControl(bool blnChangingToOtherControl);
    void SaveChanges(bool blnChangingToOtherControl);
    void SaveGeneralTab();
    QString CaptionOfRecord(const QVariant& varDescription, const QVariant& varAuthor,
                            const QVariant& varDate) const;
    static QString Decoded(const QString& strText);

    EditorCycle* m_cycle = nullptr;
    qint32 lngTemplateID = 0;
    bool blnGeneralLoaded = false;
    bool blnShowingProperties = false;
    bool blnOccasionsLoaded = false;
    QString m_strDescription;
    QString m_strItems;
    QString m_strFilterInPlainEnglish;
    QString m_strWhereClauseInEffect;
    ::ViewMode m_viewMode = vmEdit;
};
