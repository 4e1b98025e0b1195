#include "presentation/ICOMNU.h"

#include "platform/core/Error.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>

#include <algorithm>

namespace zuv {

namespace {

bool isInside(const QObject* object, const QObject* ancestor)
{
    for (; object; object = object->parent())
        if (object == ancestor)
            return true;
    return false;
}

// A menu that stands under a title of another of the menus.
bool isSubmenu(const QMenu* menu, const QList<QMenu*>& menus)
{
    return std::any_of(menus.begin(), menus.end(), [menu](const QMenu* other) {
        return other != menu && other->actions().contains(menu->menuAction());
    });
}

void setBold(QAction* action, bool bold)
{
    QFont font = action->font();
    font.setBold(bold);
    action->setFont(font);
}

} // namespace

ICOMNU::ICOMNU(QObject* parent) : QObject(parent) {}

void ICOMNU::Attach(QWidget* form, bool menuBar)
{
    stopFollowing();
    const std::vector<Item> before = std::move(items_);
    items_.clear();

    bar_ = form->findChild<QMenuBar*>();
    if (bar_) {
        for (QAction* title : bar_->actions())
            number(title, false);
        if (menuBar)
            connect(bar_, &QMenuBar::hovered, this, platform::guarded(this, &ICOMNU::barHovered));
    }
    // The popup menus; the menu bar's own machinery (its overflow menu) is no menu
    // of the form.
    const QList<QMenu*> menus = form->findChildren<QMenu*>();
    for (QMenu* menu : menus) {
        if (menu != systemMenu_ && !menus_.contains(menu) && !isSubmenu(menu, menus) && !isInside(menu, bar_))
            number(menu->menuAction(), true);
    }
    if (systemMenu_)
        follow(systemMenu_, false);

    for (Item& item : items_) {
        const auto earlier = std::find_if(before.begin(), before.end(),
                                          [&item](const Item& was) { return was.action == item.action; });
        if (earlier != before.end())
            item.icon = earlier->icon;
    }
}

void ICOMNU::AttachSystemMenu(QMenu* menu)
{
    if (systemMenu_) {
        disconnect(systemMenu_, nullptr, this, nullptr);
        systemMenu_->removeEventFilter(this);
        menus_.removeAll(systemMenu_);
    }
    systemMenu_ = menu;
    follow(menu, false);
}

// An item, and under a menu's title the menu's items, depth first.
void ICOMNU::number(QAction* action, bool popup)
{
    items_.push_back({action});
    QMenu* menu = action->menu();
    if (!menu || menus_.contains(menu))
        return;
    follow(menu, popup);
    for (QAction* item : menu->actions())
        number(item, popup);
}

void ICOMNU::follow(QMenu* menu, bool popup)
{
    menus_.append(menu);
    if (popup)
        popups_.append(menu);
    connect(menu, &QMenu::hovered, this, platform::guarded(this, &ICOMNU::report));
    connect(menu, &QMenu::aboutToHide, this, platform::guarded([this, menu] { menuClosing(menu); }));
    menu->installEventFilter(this);
}

void ICOMNU::stopFollowing()
{
    for (const QPointer<QMenu>& menu : std::as_const(menus_)) {
        if (menu) {
            disconnect(menu, nullptr, this, nullptr);
            menu->removeEventFilter(this);
        }
    }
    if (bar_)
        disconnect(bar_, nullptr, this, nullptr);
    menus_.clear();
    popups_.clear();
    reported_ = nullptr;
}

void ICOMNU::setImageList(ImageLookup images)
{
    images_ = std::move(images);
    for (const Item& item : items_)
        if (item.icon >= 0)
            showIcon(item);
}

bool ICOMNU::has(int32_t number) const
{
    return number >= 1 && number <= static_cast<int32_t>(items_.size()) && items_[number - 1].action;
}

// The place of an item that is there; anything else is an invalid call.
size_t ICOMNU::indexOf(int32_t number) const
{
    if (!has(number))
        throw platform::Error(platform::err::InvalidCall);
    return static_cast<size_t>(number - 1);
}

// Names compare without regard to case, as the original platform's control
// names did.
int32_t ICOMNU::numberOf(const QString& MENUITEM) const
{
    for (size_t i = 0; i < items_.size(); ++i) {
        const QAction* action = items_[i].action;
        if (!action)
            continue;
        const QString name = action->menu() && action->objectName().isEmpty() ? action->menu()->objectName()
                                                                              : action->objectName();
        if (name.compare(MENUITEM, Qt::CaseInsensitive) == 0)
            return static_cast<int32_t>(i + 1);
    }
    throw platform::Error(platform::err::InvalidCall);
}

int32_t ICOMNU::itemNumber(const QAction* action) const
{
    if (!action)
        return 0;
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [action](const Item& item) { return item.action == action; });
    return found == items_.end() ? 0 : static_cast<int32_t>(found - items_.begin() + 1);
}

int32_t ICOMNU::ItemIcon(const QString& MENUITEM) const
{
    return ItemIcon(numberOf(MENUITEM));
}

int32_t ICOMNU::ItemIcon(int32_t number) const
{
    return items_[indexOf(number)].icon;
}

void ICOMNU::setItemIcon(const QString& MENUITEM, int32_t index)
{
    setItemIcon(numberOf(MENUITEM), index);
}

