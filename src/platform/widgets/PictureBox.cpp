#include "platform/widgets/PictureBox.h"

#include <QPainter>

namespace platform {

PictureBox::PictureBox(QWidget* parent) : QFrame(parent)
{
    setFrameShape(QFrame::Box);
    setFrameShadow(QFrame::Plain);
    setLineWidth(1);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void PictureBox::setPicture(const QImage& picture)
{
    picture_ = picture;
    message_.clear();
    update();
}

void PictureBox::setMessage(const QString& text)
{
    picture_ = QImage();
    message_ = text;
    update();
}

void PictureBox::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRect inside = contentsRect();
    painter.setClipRect(inside);
    if (!picture_.isNull()) {
        QImage natural = picture_;
        natural.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(inside.topLeft(), natural);
    } else if (!message_.isEmpty()) {
        painter.drawText(inside.adjusted(8, 8, -8, -8), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                         message_);
    }
}

} // namespace platform
