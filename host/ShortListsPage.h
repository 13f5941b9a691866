#pragma once

#include "HostPage.h"

class RecordList;

// The short-lists: a list of the saved selections on the left (until the
// short-list gallery takes its place) and what each holds.
class ShortListsPage : public HostPage {
    Q_OBJECT
public:
    explicit ShortListsPage(QWidget* parent = nullptr);

    RecordList* lvwShortLists;

protected:
    void Load() override;

private:
    void lvwShortLists_RowClicked(qint32 lngShortListID, const QString& strText);
};
