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
};

// A transparent square pixmap of `size` pixels with the glyph drawn on it.
QPixmap paintGlyph(Glyph glyph, int size);

} // namespace resources
