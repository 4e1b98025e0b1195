#pragma once

#include <QToolBar>

namespace platform {

class ImageList;

// A toolbar of image buttons reached by key. Each button keeps a Description (the
// caption of its command, for the status bar) and shows its tip as a tool tip.
// Buttons don't take the keyboard focus, so a list keeps it while one is clicked.
class Toolbar : public QToolBar {
    Q_OBJECT
public:
    explicit Toolbar(const ImageList* images, QWidget* parent = nullptr);

    QAction* addButton(const QString& key, const QString& description, const QString& tip,
                       const QString& imageKey);
    QAction* Buttons(const QString& key) const;
    static QString Description(const QAction* button);

signals:
    void ButtonClick(const QString& key);

private:
    const ImageList* images_;
};

} // namespace platform
