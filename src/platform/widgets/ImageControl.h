#pragma once

#include <QImage>
#include <QWidget>

namespace platform {

// An image control with stretching on: it shows its picture scaled to its own
// size, whatever that is, so resizing the control zooms the picture without
// drawing it again. It takes no focus; mouse events go to ControlEvents as on
// any control.
class ImageControl : public QWidget {
    Q_OBJECT
public:
    explicit ImageControl(QWidget* parent = nullptr);

    QImage Picture() const { return picture_; }
    // A copy of the bitmap; an empty image clears the control.
    void setPicture(const QImage& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture_;
};

} // namespace platform
