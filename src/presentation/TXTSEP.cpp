#include "presentation/TXTSEP.h"

#include <QPainter>
#include <qdrawutil.h>

namespace zuv {

namespace {

// Room between the caption and the rule behind it, in pixels.
constexpr int CaptionGap = 4;

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
    return {ruleStart() + CaptionGap, caption_.isEmpty() ? 2 : fontMetrics().height()};
}

QSize TXTSEP::minimumSizeHint() const
{
    return sizeHint();
}

void TXTSEP::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int middle = height() / 2 - 1;
    if (!caption_.isEmpty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRect(0, 0, width(), height()),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption_);
    }
    // A sunken line: a shadow line with a light one under it.
    qDrawShadeLine(&painter, ruleStart(), middle, width() - 1, middle, palette(), true, 1, 0);
}

} // namespace zuv
