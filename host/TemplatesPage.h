#pragma once

#include "HostPage.h"

class RecordList;

// The templates: a list of the word-processor templates on the left (until the
// template gallery takes its place) and the details of the one clicked.
class TemplatesPage : public HostPage {
    Q_OBJECT
public:
    explicit TemplatesPage(QWidget* parent = nullptr);

    RecordList* lvwTemplates;

protected:
    void Load() override;

private:
    void lvwTemplates_RowClicked(qint32 lngTemplateID, const QString& strText);
};
