#include "galleries/ToolbarPictures.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>

namespace {

constexpr int Size = 16;

const QColor Outline(70, 70, 80);
const QColor Paper(250, 250, 245);
const QColor Blue(40, 100, 200);
const QColor Green(40, 150, 60);

void Page(QPainter& p) {
    QPainterPath page;
    page.moveTo(3.5, 1.5);
    page.lineTo(9.5, 1.5);
    page.lineTo(12.5, 4.5);
    page.lineTo(12.5, 14.5);
    page.lineTo(3.5, 14.5);
    page.closeSubpath();
    p.setPen(QPen(Outline, 1));
    p.setBrush(Paper);
    p.drawPath(page);
    p.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
}

void Play(QPainter& p) {
    p.setPen(QPen(Green.darker(130), 1));
    p.setBrush(Green);
    p.drawPolygon(QPolygonF({{4.5, 2.5}, {13.5, 8}, {4.5, 13.5}}));
}

void Bin(QPainter& p) {
    p.setPen(QPen(Outline, 1));
    p.setBrush(QColor(190, 190, 195));
    p.drawPolygon(QPolygonF({{3.5, 4.5}, {12.5, 4.5}, {11.5, 14.5}, {4.5, 14.5}}));
    p.drawRect(QRectF(2.5, 2.5, 11, 2));
    p.drawLine(QPointF(6.5, 6.5), QPointF(6.5, 12.5));
    p.drawLine(QPointF(9.5, 6.5), QPointF(9.5, 12.5));
}

void Pencil(QPainter& p) {
    p.setPen(QPen(Outline, 1));
    p.setBrush(QColor(240, 190, 60));
    p.drawPolygon(QPolygonF({{11, 1.5}, {14.5, 5}, {5.5, 14}, {2, 14}, {2, 10.5}}));
    p.setBrush(Outline);
    p.drawPolygon(QPolygonF({{2, 12}, {2, 14}, {4, 14}}));
}

// A blue disc with a white mark drawn as lines, not as a letter: a picture needs no font, so
// the gallery's tool bar is made without loading one.
void Disc(QPainter& p) {
    p.setPen(QPen(Blue.darker(130), 1));
    p.setBrush(Blue);
    p.drawEllipse(QRectF(1.5, 1.5, 13, 13));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
}

// "i": a dot over a stem.
void Information(QPainter& p) {
    Disc(p);
    p.drawEllipse(QPointF(8, 4.8), 1.3, 1.3);
    p.drawRect(QRectF(7, 6.9, 2, 5.6));
}

// "?": a hook over a dot.
void Question(QPainter& p) {
    Disc(p);
    QPainterPath hook;
    hook.arcMoveTo(QRectF(5.4, 3.2, 5.2, 4.8), 160);
    hook.arcTo(QRectF(5.4, 3.2, 5.2, 4.8), 160, -250);
    hook.lineTo(8, 9.6);
    p.strokePath(hook, QPen(Qt::white, 1.8, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    p.drawEllipse(QPointF(8, 11.9), 1.2, 1.2);
}

void Printer(QPainter& p) {
    p.setPen(QPen(Outline, 1));
    p.setBrush(Paper);
    p.drawRect(QRectF(4.5, 1.5, 7, 5));
    p.setBrush(QColor(160, 160, 170));
    p.drawRect(QRectF(1.5, 6.5, 13, 6));
    p.setBrush(Paper);
    p.drawRect(QRectF(4.5, 10.5, 7, 4));
}

void List(QPainter& p) {
    p.setPen(QPen(Outline, 1));
    for (int row = 0; row < 4; ++row) {
        const qreal y = 3.5 + row * 3;
        p.fillRect(QRectF(2, y - 1, 2, 2), Blue);
        p.drawLine(QPointF(5.5, y), QPointF(14, y));
    }
}

void Reload(QPainter& p) {
    p.setPen(QPen(Green, 2));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(3, 3, 10, 10), 60 * 16, 280 * 16);
    p.setPen(Qt::NoPen);
    p.setBrush(Green);
    p.drawPolygon(QPolygonF({{8.5, 0.5}, {13, 3.5}, {8.5, 6.5}}));
}

void Arrow(QPainter& p, bool up) {
    QPolygonF arrow(
        {{8, 1.5}, {14, 7.5}, {10.5, 7.5}, {10.5, 14.5}, {5.5, 14.5}, {5.5, 7.5}, {2, 7.5}});
    if (!up)
        for (QPointF& point : arrow)
            point.setY(Size - point.y());
    p.setPen(QPen(Blue.darker(130), 1));
    p.setBrush(Blue);
    p.drawPolygon(arrow);
}

void Folder(QPainter& p) {
    p.setPen(QPen(QColor(150, 110, 30), 1));
    p.setBrush(QColor(240, 200, 90));
    p.drawPolygon(
        QPolygonF({{1.5, 3.5}, {6.5, 3.5}, {7.5, 5.5}, {14.5, 5.5}, {14.5, 13.5}, {1.5, 13.5}}));
}

// Two chevrons pointing on along the bar: the button that shows the buttons a bar had no room
// for. Pointing right for a horizontal bar, down for a vertical one.
void Chevrons(QPainter& p, bool across) {
    p.setPen(QPen(Outline, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    for (const qreal x : {4.0, 9.0}) {
        QPolygonF chevron({{x, 4}, {x + 3.5, 8}, {x, 12}});
        if (!across)
            for (QPointF& point : chevron)
                point = QPointF(point.y(), point.x());
        p.drawPolyline(chevron);
    }
}

// Draws the picture of that kind; false for a kind without a drawing.
bool Draw(QPainter& p, QStyle::StandardPixmap picture) {
    switch (picture) {
    case QStyle::SP_FileIcon:
        Page(p);
        return true;
    case QStyle::SP_MediaPlay:
        Play(p);
        return true;
    case QStyle::SP_TrashIcon:
        Bin(p);
        return true;
    case QStyle::SP_FileDialogDetailedView:
        Pencil(p);
        return true;
    case QStyle::SP_FileDialogInfoView:
        Information(p);
        return true;
    case QStyle::SP_DialogHelpButton:
        Question(p);
        return true;
    case QStyle::SP_DialogSaveButton:
        Printer(p);
        return true;
    case QStyle::SP_FileDialogListView:
        List(p);
        return true;
    case QStyle::SP_BrowserReload:
        Reload(p);
        return true;
    case QStyle::SP_ArrowUp:
        Arrow(p, true);
        return true;
    case QStyle::SP_ArrowDown:
        Arrow(p, false);
        return true;
    case QStyle::SP_DialogOpenButton:
        Folder(p);
        return true;
    case QStyle::SP_ToolBarHorizontalExtensionButton:
        Chevrons(p, true);
        return true;
    case QStyle::SP_ToolBarVerticalExtensionButton:
        Chevrons(p, false);
        return true;
    default:
        return false;
    }
}

QPixmap Made(QStyle* style, QStyle::StandardPixmap picture) {
    QPixmap pixmap(Size, Size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    if (Draw(painter, picture))
        return pixmap;
    painter.end();
    return style ? style->standardIcon(picture).pixmap(Size, Size) : QPixmap();
}

} // namespace

namespace ToolbarPictures {

QPixmap For(QStyle* style, QStyle::StandardPixmap picture) {
    // Kept per style, for the few kinds that come from it.
    static QPointer<QStyle> keptFor;
    static auto* const kept = new QHash<int, QPixmap>; // lives as long as the program
    if (keptFor != style) {
        kept->clear();
        keptFor = style;
    }
    auto it = kept->constFind(picture);
    if (it == kept->constEnd())
        it = kept->insert(picture, Made(style, picture));
    return it.value();
}

} // namespace ToolbarPictures
