#include "presentation/PANEL.h"

#include "platform/widgets/Screen.h"

#include <QEvent>
#include <QPainter>
#include <QSizeGrip>
#include <qdrawutil.h>

namespace zuv {

namespace {

constexpr float DesignHeight = 645;

int designHeightInPixels()
{
    return platform::Screen::pixelsY(DesignHeight);
}

} // namespace

PANEL::PANEL(QWidget* parent) : QFrame(parent), grip_(new QSizeGrip(this))
{
    grip_->hide();
    resize(width(), designHeightInPixels());
    if (parent)
        parent->installEventFilter(this);
    keepToBottom();
}

void PANEL::setDialogresize(bool on)
{
    dialogResize_ = on;
    grip_->setVisible(on);
    placeGrip();
}

QSize PANEL::sizeHint() const
{
    return {QFrame::sizeHint().width(), designHeightInPixels()};
}

// A panel given a new container follows that one.
bool PANEL::event(QEvent* event)
{
    if (event->type() == QEvent::ParentAboutToChange && parentWidget())
        parentWidget()->removeEventFilter(this);
    const bool handled = QFrame::event(event);
    if (event->type() == QEvent::ParentChange && parentWidget()) {
        parentWidget()->installEventFilter(this);
        keepToBottom();
    }
    return handled;
}

bool PANEL::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        keepToBottom();
    return QFrame::eventFilter(watched, event);
}

void PANEL::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    keepToBottom();
    placeGrip();
}

void PANEL::keepToBottom()
{
    if (const QWidget* container = parentWidget())
        setGeometry(0, container->height() - height(), container->width(), height());
}

void PANEL::placeGrip()
{
    const QSize grip = grip_->sizeHint();
    grip_->setGeometry(width() - grip.width(), height() - grip.height(), grip.width(), grip.height());
}

void PANEL::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    // A rule along the top sets the buttons apart from the dialog's content.
    QPainter painter(this);
    qDrawShadeLine(&painter, 0, 0, width() - 1, 0, palette(), true, 1, 0);
}

} // namespace zuv
