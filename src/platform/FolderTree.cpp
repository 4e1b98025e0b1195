#include "platform/FolderTree.h"

#include "platform/Error.h"
#include "platform/FolderTreeModel.h"

#include <QHeaderView>

namespace platform {

FolderTree::FolderTree(QWidget* parent) : QTreeView(parent), model_(new FolderTreeModel(this))
{
    setModel(model_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { onCurrentChanged(current); });
}

QString FolderTree::selectedfolder() const
{
    return model_->pathOf(currentIndex());
}

void FolderTree::setSelectedfolder(const QString& path)
{
    const QModelIndex target = model_->indexOf(path);
    if (!target.isValid())
        throw Error(err::PathNotFound);
    for (QModelIndex above = target.parent(); above.isValid(); above = above.parent())
        expand(above);
    setCurrentIndex(target);
    scrollTo(target);
}

void FolderTree::onCurrentChanged(const QModelIndex& current)
{
    if (current.isValid())
        emit folderChanged(model_->pathOf(current));
}

} // namespace platform
