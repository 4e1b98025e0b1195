#include "platform/widgets/FolderTree.h"

#include "platform/core/Error.h"
#include "platform/widgets/FolderTreeModel.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QScrollBar>

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
            guarded([this](const QModelIndex& current) { onCurrentChanged(current); }));
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { revealChosen_ = false; });
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
    revealChosen_ = true;
}

void FolderTree::onCurrentChanged(const QModelIndex& current)
{
    if (current.isValid() && !viewPicks_)
        emit folderChanged(model_->pathOf(current));
}

// A view given the focus without a current row makes its first row current. In
// this tree the current row is the chosen folder, which only the person or the
// program chooses: the focus alone leaves the tree as it stands.
void FolderTree::focusInEvent(QFocusEvent* event)
{
    const bool hadCurrent = currentIndex().isValid();
    viewPicks_ = !hadCurrent;
    QTreeView::focusInEvent(event);
    viewPicks_ = false;
    if (!hadCurrent && currentIndex().isValid())
        selectionModel()->clearCurrentIndex();
}

void FolderTree::keyPressEvent(QKeyEvent* event)
{
    revealChosen_ = false;
    QTreeView::keyPressEvent(event);
}

bool FolderTree::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Wheel || event->type() == QEvent::MouseButtonPress)
        revealChosen_ = false;
    return QTreeView::viewportEvent(event);
}

// The tree is filled and sized after the folder is chosen at start: its height
// changes and a horizontal scroll bar may come and cover the bottom row. The
// chosen folder is brought back into full view each time.
void FolderTree::updateGeometries()
{
    QTreeView::updateGeometries();
    if (revealChosen_ && currentIndex().isValid())
        scrollTo(currentIndex());
}

} // namespace platform
