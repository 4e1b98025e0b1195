#pragma once

#include <QToolBar>

namespace platform {

class ImageList;

// A toolbar of image buttons reached by key. Each button keeps a Description (the
// caption of its command, for the status bar) and shows its tip as a tool tip.
// Buttons don't take the keyboard focus, so a list keeps it while one is clicked.
// The pointer's moves over the buttons, separators and other items of the bar
// reach the bar, as they would on a bar that draws its buttons itself, so that
// a MouseMove of the bar tells which button the pointer is on.
class Toolbar : public QToolBar {
    Q_OBJECT
public:
    explicit Toolbar(const ImageList* images, QWidget* parent = nullptr);

    QAction* addButton(const QString& key, const QString& description, const QString& tip,
                       const QString& imageKey);
    QAction* Buttons(const QString& key) const;
    static QString Description(const QAction* button);

    // The bar's rectangle in pixels from the outer top left corner of its window,
    // all four edges inside the bar: where the pointer keeps a button's
    // description on view. Taken from where the bar stands now, as wide and as
    // tall as the toolkit and the window manager made it.
    QRect rectInWindowFrame() const;

signals:
    void ButtonClick(const QString& key);

protected:
    void actionEvent(QActionEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const ImageList* images_;
};

} // namespace platform
