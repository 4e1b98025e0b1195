#include "platform/widgets/Twips.h"

#include "platform/core/Error.h"
#include "platform/widgets/Screen.h"

#include <QVariant>
#include <QWidget>

namespace platform {

namespace {

enum class Side { Left, Top, Width, Height };

const char* propertyOf(Side side)
{
    switch (side) {
    case Side::Left: return "twipsLeft";
    case Side::Top: return "twipsTop";
    case Side::Width: return "twipsWidth";
    default: return "twipsHeight";
    }
}

bool horizontal(Side side)
{
    return side == Side::Left || side == Side::Width;
}

int pixelsOf(const QWidget* control, Side side)
{
    switch (side) {
    case Side::Left: return control->x();
    case Side::Top: return control->y();
    case Side::Width: return control->width();
    default: return control->height();
    }
}

int toPixels(float twips, Side side)
{
    return horizontal(side) ? Screen::pixelsX(twips) : Screen::pixelsY(twips);
}

float read(const QWidget* control, Side side)
{
    const int pixels = pixelsOf(control, side);
    const QVariant kept = control->property(propertyOf(side));
    if (kept.isValid() && toPixels(kept.toFloat(), side) == pixels)
        return kept.toFloat();
    return horizontal(side) ? Screen::twipsX(pixels) : Screen::twipsY(pixels);
}

void write(QWidget* control, Side side, float twips)
{
    if ((side == Side::Width || side == Side::Height) && twips < 0)
        throw Error(err::InvalidPropertyValue);
    const int pixels = toPixels(twips, side);
    switch (side) {
    case Side::Left: control->move(pixels, control->y()); break;
    case Side::Top: control->move(control->x(), pixels); break;
    case Side::Width: control->resize(pixels, control->height()); break;
    case Side::Height: control->resize(control->width(), pixels); break;
    }
    control->setProperty(propertyOf(side), twips);
}

} // namespace

float Twips::Left() const
{
    return read(control_, Side::Left);
}
float Twips::Top() const
{
    return read(control_, Side::Top);
}
float Twips::Width() const
{
    return read(control_, Side::Width);
}
float Twips::Height() const
{
    return read(control_, Side::Height);
}

void Twips::setLeft(float twips)
{
    write(control_, Side::Left, twips);
}
void Twips::setTop(float twips)
{
    write(control_, Side::Top, twips);
}
void Twips::setWidth(float twips)
{
    write(control_, Side::Width, twips);
}
void Twips::setHeight(float twips)
{
    write(control_, Side::Height, twips);
}

void Twips::Move(float left, float top, float width, float height)
{
    setWidth(width);
    setHeight(height);
    setLeft(left);
    setTop(top);
}

} // namespace platform
