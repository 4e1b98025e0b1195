#pragma once

#include <QAbstractItemModel>
#include <QByteArray>
#include <QIcon>

#include <memory>
#include <vector>

namespace platform {

// The folders of the machine as a tree with two roots, the user's home folder and
// the file system root. Only folders, no hidden ones (names starting with '.').
// A folder's subfolders are read when the view first asks for them. Names are
// kept as bytes, so that folders whose names aren't valid UTF-8 can be entered.
class FolderTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit FolderTreeModel(QObject* parent = nullptr);
    ~FolderTreeModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

    // The folder's path in text form; "/" for the root.
    QString pathOf(const QModelIndex& index) const;
    // The entry of a folder given in text form, reading the levels on the way
    // (a folder made since its parent was read is added); an invalid index when
    // there is no such visible folder.
    QModelIndex indexOf(const QString& path);

private:
    struct Node;
    Node* nodeOf(const QModelIndex& index) const;
    QModelIndex indexOfNode(Node* node) const;
    void readChildren(Node* node);
    // Adds a subfolder that wasn't there when NODE was read.
    Node* insertChild(Node* node, const QByteArray& name);

    std::vector<std::unique_ptr<Node>> roots_;
    QIcon folderIcon_;
    QIcon homeIcon_;
    QIcon driveIcon_;
};

} // namespace platform
