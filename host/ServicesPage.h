#pragma once

#include "HostPage.h"

class EventPanel;
class QPushButton;
class RecordList;

// The services of the church: a list of the services on the left (until the
// service gallery takes its place), the details of the one clicked on the
// right, and a button that runs it.
class ServicesPage : public HostPage {
    Q_OBJECT
public:
    explicit ServicesPage(QWidget* parent = nullptr);

    qint32 SelectedServiceID() const;
    void SelectService(qint32 lngServiceID);
    void Reload();

    RecordList* lvwServices;
    QPushButton* cmdRunService;

protected:
    void Load() override;

private:
    void lvwServices_RowClicked(qint32 lngServiceID);
    void cmdRunService_Click();
};
