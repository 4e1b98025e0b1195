#include "platform/print/PictureSurface.h"

#include "platform/core/Error.h"
#include "platform/widgets/Screen.h"

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
    resizeTo(std::max(0.0f, twips), height_);
}

void PictureSurface::setHeight(float twips)
{
    resizeTo(width_, std::max(0.0f, twips));
}

// A bitmap that finds no memory fails as out of memory and leaves the surface as
// it was, size and drawing, rather than a surface that draws nothing.
void PictureSurface::resizeTo(float width, float height)
{
    const float oldWidth = width_, oldHeight = height_;
    width_ = width;
    height_ = height;
    if (!resize()) {
        width_ = oldWidth;
        height_ = oldHeight;
        throw Error(err::OutOfMemory);
    }
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

bool PictureSurface::resize()
{
    Refresh();
    const QSize pixels(std::max(1, Screen::pixelsX(width_)), std::max(1, Screen::pixelsY(height_)));
    if (pixels == image_.size())
        return true;
    QImage resized(pixels, QImage::Format_RGB32);
    if (resized.isNull())
        return false;
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
    return true;
}

} // namespace platform
