#include "platform/widgets/ListView.h"

#include "platform/core/Error.h"
#include "platform/widgets/ImageList.h"
#include "platform/widgets/ListViewModel.h"
#include "platform/widgets/Screen.h"

#include <QHeaderView>

namespace platform {

ListView::ListView(const QString& columnHeader, QWidget* parent)
    : QTreeView(parent), rows_(new ListViewModel(columnHeader, this))
{
    setModel(rows_);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setAllColumnsShowFocus(true);
    header()->setSectionsClickable(false);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
}

QString ListView::ListItem::Key() const
{
    return view_->rows_->row(row_).key;
}
QString ListView::ListItem::Text() const
{
    return view_->rows_->row(row_).text;
}
bool ListView::ListItem::Selected() const
{
    return view_->selectionModel()->isSelected(view_->rows_->index(row_));
}
void ListView::ListItem::setSelected(bool selected)
{
    view_->selectionModel()->select(view_->rows_->index(row_),
                                    (selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
                                        QItemSelectionModel::Rows);
}
qint64 ListView::ListItem::Tag() const
{
    return view_->rows_->row(row_).tag;
}
void ListView::ListItem::setTag(qint64 tag)
{
    view_->rows_->row(row_).tag = tag;
}

ListView::ListItem ListView::Items::Add(int32_t index, const QString& key, const QString& text,
                                        const QString& smallIcon)
{
    if (index < 1 || index > Count() + 1)
        throw Error(err::SubscriptOutOfRange, QStringLiteral("Index out of bounds"));
    std::vector<ListViewModel::Row> row;
    row.push_back({key, text, view_->smallIcon(smallIcon)});
    view_->rows_->insert(index - 1, std::move(row));
    return ListItem(view_, index - 1);
}

void ListView::Items::AddAll(const QList<NewItem>& items)
{
    std::vector<ListViewModel::Row> rows;
    rows.reserve(size_t(items.size()));
    // The rows of a list mostly share one icon: it is looked up once for them.
    QString iconKey;
    QVariant icon = view_->smallIcon(iconKey);
    for (const NewItem& item : items) {
        if (item.smallIcon != iconKey) {
            iconKey = item.smallIcon;
            icon = view_->smallIcon(iconKey);
        }
        rows.push_back({item.key, item.text, icon});
    }
    view_->rows_->insert(Count(), std::move(rows));
}

ListView::ListItem ListView::Items::Add(const QString& key, const QString& text, const QString& smallIcon)
{
    return Add(Count() + 1, key, text, smallIcon);
}

void ListView::Items::Remove(int32_t index)
{
    view_->rows_->remove(view_->rowOf(index));
}

void ListView::Items::Clear()
{
    // As the toolkit's own item lists do: no selection and no current item left.
    view_->selectionModel()->clear();
    view_->rows_->clear();
}

int32_t ListView::Items::Count() const
{
    return view_->rows_->rowCount();
}

ListView::ListItem ListView::Items::operator()(int32_t index) const
{
    return ListItem(view_, view_->rowOf(index));
}

int ListView::rowOf(int32_t index) const
{
    if (index < 1 || index > rows_->rowCount())
        throw Error(err::SubscriptOutOfRange, QStringLiteral("Index out of bounds"));
    return index - 1;
}

QVariant ListView::smallIcon(const QString& key) const
{
    if (!smallIcons_ || key.isEmpty())
        return QVariant();
    return smallIcons_->image(key);
}

ListView::ListItem ListView::SelectedItem() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() ? ListItem(this, current.row()) : ListItem();
}

// The twips last set read back unchanged while the column keeps their pixels.
float ListView::columnWidth() const
{
    const int pixels = QTreeView::columnWidth(0);
    if (Screen::pixelsX(columnTwips_) == pixels)
        return columnTwips_;
    return Screen::twipsX(pixels);
}

void ListView::setColumnWidth(float twips)
{
    if (twips < 0)
        throw Error(err::InvalidPropertyValue);
    QTreeView::setColumnWidth(0, Screen::pixelsX(twips));
    columnTwips_ = twips;
}

} // namespace platform
