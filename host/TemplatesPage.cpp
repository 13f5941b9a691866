#include "TemplatesPage.h"

#include "foundations/ErrorReport.h"
#include "templates/ctlTemplate.h"
#include "templates/ctlTemplateGallery.h"

TemplatesPage::TemplatesPage(QWidget* parent) : HostPage(QStringLiteral("Templates"), parent) {
    galTemplates = new ctlTemplateGallery;
    galTemplates->setObjectName(QStringLiteral("galTemplates"));
    SetGallery(galTemplates);
    connect(galTemplates, &ctlTemplateGallery::TemplateClicked, this,
            [this](const QString& strID, const QString& strDescription, const QString&,
                   const QString&, const QString& strType) {
                ErrorReport::Guard(
                    [&] { galTemplates_TemplateClicked(strID, strDescription, strType); });
            });
    connect(galTemplates, &ctlTemplateGallery::NewTemplateAdded, this, [this](qint32 lngID) {
        ErrorReport::Guard([&] { ShowTemplate(QString::number(lngID), QString()); });
    });
}

ctlTemplate* TemplatesPage::Template() const {
    return qobject_cast<ctlTemplate*>(Editor()->Current());
}

void TemplatesPage::Load() {
    galTemplates->ShowTemplates();
}

// Groups and the root show nothing beside the gallery; a template shows its
// properties.
void TemplatesPage::galTemplates_TemplateClicked(const QString& strID,
                                                 const QString& strDescription,
                                                 const QString& strType) {
    if (strType == QLatin1String("Template"))
        ShowTemplate(strID, strDescription);
}

void TemplatesPage::ShowTemplate(const QString& strID, const QString& strDescription) {
    auto* editor = Editor()->Ensure<ctlTemplate>(
        [] { return new ctlTemplate; }, [this] { return !Template() || Template()->CanUnload(); });
    if (!editor)
        return;
    // ShowProperties first offers to save the template shown before.
    editor->setDescription(strDescription);
    editor->setItems(strID);
    editor->ShowProperties();
}
