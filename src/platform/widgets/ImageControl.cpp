#include "platform/widgets/ImageControl.h"

#include <QPaintEvent>
#include <QPainter>

namespace platform {

ImageControl::ImageControl(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::NoFocus);
    // The picture covers the whole control; nothing behind it needs painting.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ImageControl::setPicture(const QImage& picture)
{
    picture_ = picture;
    update();
}

// Only the part that is exposed is scaled, so a page stretched far beyond the
// window costs no more than the part the window shows.
void ImageControl::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (picture_.isNull()) {
        painter.fillRect(rect(), palette().window());
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(rect()), picture_, QRectF(picture_.rect()));
}

} // namespace platform
