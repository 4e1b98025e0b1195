#include "platform/widgets/ListView.h"

#include "platform/core/Error.h"
#include "platform/widgets/ImageList.h"
#include "platform/widgets/ListViewRow.h"
#include "platform/widgets/Screen.h"

#include <QHeaderView>

namespace platform {

namespace {
constexpr int KeyRole = ListViewRow::KeyRole;
constexpr int TagRole = ListViewRow::TagRole;
} // namespace

ListView::ListView(const QString& columnHeader, QWidget* parent) : QTreeWidget(parent)
{
    setColumnCount(1);
    setHeaderLabels({columnHeader});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
}

int32_t ListView::ListItem::Index() const
{
    return view_->indexOfTopLevelItem(item_) + 1;
}
QString ListView::ListItem::Key() const
{
    return item_->data(0, KeyRole).toString();
}
QString ListView::ListItem::Text() const
{
    return item_->text(0);
}
bool ListView::ListItem::Selected() const
{
    return item_->isSelected();
}
void ListView::ListItem::setSelected(bool selected)
{
    item_->setSelected(selected);
}
qint64 ListView::ListItem::Tag() const
{
    return item_->data(0, TagRole).toLongLong();
}
void ListView::ListItem::setTag(qint64 tag)
{
    item_->setData(0, TagRole, tag);
}

ListView::ListItem ListView::Items::Add(int32_t index, const QString& key, const QString& text,
                                        const QString& smallIcon)
{
    if (index < 1 || index > Count() + 1)
        throw Error(err::SubscriptOutOfRange, QStringLiteral("Index out of bounds"));
    QTreeWidgetItem* item = new ListViewRow(key, text, view_->smallIcon(smallIcon));
    view_->insertTopLevelItem(index - 1, item);
    return ListItem(view_, item);
}

void ListView::Items::AddAll(const QList<NewItem>& items)
{
    QList<QTreeWidgetItem*> made;
    made.reserve(items.size());
    // The rows of a list mostly share one icon: it is looked up once for them.
    QString iconKey;
    QVariant icon = view_->smallIcon(iconKey);
    for (const NewItem& item : items) {
        if (item.smallIcon != iconKey) {
            iconKey = item.smallIcon;
            icon = view_->smallIcon(iconKey);
        }
        made.append(new ListViewRow(item.key, item.text, icon));
    }
    view_->addTopLevelItems(made);
}

ListView::ListItem ListView::Items::Add(const QString& key, const QString& text, const QString& smallIcon)
{
    return Add(Count() + 1, key, text, smallIcon);
}

void ListView::Items::Remove(int32_t index)
{
    delete view_->itemAt(index);
}

void ListView::Items::Clear()
{
    view_->clear();
}

int32_t ListView::Items::Count() const
{
    return view_->topLevelItemCount();
}

ListView::ListItem ListView::Items::operator()(int32_t index) const
{
    return ListItem(view_, view_->itemAt(index));
}

QVariant ListView::smallIcon(const QString& key) const
{
    if (!smallIcons_ || key.isEmpty())
        return QVariant();
    return smallIcons_->image(key);
}

QTreeWidgetItem* ListView::itemAt(int32_t index) const
{
    QTreeWidgetItem* item = index >= 1 ? topLevelItem(index - 1) : nullptr;
    if (!item)
        throw Error(err::SubscriptOutOfRange, QStringLiteral("Index out of bounds"));
    return item;
}

ListView::ListItem ListView::SelectedItem() const
{
    QTreeWidgetItem* current = currentItem();
    return current ? ListItem(this, current) : ListItem();
}

// The twips last set read back unchanged while the column keeps their pixels.
float ListView::columnWidth() const
{
    const int pixels = QTreeWidget::columnWidth(0);
    if (Screen::pixelsX(columnTwips_) == pixels)
        return columnTwips_;
    return Screen::twipsX(pixels);
}

void ListView::setColumnWidth(float twips)
{
    if (twips < 0)
        throw Error(err::InvalidPropertyValue);
    QTreeWidget::setColumnWidth(0, Screen::pixelsX(twips));
    columnTwips_ = twips;
}

} // namespace platform
