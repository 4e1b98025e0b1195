#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

namespace platform {

// Images by key, shared by a form's toolbar, menus and lists.
class ImageList {
public:
    void add(const QString& key, const QIcon& icon) { images_.insert(key, icon); }
    QIcon image(const QString& key) const { return images_.value(key); }
    bool contains(const QString& key) const { return images_.contains(key); }

private:
    QHash<QString, QIcon> images_;
};

} // namespace platform
