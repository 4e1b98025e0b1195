#include "viewer/PictureLabel.h"

#include <QPainter>

void PictureLabel::setPart(const QPixmap& part, QPoint origin)
{
    origin_ = origin;
    setPixmap(part);
}

void PictureLabel::paintEvent(QPaintEvent*)
{
    const QPixmap part = pixmap();
    if (part.isNull())
        return;
    {
        QPainter painter(this);
        painter.drawPixmap(QPointF(origin_) / part.devicePixelRatio(), part);
    }
    emit painted();
}
