#include "resources/IconPainter.h"

#include <QPainter>
#include <QPainterPath>

namespace resources {

namespace {

// Every glyph is drawn on a 16 by 16 grid and scaled to the pixmap.
constexpr qreal Grid = 16.0;

const QColor Ink(0x20, 0x20, 0x28);
const QColor Rim(255, 255, 255, 150);
const QColor Green(0x3c, 0xb0, 0x43);
const QColor Red(0xd9, 0x3a, 0x32);
const QColor Blue(0x2f, 0x7d, 0xd6);
const QColor Sky(0x9c, 0xd3, 0xf5);
const QColor Grass(0x4c, 0xa6, 0x3a);
const QColor Sun(0xf7, 0xc8, 0x36);
const QColor Paper(0xfa, 0xfa, 0xf6);

// Fills a shape and outlines it, with a pale rim just outside the outline.
void outlined(QPainter& painter, const QPainterPath& path, const QColor& fill)
{
    painter.strokePath(path, QPen(Rim, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, fill);
    painter.strokePath(path, QPen(Ink, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

QPainterPath plus(QPointF centre, qreal arm, qreal half)
{
    const qreal x = centre.x();
    const qreal y = centre.y();
    QPainterPath path;
    path.moveTo(x - half, y - arm);
    path.lineTo(x + half, y - arm);
    path.lineTo(x + half, y - half);
    path.lineTo(x + arm, y - half);
    path.lineTo(x + arm, y + half);
    path.lineTo(x + half, y + half);
    path.lineTo(x + half, y + arm);
    path.lineTo(x - half, y + arm);
    path.lineTo(x - half, y + half);
    path.lineTo(x - arm, y + half);
    path.lineTo(x - arm, y - half);
    path.lineTo(x - half, y - half);
    path.closeSubpath();
    return path;
}

QPainterPath bar(QPointF centre, qreal arm, qreal half)
{
    QPainterPath path;
    path.addRect(QRectF(centre.x() - arm, centre.y() - half, 2 * arm, 2 * half));
    return path;
}

// A small landscape photograph: paper border, sky, sun and a green hill.
void photo(QPainter& painter, const QRectF& frame)
{
    QPainterPath border;
    border.addRect(frame);
    outlined(painter, border, Paper);

    const QRectF picture = frame.adjusted(1.5, 1.5, -1.5, -1.5);
    painter.fillRect(picture, Sky);
    painter.save();
    painter.setClipRect(picture);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Sun);
    const qreal sun = picture.height() * 0.22;
    painter.drawEllipse(QPointF(picture.right() - sun * 1.6, picture.top() + sun * 1.6), sun, sun);
    QPainterPath hill;
    hill.moveTo(picture.left(), picture.bottom());
    hill.lineTo(picture.left(), picture.bottom() - picture.height() * 0.35);
    hill.quadTo(picture.center().x() - picture.width() * 0.1, picture.top() + picture.height() * 0.2,
                picture.right(), picture.bottom() - picture.height() * 0.25);
    hill.lineTo(picture.right(), picture.bottom());
    hill.closeSubpath();
    painter.fillPath(hill, Grass);
    painter.restore();
    painter.setPen(QPen(Ink, 0.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(picture);
}

void drawRun(QPainter& painter)
{
    QPainterPath triangle;
    triangle.moveTo(4, 2.5);
    triangle.lineTo(13.5, 8);
    triangle.lineTo(4, 13.5);
    triangle.closeSubpath();
    outlined(painter, triangle, Green);
}

void drawAddAll(QPainter& painter)
{
    outlined(painter, plus(QPointF(5.5, 5.5), 4.0, 1.4), Green.lighter(125));
    outlined(painter, plus(QPointF(10.5, 10.5), 4.5, 1.6), Green);
}

void drawRemoveAll(QPainter& painter)
{
    outlined(painter, bar(QPointF(8, 5), 6, 1.5), Red.lighter(125));
    outlined(painter, bar(QPointF(8, 11), 6, 1.5), Red);
}

// A magnifying glass with its lens round CENTRE, the handle to the lower right.
void drawMagnifier(QPainter& painter, QPointF centre, qreal radius, const QColor& lens, qreal outlineWidth)
{
    QPainterPath handle;
    handle.moveTo(centre + QPointF(radius, radius) * 0.5);
    handle.lineTo(centre + QPointF(radius, radius) * 1.42);
    painter.strokePath(handle, QPen(Rim, 4.2, Qt::SolidLine, Qt::RoundCap));
    painter.strokePath(handle, QPen(Ink, 3.0, Qt::SolidLine, Qt::RoundCap));
    painter.strokePath(handle, QPen(QColor(0x9a, 0x6a, 0x3a), 1.4, Qt::SolidLine, Qt::RoundCap));
    QPainterPath glass;
    glass.addEllipse(centre, radius, radius);
    painter.strokePath(glass, QPen(Rim, 3.2));
    painter.fillPath(glass, lens);
    painter.strokePath(glass, QPen(Ink, outlineWidth));
}

void drawPreview(QPainter& painter)
{
    photo(painter, QRectF(0.5, 1.5, 11, 9));
    // The magnifier over the photograph's corner.
    QColor lens(Qt::white);
    lens.setAlpha(170);
    drawMagnifier(painter, QPointF(9.5, 9.5), 3.6, lens, 1.6);
}

void drawOnline(QPainter& painter)
{
    const QPointF centre(8, 8);
    QPainterPath globe;
    globe.addEllipse(centre, 6.5, 6.5);
    outlined(painter, globe, Blue);
    painter.save();
    painter.setClipPath(globe);
    const QPen line(QColor(0xe8, 0xf4, 0xff), 0.8);
    painter.setPen(line);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(centre, 2.8, 6.5);
    painter.drawLine(QPointF(8, 1), QPointF(8, 15));
    painter.drawLine(QPointF(1, 8), QPointF(15, 8));
    painter.drawLine(QPointF(1, 5), QPointF(15, 5));
    painter.drawLine(QPointF(1, 11), QPointF(15, 11));
    painter.restore();
    painter.strokePath(globe, QPen(Ink, 1.0));
}

void drawAbout(QPainter& painter)
{
    QPainterPath circle;
    circle.addEllipse(QPointF(8, 8), 6.5, 6.5);
    outlined(painter, circle, Blue);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(8, 4.8), 1.2, 1.2);
    painter.drawRect(QRectF(7, 6.8, 2, 5.5));
}

// The program: a stack of two photographs with a play sign on the front one.
void drawProgram(QPainter& painter)
{
    painter.save();
    painter.translate(8, 8);
    painter.rotate(-12);
    painter.translate(-8, -8);
    photo(painter, QRectF(1.5, 2, 12, 9.5));
    painter.restore();
    photo(painter, QRectF(2.5, 4.5, 12.5, 10));
    QPainterPath triangle;
    triangle.moveTo(7.2, 7.0);
    triangle.lineTo(11.6, 9.5);
    triangle.lineTo(7.2, 12.0);
    triangle.closeSubpath();
    painter.strokePath(triangle, QPen(Rim, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(triangle, Red);
    painter.strokePath(triangle, QPen(Ink, 0.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

// A printer with a sheet going in at the back and the printed sheet coming out.
void drawPrint(QPainter& painter)
{
    QPainterPath sheetIn;
    sheetIn.addRect(QRectF(4.5, 1.5, 7, 5));
    outlined(painter, sheetIn, Paper);
    QPainterPath body;
    body.addRoundedRect(QRectF(1.5, 6, 13, 6), 1.2, 1.2);
    outlined(painter, body, QColor(0xb8, 0xbc, 0xc4));
    QPainterPath sheetOut;
    sheetOut.addRect(QRectF(4.5, 10, 7, 4.5));
    outlined(painter, sheetOut, Paper);
    painter.setPen(QPen(Ink, 0.6));
    painter.drawLine(QPointF(6, 11.8), QPointF(10, 11.8));
    painter.drawLine(QPointF(6, 13.2), QPointF(10, 13.2));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Green);
    painter.drawEllipse(QPointF(12.3, 8), 0.8, 0.8);
}

// A page arrow: a triangle pointing left or right, with a bar at its tip for
// the first and the last page.
void drawPageArrow(QPainter& painter, bool forward, bool toEnd)
{
    painter.save();
    if (forward) {
        painter.translate(Grid, 0);
        painter.scale(-1, 1);
    }
    const qreal shift = toEnd ? 1.5 : 0;
    QPainterPath triangle;
    triangle.moveTo(11.5 + shift, 2.5);
    triangle.lineTo(4 + shift, 8);
    triangle.lineTo(11.5 + shift, 13.5);
    triangle.closeSubpath();
    outlined(painter, triangle, Blue);
    if (toEnd)
        outlined(painter, bar(QPointF(3.2, 8), 1.2, 5.5), Blue);
    painter.restore();
}

void drawZoom(QPainter& painter, bool in)
{
    const QPointF centre(6.5, 6.5);
    drawMagnifier(painter, centre, 5.0, QColor(0xe8, 0xf4, 0xff), 1.4);
    painter.fillPath(bar(centre, 2.8, 0.7), Ink);
    if (in)
        painter.fillPath(bar(centre, 0.7, 2.8), Ink);
}

} // namespace

void drawGlyph(QPainter& painter, Glyph glyph, qreal size)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / Grid, size / Grid);

    switch (glyph) {
    case Glyph::Run: drawRun(painter); break;
    case Glyph::Add: outlined(painter, plus(QPointF(8, 8), 6.0, 2.0), Green); break;
    case Glyph::AddAll: drawAddAll(painter); break;
    case Glyph::Remove: outlined(painter, bar(QPointF(8, 8), 6.0, 2.0), Red); break;
    case Glyph::RemoveAll: drawRemoveAll(painter); break;
    case Glyph::Preview: drawPreview(painter); break;
    case Glyph::File: photo(painter, QRectF(1.5, 2.5, 13, 11)); break;
    case Glyph::Online: drawOnline(painter); break;
    case Glyph::About: drawAbout(painter); break;
    case Glyph::Program: drawProgram(painter); break;
    case Glyph::Print: drawPrint(painter); break;
    case Glyph::FirstPage: drawPageArrow(painter, false, true); break;
    case Glyph::PreviousPage: drawPageArrow(painter, false, false); break;
    case Glyph::NextPage: drawPageArrow(painter, true, false); break;
    case Glyph::LastPage: drawPageArrow(painter, true, true); break;
    case Glyph::ZoomIn: drawZoom(painter, true); break;
    case Glyph::ZoomOut: drawZoom(painter, false); break;
    // The lens centre lands on the pointer's hot spot (9, 8) of 32 pixels.
    case Glyph::Magnifier: drawMagnifier(painter, QPointF(4.5, 4.0), 3.4, Qt::white, 1.2); break;
    }
    painter.restore();
}

QImage glyphImage(Glyph glyph, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawGlyph(painter, glyph, size);
    return image;
}

QPixmap paintGlyph(Glyph glyph, int size)
{
    return QPixmap::fromImage(glyphImage(glyph, size));
}

} // namespace resources
