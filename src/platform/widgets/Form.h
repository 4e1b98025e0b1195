#pragma once

#include <QMainWindow>

class QPushButton;

namespace platform {
class ImageList;
}

#include <functional>
#include <typeindex>
#include <unordered_map>

// The base of every window of the program. A form measures in twips (1440 to the
// inch) as the layout arithmetic expects; the widget's geometry is set in pixels
// through Screen's twips-per-pixel. The form's client area, in which ScaleWidth
// and ScaleHeight are measured, is the central widget below the menu bar.
class Form : public QMainWindow {
    Q_OBJECT
public:
    explicit Form(const QString& name, QWidget* parent = nullptr);
    ~Form() override;

    // Runs once when the registry loads the form, and once when it unloads it.
    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    // Runs at each change of the client area's size.
    virtual void Form_Resize() {}

    QString Name() const { return objectName(); }

    // Whether the form's menu items are described from its own menus rather than
    // from those of the window whose status line shows the description (a popup
    // menu's form, the print preview). Off by default.
    bool describesOwnMenus() const { return describesOwnMenus_; }
    void setDescribesOwnMenus(bool own) { describesOwnMenus_ = own; }
    // Whether the form is a print preview with a status line of its own, which
    // describes commands while the preview is on the screen. Off by default.
    bool isPrintPreview() const { return printPreview_; }
    void setPrintPreview(bool preview) { printPreview_ = preview; }

    // The form's image list (IMGLST), for menus and toolbars; none by default.
    virtual const platform::ImageList* imageList() const { return nullptr; }

    // Outer placement in twips, measured from the screen's top left corner.
    float Left() const;
    float Top() const;
    float Width() const;
    float Height() const;
    void setLeft(float twips);
    void setTop(float twips);
    void setWidth(float twips);
    void setHeight(float twips);
    void Move(float left, float top, float width, float height);

    // The client area in twips.
    float ScaleWidth() const;
    float ScaleHeight() const;
    QWidget* clientArea() const;

    // 0 normal, 1 minimized, 2 maximized.
    int WindowState() const;
    void setWindowState(int state);

    // modal 1 shows the form modally and returns once it is hidden or unloaded.
    void Show(int modal = 0, Form* owner = nullptr);
    void Hide();

    // A fixed dialog with an inner size in twips: a title and a close box, no
    // minimize or maximize button, and as a window of its owner no task bar entry.
    void makeFixedDialog(float innerWidth, float innerHeight);
    // Places the form's frame in the middle of its screen, and once more when the
    // window manager has framed the window and its frame is known.
    void centreOnScreen();
    // The button that is default and cancel at once: Enter and Esc press it.
    void setCloseButton(QPushButton* button);

    // Pointer codes: 0 default, 11 hourglass (others as Screen maps them).
    int MousePointer() const { return pointer_; }
    void setMousePointer(int code);

signals:
    void hidden();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void placeFrame(QPoint place);
    QSize expectedFrameExtra() const;
    void centre();
    void settleFrame();
    QSize clientSize() const;

    int pointer_ = 0;
    // An outer size in pixels asked for before the window manager had framed the
    // window, -1 if none: the frame is taken off once its size is known.
    int pendingOuterWidth_ = -1;
    int pendingOuterHeight_ = -1;
    // To be centred again once the frame is known.
    bool centrePending_ = false;
    bool fixedDialog_ = false;
    bool describesOwnMenus_ = false;
    bool printPreview_ = false;
};

// The single shared instance of each form: loaded (and Form_Load run) on first
// touch, unloaded explicitly (Form_Unload run, then destroyed).
class Forms {
public:
    template <typename T> static T& get()
    {
        if (Form* existing = find(typeid(T)))
            return static_cast<T&>(*existing);
        T* form = new T();
        load(typeid(T), form);
        return *form;
    }

    template <typename T> static bool isLoaded() { return find(typeid(T)) != nullptr; }

    // Unloading a form that isn't loaded does nothing.
    template <typename T> static void unload() { unload(typeid(T)); }

    // Unloads the form whatever its type; used when the user closes its window.
    static void unload(Form* form);

    // The program's start form, whose life is the program's. Other subsystems reach
    // it through here instead of naming its class (the viewer hides and shows it).
    static Form* mainForm() { return mainForm_; }
    static void setMainForm(Form* form) { mainForm_ = form; }

private:
    friend class Form;
    // A form destroyed with its owner, while still loaded, leaves the registry.
    static void forget(Form* form);
    static Form* find(std::type_index type);
    static void load(std::type_index type, Form* form);
    static void unload(std::type_index type);
    static std::unordered_map<std::type_index, Form*>& registry();
    static inline Form* mainForm_ = nullptr;
};
