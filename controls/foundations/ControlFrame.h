#pragma once

#include <QLatin1String>
#include <QtGlobal>

// What every control shares with its host: the view mode it is handed and the
// fixed word its Description property answers. Each control repeats the
// members of the frame itself (no base class); these are the shared values.

// Edit or read-only, handed in by the host.
enum ViewMode : qint32 { vmEdit = 0, vmRead = 1 };

// The Description word of each control. The host compares these words, so
// they stand letter for letter, the lower-case i of "ServiceitemsControl"
// included.
namespace ControlDescriptions {
inline constexpr QLatin1String ctlOptions("OptionsControl");
inline constexpr QLatin1String ctlRun("RunControl");
inline constexpr QLatin1String ctlService("ServiceControl");
inline constexpr QLatin1String ctlServiceGallery("ServiceGalleryControl");
inline constexpr QLatin1String ctlServiceItem("ServiceItemControl");
inline constexpr QLatin1String ctlServiceItemGallery("ServiceItemGalleryControl");
inline constexpr QLatin1String ctlServiceItems("ServiceitemsControl");
inline constexpr QLatin1String ctlServices("ServicesControl");
inline constexpr QLatin1String ctlShortList("ShortListControl");
inline constexpr QLatin1String ctlShortListGallery("ShortListGalleryControl");
inline constexpr QLatin1String ctlTemplate("TemplateControl");
inline constexpr QLatin1String ctlTemplateGallery("TemplateGalleryControl");
inline constexpr QLatin1String ctlTemplates("TemplatesControl");
} // namespace ControlDescriptions
