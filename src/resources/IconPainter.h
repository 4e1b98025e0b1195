#pragma once

#include <QImage>
#include <QPixmap>

class QPainter;

namespace resources {

// Our own toolbar and program images, drawn with QPainter at any pixel size.
// Every shape is filled in colour and outlined in a dark line, with a pale rim
// outside that line, so it reads on light and dark panels alike.
enum class Glyph {
    Run,
    Add,
    AddAll,
    Remove,
    RemoveAll,
    Preview,
    File,
    Online,
    About,
    Program,
    Print,
    FirstPage,
    PreviousPage,
    NextPage,
    LastPage,
    ZoomIn,
    ZoomOut,
    // The print preview's pointer over the page: a magnifying glass whose lens
    // centre is at a quarter of the width, for a pixmap of 32 pixels.
    Magnifier,
};

// Draws the glyph into the square of `size` units at the painter's origin. Any
// paint device will do: the program's icon files are drawn by this same code
// (tools/vistarro-icons), so the desktop shows the picture that the windows carry.
void drawGlyph(QPainter& painter, Glyph glyph, qreal size);

// A transparent square image of `size` pixels with the glyph drawn on it.
QImage glyphImage(Glyph glyph, int size);

// The same as a pixmap, for icons and cursors.
QPixmap paintGlyph(Glyph glyph, int size);

} // namespace resources
