#pragma once

#include <QLabel>
#include <QPixmap>
#include <QPoint>

// The show's picture control: a label as large as the whole picture at its
// natural size that holds only the part of the picture a screen can show, and
// paints that part where it lies in the picture. What is on the screen is the
// same as with the whole picture in the label.
class PictureLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

    // `part` holds the picture's pixels from `origin` on, in the picture's own
    // (device) pixels; its device pixel ratio is the screen's.
    void setPart(const QPixmap& part, QPoint origin);
    QPoint partOrigin() const { return origin_; }

signals:
    // The picture has been painted.
    void painted();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPoint origin_;
};
