#pragma once

#include <QTreeView>

namespace platform {

class FolderTreeModel;

// The folder tree: the user picks the current folder. selectedfolder() is the
// chosen folder's path in text form; setting it selects that folder and, as a
// pick by the user does, raises folderChanged with the new path.
class FolderTree : public QTreeView {
    Q_OBJECT
public:
    explicit FolderTree(QWidget* parent = nullptr);

    // Blank until a folder is chosen.
    QString selectedfolder() const;
    // A path that isn't a folder of the tree throws Error(PathNotFound) and
    // leaves the selection as it is. Choosing the folder already chosen raises
    // no event.
    void setSelectedfolder(const QString& path);

signals:
    void folderChanged(const QString& path);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void updateGeometries() override;

private:
    void onCurrentChanged(const QModelIndex& current);
    FolderTreeModel* model_;
    // The folder chosen in code is kept in view while the tree takes its size
    // and its scroll bars, until the person scrolls or moves in the tree.
    bool revealChosen_ = false;
    // Set while the view would make a row current of its own accord.
    bool viewPicks_ = false;
};

} // namespace platform
