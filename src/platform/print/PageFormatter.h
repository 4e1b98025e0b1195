#pragma once

#include <QImage>
#include <QTextBlock>

#include <cstdint>
#include <memory>
#include <vector>

class QPainter;
class QTextDocument;

namespace platform {

class Canvas;

struct RECT {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
};

struct CHARRANGE {
    int32_t cpMin = 0;
    int32_t cpMax = -1;
};

// What one page of layout asks for: the device to draw on and the one to format
// for, the rectangle that takes the text and the page's rectangle (both in twips
// from the device's origin), and the first character.
struct FORMATRANGE {
    Canvas* hdc = nullptr;
    Canvas* hdcTarget = nullptr;
    RECT rc;
    RECT rcPage;
    CHARRANGE chrg;

    // The next page of a walk starts at POSITION, on DEVICE (read anew for each page).
    void continueAt(int32_t position, Canvas* device)
    {
        chrg.cpMin = position;
        hdc = device;
        hdcTarget = device;
    }
};

// Lays a rich text document out one page at a time. The layout is made once in
// twips for the width of the rectangle and kept until release(), so walking a
// document page by page costs one layout. A page takes whole lines from the
// first character on as long as they fit the rectangle's height; a line that is
// taller than the whole rectangle (a large picture) gets a page of its own, cut
// off at the bottom, so every page moves on by at least one line.
class PageFormatter {
public:
    PageFormatter();
    ~PageFormatter();
    PageFormatter(const PageFormatter&) = delete;
    PageFormatter& operator=(const PageFormatter&) = delete;

    // Lays out the page that starts at range.chrg.cpMin and, with RENDER, draws
    // it on range.hdc if that device is open for drawing. Returns the position of
    // the first character of the next page, or the length of the text when the
    // rest fits on this page.
    int32_t formatRange(const QTextDocument& source, const FORMATRANGE& range, bool render);
    // Forgets the layout, so the next page is laid out from the document afresh.
    void release();

private:
    // Where a block of the layout stands, in twips: the top of its first line and
    // the bottom of its rectangle.
    struct BlockSpan {
        double firstLineTop;
        double bottom;
        QTextBlock block;
    };

    void layOut(const QTextDocument& source, double width);
    void drawBetween(QPainter& painter, double top, double bottom, double width);

    std::unique_ptr<QTextDocument> layout_;
    double width_ = -1;
    // The layout's blocks by the top of their first line, and the most that a
    // block reaches below it, so that the blocks begun above a page's top are
    // found among the few just above it.
    std::vector<BlockSpan> spans_;
    double tallestSpan_ = 0;
    // A paint device of 1440 dots per inch, so the layout measures in twips.
    QImage twipsDevice_;
};

} // namespace platform
