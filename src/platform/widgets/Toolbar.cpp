#include "platform/widgets/Toolbar.h"

#include "platform/core/Error.h"
#include "platform/widgets/ImageList.h"

#include <QActionEvent>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QToolButton>

namespace platform {

namespace {
const char* const KeyProperty = "buttonKey";
const char* const DescriptionProperty = "description";
} // namespace

Toolbar::Toolbar(const ImageList* images, QWidget* parent) : QToolBar(parent), images_(images)
{
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setIconSize(QSize(16, 16));
}

QAction* Toolbar::addButton(const QString& key, const QString& description, const QString& tip,
                            const QString& imageKey)
{
    QAction* button = addAction(images_ ? images_->image(imageKey) : QIcon(), QString());
    button->setProperty(KeyProperty, key);
    button->setProperty(DescriptionProperty, description);
    button->setToolTip(tip);
    widgetForAction(button)->setFocusPolicy(Qt::NoFocus);
    widgetForAction(button)->setObjectName(key);
    connect(button, &QAction::triggered, this, guarded([this, key] { emit ButtonClick(key); }));
    return button;
}

QRect Toolbar::rectInWindowFrame() const
{
    return {mapToGlobal(QPoint(0, 0)) - window()->frameGeometry().topLeft(), size()};
}

// The toolkit throws away a move without buttons over a widget that doesn't track
// the pointer, instead of passing it to the parent. The bar's items track it and
// leave it unhandled, so it goes on to the bar.
void Toolbar::actionEvent(QActionEvent* event)
{
    QToolBar::actionEvent(event);
    if (event->type() != QEvent::ActionAdded)
        return;
    if (QWidget* item = widgetForAction(event->action())) {
        item->setMouseTracking(true);
        item->installEventFilter(this);
    }
}

// A disabled button keeps the moves over it to itself; the bar is told of them
// all the same.
bool Toolbar::eventFilter(QObject* watched, QEvent* event)
{
    auto* item = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::MouseMove && item && !item->isEnabled()) {
        const auto* move = static_cast<QMouseEvent*>(event);
        QMouseEvent onBar(QEvent::MouseMove, mapFromGlobal(move->globalPosition()), move->globalPosition(),
                          move->button(), move->buttons(), move->modifiers());
        QCoreApplication::sendEvent(this, &onBar);
    }
    return QToolBar::eventFilter(watched, event);
}

QAction* Toolbar::Buttons(const QString& key) const
{
    for (QAction* button : actions()) {
        if (button->property(KeyProperty).toString() == key)
            return button;
    }
    throw Error(err::InvalidCall, QStringLiteral("Element not found"));
}

QString Toolbar::Description(const QAction* button)
{
    return button->property(DescriptionProperty).toString();
}

} // namespace platform
