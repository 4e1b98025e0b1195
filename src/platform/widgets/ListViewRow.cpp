#include "platform/widgets/ListViewRow.h"

namespace platform {

ListViewRow::ListViewRow(const QString& key, const QString& text, const QVariant& icon)
    : QTreeWidgetItem(UserType), text_(text), icon_(icon), key_(key)
{
}

const QVariant* ListViewRow::member(int column, int role) const
{
    if (column != 0)
        return nullptr;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return &text_;
    case Qt::DecorationRole: return &icon_;
    case KeyRole: return &key_;
    case TagRole: return &tag_;
    default: return nullptr;
    }
}

QVariant ListViewRow::data(int column, int role) const
{
    if (const QVariant* value = member(column, role))
        return *value;
    return QTreeWidgetItem::data(column, role);
}

void ListViewRow::setData(int column, int role, const QVariant& value)
{
    auto* own = const_cast<QVariant*>(member(column, role));
    if (!own) {
        QTreeWidgetItem::setData(column, role, value);
        return;
    }
    if (*own == value && own->isValid() == value.isValid())
        return;
    *own = value;
    emitDataChanged();
}

} // namespace platform
