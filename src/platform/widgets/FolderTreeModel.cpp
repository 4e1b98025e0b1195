#include "platform/widgets/FolderTreeModel.h"

#include "platform/core/FileNames.h"

#include <QCollator>
#include <QDir>
#include <QFileIconProvider>

#include <algorithm>

#include <dirent.h>
#include <sys/stat.h>

namespace platform {

struct FolderTreeModel::Node {
    QByteArray path; // the folder's path as bytes, without a trailing '/' but for "/"
    QString label;
    Node* parent = nullptr;
    std::vector<std::unique_ptr<Node>> children;
    bool read = false;
    int row = 0;
};

namespace {

QByteArray childPath(const QByteArray& parent, const QByteArray& name)
{
    return parent.endsWith('/') ? parent + name : parent + '/' + name;
}

bool isFolder(const QByteArray& path, unsigned char type)
{
    if (type == DT_DIR)
        return true;
    if (type != DT_UNKNOWN && type != DT_LNK)
        return false;
    struct stat info {};
    return ::stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

// The order of folder names in the tree: as a file manager sorts them.
class NameOrder {
public:
    NameOrder()
    {
        collator_.setCaseSensitivity(Qt::CaseInsensitive);
        collator_.setNumericMode(true);
    }
    bool operator()(const QByteArray& a, const QByteArray& b) const
    {
        const int order = collator_.compare(decodeFileName(a), decodeFileName(b));
        return order != 0 ? order < 0 : a < b;
    }

private:
    QCollator collator_;
};

// The visible subfolders of a folder, sorted as a file manager sorts them.
std::vector<QByteArray> subfolderNames(const QByteArray& folder)
{
    std::vector<QByteArray> names;
    DIR* dir = ::opendir(folder.constData());
    if (!dir)
        return names;
    while (const dirent* entry = ::readdir(dir)) {
        const QByteArray name(entry->d_name);
        if (name.startsWith('.'))
            continue;
        if (isFolder(childPath(folder, name), entry->d_type))
            names.push_back(name);
    }
    ::closedir(dir);
    const NameOrder before;
    std::sort(names.begin(), names.end(), before);
    return names;
}

} // namespace

FolderTreeModel::FolderTreeModel(QObject* parent) : QAbstractItemModel(parent)
{
    QFileIconProvider icons;
    folderIcon_ = icons.icon(QFileIconProvider::Folder);
    homeIcon_ = QIcon::fromTheme(QStringLiteral("user-home"), folderIcon_);
    driveIcon_ = QIcon::fromTheme(QStringLiteral("drive-harddisk"), icons.icon(QFileIconProvider::Drive));

    auto home = std::make_unique<Node>();
    home->path = encodeFileName(QDir::homePath());
    home->label = tr("Home");
    auto root = std::make_unique<Node>();
    root->path = "/";
    root->label = tr("File System");
    root->row = 1;
    roots_.push_back(std::move(home));
    roots_.push_back(std::move(root));
}

FolderTreeModel::~FolderTreeModel() = default;

FolderTreeModel::Node* FolderTreeModel::nodeOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<Node*>(index.internalPointer()) : nullptr;
}

QModelIndex FolderTreeModel::indexOfNode(Node* node) const
{
    return node ? createIndex(node->row, 0, node) : QModelIndex();
}

QModelIndex FolderTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0)
        return {};
    const auto& siblings = parent.isValid() ? nodeOf(parent)->children : roots_;
    if (row >= static_cast<int>(siblings.size()))
        return {};
    return createIndex(row, 0, siblings[row].get());
}

QModelIndex FolderTreeModel::parent(const QModelIndex& child) const
{
    Node* node = nodeOf(child);
    return node ? indexOfNode(node->parent) : QModelIndex();
}

int FolderTreeModel::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > 0)
        return 0;
    return static_cast<int>(parent.isValid() ? nodeOf(parent)->children.size() : roots_.size());
}

int FolderTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant FolderTreeModel::data(const QModelIndex& index, int role) const
{
    const Node* node = nodeOf(index);
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole: return node->label;
    case Qt::ToolTipRole: return decodeFileName(node->path);
    case Qt::DecorationRole:
        if (!node->parent)
            return node->row == 0 ? homeIcon_ : driveIcon_;
        return folderIcon_;
    default: return {};
    }
}

bool FolderTreeModel::hasChildren(const QModelIndex& parent) const
{
    const Node* node = nodeOf(parent);
    // Unread folders offer to open; reading them finds out.
    return !node || !node->read || !node->children.empty();
}

bool FolderTreeModel::canFetchMore(const QModelIndex& parent) const
{
    const Node* node = nodeOf(parent);
    return node && !node->read;
}

void FolderTreeModel::fetchMore(const QModelIndex& parent)
{
    if (Node* node = nodeOf(parent))
        readChildren(node);
}

void FolderTreeModel::readChildren(Node* node)
{
    if (node->read)
        return;
    node->read = true;
    const std::vector<QByteArray> names = subfolderNames(node->path);
    const QModelIndex parentIndex = indexOfNode(node);
    if (names.empty()) {
        // The expander goes away once a folder turns out to be empty.
        emit dataChanged(parentIndex, parentIndex);
        return;
    }
    beginInsertRows(parentIndex, 0, static_cast<int>(names.size()) - 1);
    for (const QByteArray& name : names) {
        auto child = std::make_unique<Node>();
        child->path = childPath(node->path, name);
        child->label = decodeFileName(name);
        child->parent = node;
        child->row = static_cast<int>(node->children.size());
        node->children.push_back(std::move(child));
    }
    endInsertRows();
}

FolderTreeModel::Node* FolderTreeModel::insertChild(Node* node, const QByteArray& name)
{
    const NameOrder before;
    auto place = std::find_if(node->children.begin(), node->children.end(), [&](const auto& child) {
        return before(name, child->path.mid(child->path.lastIndexOf('/') + 1));
    });
    const int row = static_cast<int>(place - node->children.begin());
    beginInsertRows(indexOfNode(node), row, row);
    auto child = std::make_unique<Node>();
    child->path = childPath(node->path, name);
    child->label = decodeFileName(name);
    child->parent = node;
    Node* inserted = child.get();
    node->children.insert(place, std::move(child));
    for (size_t at = size_t(row); at < node->children.size(); ++at)
        node->children[at]->row = static_cast<int>(at);
    endInsertRows();
    return inserted;
}

QString FolderTreeModel::pathOf(const QModelIndex& index) const
{
    const Node* node = nodeOf(index);
    return node ? decodeFileName(node->path) : QString();
}

QModelIndex FolderTreeModel::indexOf(const QString& path)
{
    QByteArray target = encodeFileName(path);
    while (target.size() > 1 && target.endsWith('/'))
        target.chop(1);
    if (!target.startsWith('/'))
        return {};
    // The home folder holds the folders below it; everything else hangs from "/".
    Node* node = roots_[1].get();
    const QByteArray home = roots_[0]->path;
    if (target == home || target.startsWith(home + '/'))
        node = roots_[0].get();
    QByteArray rest = target.mid(node->path.size());
    for (const QByteArray& part : rest.split('/')) {
        if (part.isEmpty())
            continue;
        readChildren(node);
        const QByteArray wanted = childPath(node->path, part);
        auto found = std::find_if(node->children.begin(), node->children.end(),
                                  [&](const auto& child) { return child->path == wanted; });
        if (found == node->children.end()) {
            // Made after its parent was read: it joins the tree in its place.
            if (part.startsWith('.') || !isFolder(wanted, DT_UNKNOWN))
                return {};
            node = insertChild(node, part);
            continue;
        }
        node = found->get();
    }
    return indexOfNode(node);
}

} // namespace platform
