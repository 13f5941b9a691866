// ctlServiceItemGallery: what sets this gallery apart from the others, as the
// table its GalleryCore works from.

#include "galleries/ctlServiceItemGallery.h"

#include "galleries/GalleryCore.h"

const GalleryTable& ctlServiceItemGallery::Table() {
    static const GalleryTable table{
        QStringLiteral("ctlServiceItemGallery"),
        QStringLiteral(";;SI;"),
        QStringLiteral("SI;"),
        QStringLiteral("Service Items"),
        QStringLiteral("All Service Items"),
        QStringLiteral("Service Items for "),
        QStringLiteral("All Service Items at "),
        QStringLiteral("Selection of Service Items"),
        QStringLiteral("SI"),
        QStringLiteral("SIGroup"),
        QStringLiteral("Filter Service Items Where:"),
        {{QStringLiteral("Type"), QStringLiteral("ServiceItems.ServiceItemTypeID"),
          QStringLiteral("ServiceItemTypeName")},
         {QStringLiteral("Keyword"), QStringLiteral("Keywords.KeywordID"),
          QStringLiteral("KeywordText")},
         {QStringLiteral("Source"), QStringLiteral("ServiceItemSource"),
          QStringLiteral("ServiceItemSource")},
         {QStringLiteral("Provider"), QStringLiteral("ServiceItemProvider"),
          QStringLiteral("ServiceItemProvider")}},
        {QStringLiteral("Content"), QStringLiteral("Description"), QStringLiteral("Type"),
         QStringLiteral("Source"), QStringLiteral("Provider"), QStringLiteral("Keywords")},
        {{QStringLiteral("Description"), QStringLiteral("ServiceItemDescription")},
         {QStringLiteral("Keywords"), QStringLiteral("KeyWordText")},
         {QStringLiteral("Type"), QStringLiteral("ServiceItemTypeName")},
         {QStringLiteral("Source"), QStringLiteral("ServiceItemSource")},
         {QStringLiteral("Provider"), QStringLiteral("ServiceItemProvider")},
         {QStringLiteral("Content"), QStringLiteral("ServiceItemContent")}}};
    return table;
}
