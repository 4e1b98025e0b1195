#include "platform/widgets/ControlEvents.h"

#include "platform/widgets/Desktop.h"
#include "platform/widgets/Keys.h"
#include "platform/widgets/Screen.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace platform {

namespace {

// Focus that a menu, a popup or another window borrows comes back by itself; the
// form runtime raises no focus events for it.
bool isBorrowedFocus(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

int buttonsOf(Qt::MouseButtons buttons)
{
    int result = 0;
    if (buttons & Qt::LeftButton)
        result |= 1;
    if (buttons & Qt::RightButton)
        result |= 2;
    if (buttons & Qt::MiddleButton)
        result |= 4;
    return result;
}

} // namespace

ControlEvents::ControlEvents(QWidget* control) : QObject(control), control_(control)
{
    // A key held down is one press and one release, as the handlers of key
    // releases expect; the toolkit's own flag for repeats misses some of them.
    desktop::reportHeldKeysOnce();
    control->installEventFilter(this);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(control))
        area->viewport()->installEventFilter(this);
}

bool ControlEvents::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        if (watched == control_ && !isBorrowedFocus(static_cast<QFocusEvent*>(event)->reason()))
            emit GotFocus();
        break;
    case QEvent::FocusOut:
        if (watched == control_ && !isBorrowedFocus(static_cast<QFocusEvent*>(event)->reason()))
            emit LostFocus();
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        auto* key = static_cast<QKeyEvent*>(event);
        // A key that a focused child leaves unhandled travels up to its parents;
        // only the control it was meant for reports it.
        const QWidget* focus = QApplication::focusWidget();
        const bool fromChild = focus && focus != control_ && control_->isAncestorOf(focus);
        if (watched != control_ || fromChild || key->isAutoRepeat())
            break;
        const int code = keyCodeOf(key->key());
        const int shift = shiftOf(key->modifiers());
        if (event->type() == QEvent::KeyPress)
            emit KeyDown(code, shift);
        else
            emit KeyUp(code, shift);
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        const QPointF inControl = control_->mapFromGlobal(mouse->globalPosition());
        const float x = Screen::twipsX(inControl.x());
        const float y = Screen::twipsY(inControl.y());
        const int shift = shiftOf(mouse->modifiers());
        if (event->type() == QEvent::MouseButtonPress)
            emit MouseDown(buttonsOf(mouse->button()), shift, x, y);
        else if (event->type() == QEvent::MouseMove)
            emit MouseMove(buttonsOf(mouse->buttons()), shift, x, y);
        else
            emit MouseUp(buttonsOf(mouse->button()), shift, x, y);
        break;
    }
    case QEvent::MouseButtonDblClick: emit DblClick(); break;
    default: break;
    }
    return false;
}

} // namespace platform
