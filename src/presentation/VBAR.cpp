#include "presentation/VBAR.h"

#include "platform/widgets/Screen.h"

#include <QPainter>

namespace zuv {

namespace {

// The design's strip is 270 twips high.
constexpr float DesignHeight = 270;
// Room between the edges and the caption, in pixels.
constexpr int TextMargin = 3;

QPalette::ColorRole paletteRole(VBAR::Color which)
{
    switch (which) {
    case VBAR::Color::ForeColor: return QPalette::ButtonText;
    case VBAR::Color::LeftLightShadowColor:
    case VBAR::Color::TopLightShadowColor: return QPalette::Light;
    case VBAR::Color::RightShadowColor:
    case VBAR::Color::BottomShadowColor: return QPalette::Mid;
    case VBAR::Color::RightDarkShadowColor:
    case VBAR::Color::BottomDarkShadowColor: break;
    }
    return QPalette::Dark;
}

} // namespace

VBAR::VBAR(const QString& caption, QWidget* parent) : QWidget(parent), caption_(caption)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void VBAR::setCaption(const QString& caption)
{
    caption_ = caption;
    update();
}

QColor VBAR::color(Color which) const
{
    const QColor& set = colors_[static_cast<size_t>(which)];
    return set.isValid() ? set : palette().color(paletteRole(which));
}

void VBAR::setColor(Color which, const QColor& color)
{
    colors_[static_cast<size_t>(which)] = color;
    update();
}

QSize VBAR::sizeHint() const
{
    const int height =
        std::max(platform::Screen::pixelsY(DesignHeight), fontMetrics().height() + 2 * TextMargin);
    return {fontMetrics().horizontalAdvance(caption_) + 2 * TextMargin, height};
}

QSize VBAR::minimumSizeHint() const
{
    return {2 * TextMargin, sizeHint().height()};
}

void VBAR::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect r = rect();
    painter.fillRect(r, palette().button());

    const auto line = [&](Color which, QPoint from, QPoint to) {
        painter.setPen(color(which));
        painter.drawLine(from, to);
    };
    // The shadows last, so that they hold the right and bottom corners.
    line(Color::LeftLightShadowColor, r.topLeft(), r.bottomLeft());
    line(Color::TopLightShadowColor, r.topLeft(), r.topRight());
    line(Color::RightShadowColor, r.topRight() + QPoint(-1, 1), r.bottomRight() + QPoint(-1, -1));
    line(Color::BottomShadowColor, r.bottomLeft() + QPoint(1, -1), r.bottomRight() + QPoint(-1, -1));
    line(Color::RightDarkShadowColor, r.topRight(), r.bottomRight());
    line(Color::BottomDarkShadowColor, r.bottomLeft(), r.bottomRight());

    const QRect textArea = r.adjusted(TextMargin, 0, -TextMargin, 0);
    painter.setPen(color(Color::ForeColor));
    painter.drawText(textArea, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(caption_, Qt::ElideRight, textArea.width()));
}

} // namespace zuv
