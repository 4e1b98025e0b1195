#include "platform/widgets/Screen.h"

#include <QApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace platform::Screen {

namespace {

int screenPointer = 0;

double logicalDpi(bool horizontal)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return 96.0;
    const double dpi = horizontal ? screen->logicalDotsPerInchX() : screen->logicalDotsPerInchY();
    return dpi > 0 ? dpi : 96.0;
}

QSize screenPixels()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().size() : QSize(1024, 768);
}

Qt::CursorShape shapeOf(int code)
{
    switch (code) {
    case 7: return Qt::SizeVerCursor;
    case 9: return Qt::SizeHorCursor;
    case 11: return Qt::WaitCursor;
    case 99: return Qt::BlankCursor;
    default: return Qt::ArrowCursor;
    }
}

} // namespace

float TwipsPerPixelX()
{
    return static_cast<float>(1440.0 / logicalDpi(true));
}

float TwipsPerPixelY()
{
    return static_cast<float>(1440.0 / logicalDpi(false));
}

int pixelsX(float twips)
{
    return qRound(twips / TwipsPerPixelX());
}

int pixelsY(float twips)
{
    return qRound(twips / TwipsPerPixelY());
}

float twipsX(int pixels)
{
    return static_cast<float>(pixels) * TwipsPerPixelX();
}

float twipsY(int pixels)
{
    return static_cast<float>(pixels) * TwipsPerPixelY();
}

float Width()
{
    return twipsX(screenPixels().width());
}

float Height()
{
    return twipsY(screenPixels().height());
}

int MousePointer()
{
    return screenPointer;
}

void setMousePointer(int code)
{
    if (code == screenPointer)
        return;
    if (screenPointer != 0)
        QApplication::restoreOverrideCursor();
    if (code != 0)
        QApplication::setOverrideCursor(QCursor(shapeOf(code)));
    screenPointer = code;
}

void applyPointer(QWidget* widget, int code)
{
    if (code == 0)
        widget->unsetCursor();
    else
        widget->setCursor(shapeOf(code));
}

} // namespace platform::Screen
