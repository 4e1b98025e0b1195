#pragma once

#include <QFrame>
#include <QImage>

namespace platform {

// A picture box: a framed box in the window colour that holds one picture at its
// natural size (one image pixel on one device pixel) from its top left corner,
// cut off at the right and bottom when the box is smaller. Instead of a picture
// it can hold a line of text, such as why a picture can't be shown.
class PictureBox : public QFrame {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent = nullptr);

    QImage Picture() const { return picture_; }
    void setPicture(const QImage& picture);
    QString message() const { return message_; }
    void setMessage(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture_;
    QString message_;
};

} // namespace platform
