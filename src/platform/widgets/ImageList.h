#pragma once

#include <QHash>
#include <QIcon>
#include <QString>
#include <QStringList>

namespace platform {

// Images by key, shared by a form's toolbar, menus and lists, in the order they
// were added: an image also has an index, counted from 1.
class ImageList {
public:
    void add(const QString& key, const QIcon& icon)
    {
        if (!images_.contains(key))
            keys_.append(key);
        images_.insert(key, icon);
    }
    QIcon image(const QString& key) const { return images_.value(key); }
    bool contains(const QString& key) const { return images_.contains(key); }
    // The index of the image with this key, 0 when there is none.
    int indexOf(const QString& key) const { return static_cast<int>(keys_.indexOf(key)) + 1; }
    // The image at an index from 1; an empty icon outside the list.
    QIcon image(int index) const
    {
        return index >= 1 && index <= keys_.size() ? images_.value(keys_.at(index - 1)) : QIcon();
    }

private:
    QHash<QString, QIcon> images_;
    QStringList keys_;
};

} // namespace platform
