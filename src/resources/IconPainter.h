#pragma once

#include <QPixmap>

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

// A transparent square pixmap of `size` pixels with the glyph drawn on it.
QPixmap paintGlyph(Glyph glyph, int size);

} // namespace resources
