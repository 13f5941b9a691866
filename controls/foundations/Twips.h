#pragma once

#include <QRect>
#include <QtGlobal>

// Layout numbers of the controls are twips: 1440 to the inch, 15 to a pixel at
// 96 dpi. Every documented layout number goes through these two conversions.
namespace Twips {
constexpr qint32 PerPixel = 15;

constexpr int ToPixels(qint32 lngTwips) {
    return lngTwips >= 0 ? (lngTwips + PerPixel / 2) / PerPixel
                         : -((-lngTwips + PerPixel / 2) / PerPixel);
}
constexpr qint32 FromPixels(int intPixels) {
    return intPixels * PerPixel;
}

inline QRect ToPixels(qint32 lngLeft, qint32 lngTop, qint32 lngWidth, qint32 lngHeight) {
    return QRect(ToPixels(lngLeft), ToPixels(lngTop), ToPixels(lngWidth), ToPixels(lngHeight));
}
} // namespace Twips
