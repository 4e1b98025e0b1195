#include "platform/print/PageFormatter.h"

#include "platform/print/Canvas.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace platform {

namespace {

constexpr double TwipsPerInch = 1440.0;

// Where the layout of one page ends: the first character of the next page, and
// how far down the layout the page's drawing reaches.
struct PageEnd {
    int32_t next;
    double bottom;
};

// Where a block's lines are measured from: its line positions count from the
// layout's origin, above any top margin, while its rectangle starts at its first
// line.
QPointF layoutOrigin(QAbstractTextDocumentLayout* documentLayout, const QTextBlock& block)
{
    const QRectF box = documentLayout->blockBoundingRect(block);
    return {box.left(), box.top() - block.layout()->boundingRect().top()};
}

} // namespace

PageFormatter::PageFormatter() : twipsDevice_(1, 1, QImage::Format_RGB32)
{
    const int dotsPerMeter = qRound(TwipsPerInch / 0.0254);
    twipsDevice_.setDotsPerMeterX(dotsPerMeter);
    twipsDevice_.setDotsPerMeterY(dotsPerMeter);
}

PageFormatter::~PageFormatter() = default;

void PageFormatter::release()
{
    layout_.reset();
    width_ = -1;
    spans_.clear();
    tallestSpan_ = 0;
}

void PageFormatter::layOut(const QTextDocument& source, double width)
{
    layout_.reset(source.clone());
    layout_->setDocumentMargin(0);
    layout_->documentLayout()->setPaintDevice(&twipsDevice_);
    layout_->setTextWidth(width);
    QAbstractTextDocumentLayout* documentLayout = layout_->documentLayout();
    documentLayout->documentSize();
    width_ = width;

    spans_.clear();
    tallestSpan_ = 0;
    for (QTextBlock block = layout_->begin(); block.isValid(); block = block.next()) {
        const QTextLayout* lines = block.layout();
        if (!lines || lines->lineCount() == 0 || !block.isVisible())
            continue;
        const double firstLineTop = layoutOrigin(documentLayout, block).y() + lines->lineAt(0).y();
        const double bottom = documentLayout->blockBoundingRect(block).bottom();
        spans_.push_back({firstLineTop, bottom, block});
        tallestSpan_ = std::max(tallestSpan_, bottom - firstLineTop);
    }
    std::stable_sort(spans_.begin(), spans_.end(),
                     [](const BlockSpan& a, const BlockSpan& b) { return a.firstLineTop < b.firstLineTop; });
}

// Draws the part of the layout between TOP and BOTTOM, in twips, and nothing else.
// The layout draws each block that touches its clip and, of such a block, also
// the one line just above the clip; the painter's clip hides that line, but a PDF
// keeps its text, where a search or a copy would find it twice. So the blocks
// begun above the top are hidden from the layout, and their lines from the top
// down are drawn one by one after it.
void PageFormatter::drawBetween(QPainter& painter, double top, double bottom, double width)
{
    QAbstractTextDocumentLayout* documentLayout = layout_->documentLayout();
    std::vector<BlockSpan> begun;
    auto span = std::lower_bound(spans_.begin(), spans_.end(), top,
                                 [](const BlockSpan& a, double y) { return a.firstLineTop < y; });
    while (span != spans_.begin()) {
        --span;
        if (span->firstLineTop < top - tallestSpan_)
            break;
        // A block that ends just at the top still gets its last line drawn.
        if (span->bottom >= top) {
            begun.push_back(*span);
            begun.back().block.setVisible(false);
        }
    }

    const QRectF area(0, top, width, bottom - top);
    painter.setClipRect(area, Qt::IntersectClip);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = area;
    context.palette.setColor(QPalette::Text, Qt::black);
    documentLayout->draw(&painter, context);

    painter.setPen(Qt::black);
    for (BlockSpan& part : begun) {
        part.block.setVisible(true);
        const QPointF origin = layoutOrigin(documentLayout, part.block);
        const QTextLayout* lines = part.block.layout();
        for (int index = 0; index < lines->lineCount(); ++index) {
            const QTextLine line = lines->lineAt(index);
            const double lineTop = origin.y() + line.y();
            if (lineTop >= top && lineTop < bottom)
                line.draw(&painter, origin);
        }
    }
}

int32_t PageFormatter::formatRange(const QTextDocument& source, const FORMATRANGE& range, bool render)
{
    // A rectangle without room still takes one line a page, so the walk ends.
    const double width = std::max(1, range.rc.right - range.rc.left);
    const double height = std::max(1, range.rc.bottom - range.rc.top);
    if (!layout_ || width != width_)
        layOut(source, width);

    const int32_t length = layout_->characterCount() - 1;
    const int32_t first = std::clamp(range.chrg.cpMin, 0, length);
    if (first >= length)
        return length;

    QAbstractTextDocumentLayout* documentLayout = layout_->documentLayout();
    const QTextBlock firstBlock = layout_->findBlock(first);
    double pageTop = 0;
    bool haveTop = false;
    PageEnd end{length, 0};
    bool ended = false;
    for (QTextBlock block = firstBlock; block.isValid() && !ended; block = block.next()) {
        const QTextLayout* lines = block.layout();
        if (!lines || lines->lineCount() == 0)
            continue;
        const double blockTop = layoutOrigin(documentLayout, block).y();
        int index = 0;
        if (block == firstBlock) {
            const QTextLine line = lines->lineForTextPosition(first - block.position());
            index = line.isValid() ? line.lineNumber() : 0;
        }
        for (; index < lines->lineCount(); ++index) {
            const QTextLine line = lines->lineAt(index);
            const double top = blockTop + line.y();
            const double bottom = top + line.height();
            if (!haveTop) {
                haveTop = true;
                pageTop = top;
                if (bottom - pageTop <= height)
                    continue;
                // Taller than the whole page: it stands alone, cut at the bottom.
                const bool lastLine = index + 1 >= lines->lineCount();
                const QTextBlock after = block.next();
                end.next = !lastLine         ? block.position() + lines->lineAt(index + 1).textStart()
                           : after.isValid() ? std::min(after.position(), length)
                                             : length;
                end.bottom = pageTop + height;
                ended = true;
                break;
            }
            if (bottom - pageTop > height) {
                end = {block.position() + line.textStart(), top};
                ended = true;
                break;
            }
        }
    }
    if (!ended)
        end.bottom = pageTop + height;

    if (render && range.hdc) {
        if (QPainter* painter = range.hdc->activePainter()) {
            painter->save();
            painter->scale(range.hdc->dpiX() / TwipsPerInch, range.hdc->dpiY() / TwipsPerInch);
            painter->translate(range.rc.left, range.rc.top - pageTop);
            // One device pixel short at the bottom, so the first line of the next
            // page doesn't show its top edge here when it is rounded upwards.
            const double pixel = TwipsPerInch / range.hdc->dpiY();
            if (end.bottom - pixel > pageTop)
                drawBetween(*painter, pageTop, end.bottom - pixel, width);
            painter->restore();
        }
    }
    return std::max(end.next, first + 1);
}

} // namespace platform
