#pragma once

#include "HostPage.h"

class ctlService;
class ctlServiceGallery;
class QPushButton;

// The services of the church: the service gallery on the left with the buttons
// New Service and Run this Service, and on the right the service editor on the
// service chosen last.
//
// Each service chosen gets an editor of its own, put in place through the
// page's editor slot: the editor in place is asked first (its CanUnload, where
// it offers to save), and a save that failed keeps it, and its unsaved
// planning, on the screen. The same question comes before a run, before
// another page is shown and before the window closes. A save shows at once in
// the gallery: its rows are loaded again, the service still selected.
class ServicesPage : public HostPage {
    Q_OBJECT
public:
    explicit ServicesPage(QWidget* parent = nullptr);

    // The service in the editor, else the one clicked last in the gallery; 0
    // after a click on a group or the root with no editor open.
    qint32 SelectedServiceID() const;
    void SelectService(qint32 lngServiceID);
    // Loads the gallery again, the service shown still selected.
    void Reload();
    // The editor beside the gallery, or none.
    ctlService* ServiceEditor() const;

    ctlServiceGallery* ctlServiceGallery1;
    QPushButton* cmdNewService;
    QPushButton* cmdRunService;

protected:
    void Load() override;

private:
    void ctlServiceGallery1_ServiceClicked(const QString& strID, const QString& strType);
    void ctlServiceGallery1_NewServiceAdded(qint32 ServiceID);
    void cmdNewService_Click();
    void cmdRunService_Click();
    // Opens a new editor on the service once the one in place agreed to go;
    // false when it kept its place.
    bool ShowService(qint32 lngServiceID);
    ctlService* MakeEditor();
    // The editor in place offers to save; true unless a save was wanted and
    // failed, which keeps the editor and what it holds.
    bool EditorMayGo(ctlService* editor);
    // After a save: the gallery shows the stored rows, once the event that led
    // to the save (a click on the gallery itself, say) has been handled.
    void ServiceStored();
    // The service the store lists first (the newest); 0 when there is none.
    static qint32 NewestServiceID();

    qint32 m_selected = 0;
    bool m_refreshPending = false;
};
