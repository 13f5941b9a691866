#pragma once

#include "HostPage.h"

class ctlServiceGallery;
class QPushButton;

// The services of the church: the service gallery on the left with a button
// that runs the chosen service, and on the right the details of the service
// clicked last.
class ServicesPage : public HostPage {
    Q_OBJECT
public:
    explicit ServicesPage(QWidget* parent = nullptr);

    // The service clicked last; 0 after a click on a group or the root.
    qint32 SelectedServiceID() const { return m_selected; }
    void SelectService(qint32 lngServiceID);
    // Loads the gallery again, the service clicked last still selected.
    void Reload();

    ctlServiceGallery* ctlServiceGallery1;
    QPushButton* cmdRunService;

protected:
    void Load() override;

private:
    void ctlServiceGallery1_ServiceClicked(const QString& strID, const QString& strDescription,
                                           const QString& strType);
    void ShowService(qint32 lngServiceID, const QString& strDescription);
    void cmdRunService_Click();
    // The service the store lists first (the newest); 0 when there is none.
    static qint32 NewestServiceID();

    qint32 m_selected = 0;
};
