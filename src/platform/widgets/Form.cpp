#include "platform/widgets/Form.h"

#include "platform/widgets/Screen.h"

#include <QAction>
#include <QCloseEvent>
#include <QEventLoop>
#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWindow>

using platform::Screen::pixelsX;
using platform::Screen::pixelsY;
using platform::Screen::twipsX;
using platform::Screen::twipsY;

Form::Form(const QString& name, QWidget* parent) : QMainWindow(parent)
{
    setObjectName(name);
    auto* client = new QWidget(this);
    client->setObjectName(name + QStringLiteral("_client"));
    setCentralWidget(client);
    client->installEventFilter(this);
}

// A form shown modally over another becomes that window's child and goes with it
// when it is destroyed; it must not stay behind in the registry.
Form::~Form()
{
    Forms::forget(this);
}

// Outer geometry: frameGeometry once the window has a frame, else the widget's
// own geometry (offscreen and before the first show they are the same).
float Form::Left() const
{
    return twipsX(frameGeometry().x());
}
float Form::Top() const
{
    return twipsY(frameGeometry().y());
}
float Form::Width() const
{
    return twipsX(frameGeometry().width());
}
float Form::Height() const
{
    return twipsY(frameGeometry().height());
}

void Form::setLeft(float twips)
{
    placeFrame(QPoint(pixelsX(twips), pos().y()));
}
void Form::setTop(float twips)
{
    placeFrame(QPoint(pos().x(), pixelsY(twips)));
}

// A place is the place of the frame. The toolkit takes it so for a window that
// it hasn't made yet; a window made but not shown (a control of the form may make
// it early) would put its inner area there instead, and the window manager would
// frame it around that place, one title bar lower.
void Form::placeFrame(QPoint place)
{
    move(place);
    if (QWindow* window = windowHandle(); window && !isVisible())
        window->setFramePosition(place);
}

// Until the window manager has framed the window, its frame counts as nothing:
// the size asked for is kept, and the frame comes off it once it is known, so
// that a size read from one run is the outer size in the next run too.
void Form::setWidth(float twips)
{
    const int frameExtra = frameGeometry().width() - width();
    const int outer = pixelsX(twips);
    resize(std::max(0, outer - frameExtra), height());
    pendingOuterWidth_ = frameExtra == 0 ? outer : -1;
}

void Form::setHeight(float twips)
{
    const int frameExtra = frameGeometry().height() - height();
    const int outer = pixelsY(twips);
    resize(width(), std::max(0, outer - frameExtra));
    pendingOuterHeight_ = frameExtra == 0 ? outer : -1;
}

// The frame of a window not yet framed: the frame of the program's main window
// stands in for it, as the window manager frames the program's windows alike.
QSize Form::expectedFrameExtra() const
{
    const QSize own = frameGeometry().size() - size();
    if (!own.isNull())
        return own;
    const Form* main = Forms::mainForm();
    if (main && main != this && main->isVisible())
        return main->frameGeometry().size() - main->size();
    return own;
}

void Form::centreOnScreen()
{
    centrePending_ = true;
    centre();
}

void Form::centre()
{
    const QScreen* target = screen();
    if (!target)
        return;
    const QSize outer = size() + expectedFrameExtra();
    placeFrame(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, outer, target->geometry()).topLeft());
}

// Once the window manager has framed the shown window, its frame is known: a
// form to be centred is centred by it, and an outer size asked for before loses it.
void Form::settleFrame()
{
    if (!isVisible())
        return;
    const QSize frameExtra = frameGeometry().size() - size();
    if (frameExtra.isNull())
        return;
    if (centrePending_) {
        // Cleared first: the move comes back here.
        centrePending_ = false;
        centre();
    }
    if (pendingOuterWidth_ < 0 && pendingOuterHeight_ < 0)
        return;
    const int w = pendingOuterWidth_ < 0 ? width() : std::max(0, pendingOuterWidth_ - frameExtra.width());
    const int h = pendingOuterHeight_ < 0 ? height() : std::max(0, pendingOuterHeight_ - frameExtra.height());
    // Cleared first: the resize comes back here.
    pendingOuterWidth_ = pendingOuterHeight_ = -1;
    if (WindowState() == 0)
        resize(w, h);
}

void Form::Move(float left, float top, float width, float height)
{
    setLeft(left);
    setTop(top);
    setWidth(width);
    setHeight(height);
}

QWidget* Form::clientArea() const
{
    return centralWidget();
}

// A form that hasn't been shown yet has not laid out its client area; the
// arithmetic of its load needs the real inner size all the same.
QSize Form::clientSize() const
{
    if (!testAttribute(Qt::WA_WState_Visible) && layout())
        layout()->activate();
    return clientArea()->size();
}

