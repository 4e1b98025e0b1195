#include "platform/Toolbar.h"

#include "platform/Error.h"
#include "platform/ImageList.h"

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
    connect(button, &QAction::triggered, this, [this, key] { emit ButtonClick(key); });
    return button;
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
