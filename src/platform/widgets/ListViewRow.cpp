#include "platform/widgets/ListViewRow.h"

namespace platform {

namespace {

// Sets a member to a value; false when it held that value already.
template <typename T> bool change(T& member, const T& value)
{
    if (member == value)
        return false;
    member = value;
    return true;
}

bool change(QVariant& member, const QVariant& value)
{
    if (member == value && member.isValid() == value.isValid())
        return false;
    member = value;
    return true;
}

} // namespace

ListViewRow::ListViewRow(const QString& key, const QString& text, const QVariant& icon)
    : QTreeWidgetItem(UserType), text_(text), key_(key), icon_(icon)
{
}

QVariant ListViewRow::data(int column, int role) const
{
    if (column == 0) {
        switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole: return text_;
        case Qt::DecorationRole: return icon_;
        case KeyRole: return key_;
        case TagRole: return tag_;
        default: break;
        }
    }
    return QTreeWidgetItem::data(column, role);
}

void ListViewRow::setData(int column, int role, const QVariant& value)
{
    bool changed = false;
    switch (column == 0 ? role : -1) {
    case Qt::DisplayRole:
    case Qt::EditRole: changed = change(text_, value.toString()); break;
    case Qt::DecorationRole: changed = change(icon_, value); break;
    case KeyRole: changed = change(key_, value.toString()); break;
    case TagRole: changed = change(tag_, value); break;
    default: QTreeWidgetItem::setData(column, role, value); return;
    }
    if (changed)
        emitDataChanged();
}

} // namespace platform