float Form::ScaleWidth() const
{
    return twipsX(clientSize().width());
}
float Form::ScaleHeight() const
{
    return twipsY(clientSize().height());
}

int Form::WindowState() const
{
    if (windowState() & Qt::WindowMinimized)
        return 1;
    if (windowState() & Qt::WindowMaximized)
        return 2;
    return 0;
}

void Form::setWindowState(int state)
{
    switch (state) {
    case 1: QMainWindow::setWindowState(Qt::WindowMinimized); break;
    case 2: QMainWindow::setWindowState(Qt::WindowMaximized); break;
    default: QMainWindow::setWindowState(Qt::WindowNoState); break;
    }
}

void Form::Show(int modal, Form* owner)
{
    if (modal == 0) {
        show();
        return;
    }
    if (owner && owner != this && parentWidget() != owner) {
        // A modal form stays above its owner: make it a child window of it. The
        // window is made anew, and its place is still the place of its frame.
        setParent(owner, windowFlags() | Qt::Window);
        placeFrame(pos());
    }
    setWindowModality(Qt::ApplicationModal);
    QPointer<Form> self(this);
    QEventLoop loop;
    connect(this, &Form::hidden, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    show();
    QPointer<Form> returnTo(owner);
    loop.exec();
    if (self)
        setWindowModality(Qt::NonModal);
    // The owner takes the keyboard back, as it had it before.
    if (returnTo && returnTo->isVisible())
        returnTo->activateWindow();
}

void Form::Hide()
{
    hide();
}

void Form::makeFixedDialog(float innerWidth, float innerHeight)
{
    fixedDialog_ = true;
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setFixedSize(pixelsX(innerWidth), pixelsY(innerHeight));
    clientArea()->resize(size());
}

// A push button is the default button only inside a dialog of the toolkit's own;
// forms bind the keys themselves.
void Form::setCloseButton(QPushButton* button)
{
    button->setDefault(true);
    auto* keys = new QAction(button);
    keys->setShortcuts({Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter});
    keys->setShortcutContext(Qt::WindowShortcut);
    connect(keys, &QAction::triggered, button, &QPushButton::click);
    addAction(keys);
}

void Form::setMousePointer(int code)
{
    pointer_ = code;
    platform::Screen::applyPointer(this, code);
}

bool Form::event(QEvent* event)
{
    const bool handled = QMainWindow::event(event);
    // The frame becomes known when the shown window is first placed or sized.
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Move:
    case QEvent::Resize: settleFrame(); break;
    default: break;
    }
    return handled;
}

bool Form::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == centralWidget() && event->type() == QEvent::Resize)
        Form_Resize();
    return QMainWindow::eventFilter(watched, event);
}

// A fixed dialog can't be minimized. A window manager that offers to all the
// same (openbox does for every dialog, and takes the owner along) gets the
// dialog, and with it the owner, back at once.
void Form::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (fixedDialog_ && event->type() == QEvent::WindowStateChange && (windowState() & Qt::WindowMinimized)) {
        QTimer::singleShot(0, this, [this] {
            setWindowState(0);
            activateWindow();
        });
    }
}

void Form::closeEvent(QCloseEvent* event)
{
    event->accept();
    Forms::unload(this);
}

void Form::hideEvent(QHideEvent* event)
{
    QMainWindow::hideEvent(event);
    // A window that the window manager minimizes is hidden without being closed:
    // a modal form shown over its owner stays modal.
    if (!event->spontaneous())
        emit hidden();
}

std::unordered_map<std::type_index, Form*>& Forms::registry()
{
    static std::unordered_map<std::type_index, Form*> forms;
    return forms;
}

Form* Forms::find(std::type_index type)
{
    auto it = registry().find(type);
    return it == registry().end() ? nullptr : it->second;
}

void Forms::load(std::type_index type, Form* form)
{
    registry()[type] = form;
    form->Form_Load();
}

void Forms::unload(std::type_index type)
{
    auto it = registry().find(type);
    if (it == registry().end())
        return;
    Form* form = it->second;
    registry().erase(it);
    if (form == Forms::mainForm())
        Forms::setMainForm(nullptr);
    form->Form_Unload();
    form->hide();
    // The form may be unloading from inside one of its own handlers.
    form->deleteLater();
}

void Forms::forget(Form* form)
{
    std::erase_if(registry(), [form](const auto& entry) { return entry.second == form; });
    if (form == mainForm_)
        mainForm_ = nullptr;
}

void Forms::unload(Form* form)
{
    for (const auto& [type, loaded] : registry()) {
        if (loaded == form) {
            unload(type);
            return;
        }
    }
}
