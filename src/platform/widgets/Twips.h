#pragma once

class QWidget;

namespace platform {

// The place and size of any control in twips, in its container's coordinates, as
// the forms' layout arithmetic works with them. The widget itself lives in whole
// pixels; the twips last set are kept beside it, so that a value set reads back
// unchanged for as long as the widget stays at the pixel it was put on.
//
// A negative width or height is refused with "Invalid property value" and the
// control keeps its size, so a layout step that would need one is skipped.
class Twips {
public:
    explicit Twips(QWidget* control) : control_(control) {}

    float Left() const;
    float Top() const;
    float Width() const;
    float Height() const;

    void setLeft(float twips);
    void setTop(float twips);
    void setWidth(float twips);
    void setHeight(float twips);
    void Move(float left, float top, float width, float height);

private:
    QWidget* control_;
};

inline Twips twips(QWidget* control)
{
    return Twips(control);
}

} // namespace platform
