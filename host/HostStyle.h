#pragma once

#include <QProxyStyle>

// The program's style: the desktop's own, except that the button a tool bar or menu bar shows
// for what it has no room for carries a drawn picture (galleries/ToolbarPictures) instead of
// the style's picture file. Every bar asks for that picture as it is made, and reading the
// file loaded the image-format plugins while the main window opened.
class HostStyle : public QProxyStyle {
    Q_OBJECT

public:
    HostStyle();

    QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};
