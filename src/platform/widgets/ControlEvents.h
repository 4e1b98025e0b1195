#pragma once

#include <QObject>

class QWidget;

namespace platform {

// The events that the forms handle on their controls, as the form runtime raises
// them: focus gained and lost (not when a menu or another window only borrows the
// focus), keys with their key code and shift state, mouse button release with the
// button (1 left, 2 right, 4 middle) and position in twips inside the control, and
// the double click. Attach one to a control; it watches the control's viewport too.
class ControlEvents : public QObject {
    Q_OBJECT
public:
    explicit ControlEvents(QWidget* control);

signals:
    void GotFocus();
    void LostFocus();
    void KeyDown(int keyCode, int shift);
    void KeyUp(int keyCode, int shift);
    void MouseDown(int button, int shift, float x, float y);
    void MouseMove(int button, int shift, float x, float y);
    void MouseUp(int button, int shift, float x, float y);
    void DblClick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* control_;
};

} // namespace platform
