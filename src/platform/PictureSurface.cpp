#include "platform/PictureSurface.h"

#include "platform/Screen.h"

#include <QPainter>

#include <algorithm>

namespace platform {

PictureSurface::PictureSurface()
{
    resize();
}

PictureSurface::~PictureSurface()
{
    Refresh();
}

void PictureSurface::setWidth(float twips)
{
    width_ = std::max(0.0f, twips);
    resize();
}

void PictureSurface::setHeight(float twips)
{
    height_ = std::max(0.0f, twips);
    resize();
}

void PictureSurface::setBackColor(const QColor& colour)
{
    background_ = colour;
    Cls();
}

double PictureSurface::dpiX() const
{
    return 1440.0 / Screen::TwipsPerPixelX();
}

double PictureSurface::dpiY() const
{
    return 1440.0 / Screen::TwipsPerPixelY();
}

void PictureSurface::Cls()
{
    Refresh();
    image_.fill(background_);
    setCurrentX(0);
    setCurrentY(0);
}

void PictureSurface::Refresh()
{
    painter_.reset();
}

QImage PictureSurface::Image()
{
    Refresh();
    return image_;
}

QPainter* PictureSurface::outputPainter()
{
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing);
        painter_->setRenderHint(QPainter::TextAntialiasing);
    }
    return painter_.get();
}

void PictureSurface::resize()
{
    Refresh();
    const QSize pixels(std::max(1, qRound(width_ / Screen::TwipsPerPixelX())),
                       std::max(1, qRound(height_ / Screen::TwipsPerPixelY())));
    if (pixels == image_.size())
        return;
    QImage resized(pixels, QImage::Format_RGB32);
    resized.fill(background_);
    if (!image_.isNull()) {
        QPainter copy(&resized);
        copy.drawImage(0, 0, image_);
    }
    const int dotsPerMeterX = qRound(dpiX() / 0.0254);
    const int dotsPerMeterY = qRound(dpiY() / 0.0254);
    resized.setDotsPerMeterX(dotsPerMeterX);
    resized.setDotsPerMeterY(dotsPerMeterY);
    image_ = resized;
}

} // namespace platform
