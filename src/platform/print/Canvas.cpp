#include "platform/print/Canvas.h"

#include "platform/core/Error.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

namespace platform {

namespace {

constexpr double TwipsPerInch = 1440.0;

// How many units of a scale mode make one twip on a device of DPI dots per inch.
double unitsPerTwip(int scale, double dpi)
{
    if (scale == ScaleTwips)
        return 1.0;
    if (scale == ScalePixels)
        return dpi / TwipsPerInch;
    throw Error(err::InvalidPropertyValue);
}

} // namespace

float Canvas::ScaleWidth() const
{
    return scaleMode_ == ScaleUser ? userWidth_ : ScaleX(drawableWidth(), ScaleTwips, scaleMode_);
}

float Canvas::ScaleHeight() const
{
    return scaleMode_ == ScaleUser ? userHeight_ : ScaleY(drawableHeight(), ScaleTwips, scaleMode_);
}

void Canvas::setScaleWidth(float units)
{
    if (units == 0)
        throw Error(err::InvalidPropertyValue);
    if (scaleMode_ != ScaleUser)
        userHeight_ = drawableHeight();
    userWidth_ = units;
    scaleMode_ = ScaleUser;
}

void Canvas::setScaleHeight(float units)
{
    if (units == 0)
        throw Error(err::InvalidPropertyValue);
    if (scaleMode_ != ScaleUser)
        userWidth_ = drawableWidth();
    userHeight_ = units;
    scaleMode_ = ScaleUser;
}

void Canvas::setScaleMode(int mode)
{
    if (mode != ScaleTwips && mode != ScalePixels)
        throw Error(err::InvalidPropertyValue);
    scaleMode_ = mode;
}

float Canvas::ScaleX(float value, int fromScale, int toScale) const
{
    return float(value / unitsPerTwip(fromScale, dpiX()) * unitsPerTwip(toScale, dpiX()));
}

float Canvas::ScaleY(float value, int fromScale, int toScale) const
{
    return float(value / unitsPerTwip(fromScale, dpiY()) * unitsPerTwip(toScale, dpiY()));
}

int Canvas::GetDeviceCaps(int index) const
{
    switch (index) {
    case PHYSICALWIDTH: return qRound(Width() * dpiX() / TwipsPerInch);
    case PHYSICALHEIGHT: return qRound(Height() * dpiY() / TwipsPerInch);
    case PHYSICALOFFSETX:
    case PHYSICALOFFSETY: return 0;
    default: throw Error(err::InvalidCall);
    }
}

double Canvas::toPixelsX(float units) const
{
    const double twips = scaleMode_ == ScaleUser ? units * drawableWidth() / userWidth_
                                                 : units / unitsPerTwip(scaleMode_, dpiX());
    return twips * dpiX() / TwipsPerInch;
}

double Canvas::toPixelsY(float units) const
{
    const double twips = scaleMode_ == ScaleUser ? units * drawableHeight() / userHeight_
                                                 : units / unitsPerTwip(scaleMode_, dpiY());
    return twips * dpiY() / TwipsPerInch;
}

float Canvas::fromPixelsY(double pixels) const
{
    const double twips = pixels * TwipsPerInch / dpiY();
    return float(scaleMode_ == ScaleUser ? twips * userHeight_ / drawableHeight()
                                         : twips * unitsPerTwip(scaleMode_, dpiY()));
}

void Canvas::Print(const QString& text)
{
    QPainter* painter = outputPainter();
    QFont font(fontName_);
    font.setPointSizeF(fontSize_);
    const QFontMetricsF metrics(font, painter->device());
    if (!text.isEmpty()) {
        painter->save();
        painter->setFont(font);
        painter->setPen(Qt::black);
        painter->drawText(QPointF(toPixelsX(currentX_), toPixelsY(currentY_) + metrics.ascent()), text);
        painter->restore();
    }
    currentX_ = 0;
    currentY_ += fromPixelsY(metrics.lineSpacing());
}

void Canvas::Line(float x1, float y1, float x2, float y2, uint32_t color)
{
    QPainter* painter = outputPainter();
    painter->save();
    painter->setPen(QPen(QColor(int(color & 0xff), int((color >> 8) & 0xff), int((color >> 16) & 0xff)), 0));
    painter->drawLine(QPointF(toPixelsX(x1), toPixelsY(y1)), QPointF(toPixelsX(x2), toPixelsY(y2)));
    painter->restore();
    currentX_ = x2;
    currentY_ = y2;
}

} // namespace platform
