#pragma once

#include <QFrame>

class QSizeGrip;

namespace zuv {

// The panel along the bottom of a dialog, under its buttons. It spans its
// container's width and keeps to its bottom edge whenever the container changes
// size; its height is its own, 645 twips unless set. With dialogresize on, a
// size grip in its bottom right corner sizes the window, as a resizable dialog
// has one; a window that can't be sized, or is maximized, has it off.
class PANEL : public QFrame {
    Q_OBJECT
    Q_PROPERTY(bool dialogresize READ dialogresize WRITE setDialogresize)

public:
    explicit PANEL(QWidget* parent = nullptr);

    bool dialogresize() const { return dialogResize_; }
    void setDialogresize(bool on);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void keepToBottom();
    void placeGrip();

    QSizeGrip* grip_;
    bool dialogResize_ = false;
};

} // namespace zuv
