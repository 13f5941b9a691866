#include "HostStyle.h"

#include "galleries/ToolbarPictures.h"

HostStyle::HostStyle() = default;

QIcon HostStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption* option,
                              const QWidget* widget) const {
    if (standardIcon == SP_ToolBarHorizontalExtensionButton ||
        standardIcon == SP_ToolBarVerticalExtensionButton)
        return QIcon(ToolbarPictures::For(const_cast<HostStyle*>(this), standardIcon));
    return QProxyStyle::standardIcon(standardIcon, option, widget);
}
