#include "presentation/TXTSEP.h"

#include <QPainter>

#include <algorithm>

namespace zuv {

namespace {

// Room between the caption and the rule behind it, in pixels.
constexpr int CaptionGap = 4;
// The rule's height: a shadow row and a light row.
constexpr int RuleRows = 2;

} // namespace

TXTSEP::TXTSEP(const QString& caption, QWidget* parent) : QWidget(parent), caption_(caption)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TXTSEP::setCaption(const QString& caption)
{
    caption_ = caption;
    updateGeometry();
    update();
}

int TXTSEP::ruleStart() const
{
    return caption_.isEmpty() ? 0 : fontMetrics().horizontalAdvance(caption_) + CaptionGap;
}

QSize TXTSEP::sizeHint() const
{
    return {ruleStart() + CaptionGap, caption_.isEmpty() ? RuleRows : fontMetrics().height()};
}

QSize TXTSEP::minimumSizeHint() const
{
    return sizeHint();
}

void TXTSEP::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!caption_.isEmpty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRect(0, 0, width(), height()),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption_);
    }
    // A sunken line: a shadow row with a light one under it, both inside the
    // control, so a rule at its least height of two rows shows whole.
    const int shadowRow = std::max(0, (height() - RuleRows) / 2);
    const int right = width() - 1;
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawLine(ruleStart(), shadowRow, right, shadowRow);
    painter.setPen(palette().color(QPalette::Light));
    painter.drawLine(ruleStart(), shadowRow + 1, right, shadowRow + 1);
}

} // namespace zuv
