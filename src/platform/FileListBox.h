#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace platform {

// The hidden file list: the names of the regular files of one folder that match a
// pattern, sorted by name. Never shown; the found list is filled from it.
class FileListBox {
public:
    // The folder; always without a trailing separator, except for the root "/".
    // Setting a folder that can't be listed throws Error(PathNotFound) and keeps
    // the old folder and its list.
    QString Path() const { return path_; }
    void setPath(const QString& path);

    // Patterns separated by ';', such as "*.bmp;*.jpg;*.gif", matched against the
    // bare name without regard to case. Setting it lists the folder anew.
    QString Pattern() const { return pattern_; }
    void setPattern(const QString& pattern);

    // At most 32,767 names are kept, the count being 16-bit.
    int16_t ListCount() const;
    // The bare file name of entry i, from 0; out of range throws SubscriptOutOfRange.
    QString List(int i) const;

    // Lists the folder again; throws as setPath does.
    void Refresh();

private:
    QString path_;
    QString pattern_ = QStringLiteral("*.*");
    QStringList names_;
};

} // namespace platform
