#pragma once

#include "HostPage.h"

class ctlTemplate;
class ctlTemplateGallery;

// The templates: the template gallery on the left and, for the template
// clicked, the template editor beside it.
class TemplatesPage : public HostPage {
    Q_OBJECT
public:
    explicit TemplatesPage(QWidget* parent = nullptr);

    ctlTemplateGallery* galTemplates;
    // The editor shown beside the gallery, or none.
    ctlTemplate* Template() const;

protected:
    void Load() override;

private:
    void galTemplates_TemplateClicked(const QString& strID, const QString& strDescription,
                                      const QString& strType);
    void ShowTemplate(const QString& strID, const QString& strDescription);
};
