#include "Slide.h"

QString Slide::Words() const {
    if (kind == Kind::Points) {
        QStringList texts;
        for (const SlidePoint& point : points)
            texts << QString(point.depth * 2, QLatin1Char(' ')) + point.text;
        return texts.join(QLatin1Char('\n'));
    }
    return lines.join(QLatin1Char('\n'));
}