void ICOMNU::setItemIcon(int32_t number, int32_t index)
{
    if (index < -1)
        throw platform::Error(platform::err::InvalidPropertyValue);
    Item& item = items_[indexOf(number)];
    item.icon = index;
    showIcon(item);
}

void ICOMNU::showIcon(const Item& item) const
{
    item.action->setIcon(item.icon >= 0 && images_ ? images_(item.icon) : QIcon());
}

// The default item is the menu's default action, which the style may mark too.
bool ICOMNU::ItemDefault(const QString& MENUITEM) const
{
    return ItemDefault(numberOf(MENUITEM));
}

bool ICOMNU::ItemDefault(int32_t number) const
{
    const QAction* action = items_[indexOf(number)].action;
    return std::any_of(menus_.begin(), menus_.end(),
                       [action](const QMenu* menu) { return menu && menu->defaultAction() == action; });
}

void ICOMNU::setItemDefault(const QString& MENUITEM, bool isDefault)
{
    setItemDefault(numberOf(MENUITEM), isDefault);
}

void ICOMNU::setItemDefault(int32_t number, bool isDefault)
{
    QAction* action = items_[indexOf(number)].action;
    for (QMenu* menu : std::as_const(menus_)) {
        if (!menu || !menu->actions().contains(action))
            continue;
        if (QAction* previous = menu->defaultAction(); previous && (isDefault || previous == action)) {
            setBold(previous, false);
            menu->setDefaultAction(nullptr);
        }
        if (isDefault)
            menu->setDefaultAction(action);
    }
    setBold(action, isDefault);
}

// A separator line's caption is "-", as the menus' design writes it.
QString ICOMNU::CAPTION(int32_t number) const
{
    if (!has(number))
        return QString();
    const QAction* action = items_[number - 1].action;
    return action->isSeparator() && action->text().isEmpty() ? QStringLiteral("-") : action->text();
}

QAction* ICOMNU::AddItem(const QString& CAPTION, const QString& MENUITEM, int32_t ITEM,
                         int32_t ParentItemNumber, bool CHECKED, bool Enabled)
{
    QWidget* container = bar_;
    if (ParentItemNumber != 0)
        container = items_[indexOf(ParentItemNumber)].action->menu();
    if (!container)
        throw platform::Error(platform::err::InvalidCall);

    auto* action = new QAction(CAPTION, container);
    action->setObjectName(MENUITEM);
    // A caption of a single hyphen makes a separator line, as in the menus' design.
    action->setSeparator(CAPTION == QStringLiteral("-"));
    action->setCheckable(CHECKED);
    action->setChecked(CHECKED);
    action->setEnabled(Enabled);
    const QList<QAction*> present = container->actions();
    container->insertAction(ITEM >= 1 && ITEM <= present.size() ? present.at(ITEM - 1) : nullptr, action);
    items_.push_back({action});
    return action;
}

void ICOMNU::report(QAction* action)
{
    if (!action || action == reported_)
        return;
    if (systemMenu_ && systemMenu_->actions().contains(action)) {
        reported_ = action;
        emit ItemReportPlain(action->data().toInt(), 0, action->isSeparator());
        return;
    }
    const int32_t number = itemNumber(action);
    if (number == 0)
        return;
    reported_ = action;
    emit ItemReport(number, 0, action->isSeparator());
}

void ICOMNU::pointerOff(QMenu* menu)
{
    if (!reported_)
        return;
    reported_ = nullptr;
    emit StatusResetB(itemNumber(menu->menuAction()));
}

// The menu bar also repeats the hovering of the items in its menus; only its
// own titles are its business.
void ICOMNU::barHovered(QAction* action)
{
    if (!bar_ || !bar_->actions().contains(action)) {
        report(action);
        return;
    }
    if (action == reported_)
        return;
    reported_ = action;
    emit StatusResetA(itemNumber(action));
}

void ICOMNU::menuClosing(QMenu* menu)
{
    reported_ = nullptr;
    const auto stillOpen = std::find_if(menus_.begin(), menus_.end(), [menu](const QMenu* other) {
        return other && other != menu && other->isVisible() && other->actions().contains(menu->menuAction());
    });
    if (stillOpen != menus_.end()) {
        // A submenu closed and the menu it opened from stays: the pointer is back on
        // the submenu's title.
        report((*stillOpen)->activeAction());
        return;
    }
    if (popups_.contains(menu))
        emit StatusResetD(itemNumber(menu->menuAction()), 0, 0, 0, 0, 0);
    emit StatusResetC();
}

// The pointer over a separator or a disabled item, which the menu doesn't
// highlight, and the pointer off the items.
bool ICOMNU::eventFilter(QObject* watched, QEvent* event)
{
    auto* menu = qobject_cast<QMenu*>(watched);
    if (!menu || !menus_.contains(menu))
        return false;
    if (event->type() == QEvent::MouseMove) {
        QAction* action = menu->actionAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        if (action)
            report(action);
        else
            pointerOff(menu);
    } else if (event->type() == QEvent::Leave) {
        const QAction* active = menu->activeAction();
        if (!(active && active->menu() && active->menu()->isVisible()))
            pointerOff(menu);
    }
    return false;
}

} // namespace zuv
