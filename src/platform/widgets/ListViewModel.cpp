#include "platform/widgets/ListViewModel.h"

#include <iterator>

namespace platform {

ListViewModel::ListViewModel(const QString& header, QObject* parent)
    : QAbstractListModel(parent), header_(header)
{
}

int ListViewModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.column() != 0 || size_t(index.row()) >= rows_.size())
        return QVariant();
    const Row& shown = rows_[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return shown.text;
    case Qt::DecorationRole: return shown.icon;
    default: return QVariant();
    }
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == 0 && orientation == Qt::Horizontal && (role == Qt::DisplayRole || role == Qt::EditRole))
        return header_;
    return QVariant();
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

void ListViewModel::insert(int position, std::vector<Row> rows)
{
    if (rows.empty())
        return;
    beginInsertRows(QModelIndex(), position, position + int(rows.size()) - 1);
    if (rows_.empty())
        rows_ = std::move(rows); // a list filled anew takes the rows as they are
    else
        rows_.insert(rows_.begin() + position, std::make_move_iterator(rows.begin()),
                     std::make_move_iterator(rows.end()));
    endInsertRows();
}

void ListViewModel::remove(int position)
{
    beginRemoveRows(QModelIndex(), position, position);
    rows_.erase(rows_.begin() + position);
    endRemoveRows();
}

void ListViewModel::clear()
{
    beginResetModel();
    rows_.clear();
    endResetModel();
}

} // namespace platform
