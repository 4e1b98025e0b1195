// The show's window and how the user steers it: the arrow keys step, the right
// button pauses and resumes, any other key and the left button leave.
#include "viewer/frmScreen.h"

#include "platform/core/Error.h"
#include "platform/widgets/ControlEvents.h"
#include "platform/widgets/Desktop.h"
#include "platform/widgets/Screen.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>

namespace {

constexpr int vbKeyLeft = 37;
constexpr int vbKeyRight = 39;
constexpr int vbLeftButton = 1;
constexpr int vbRightButton = 2;

} // namespace

void frmScreen::createControls()
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setContextMenuPolicy(Qt::NoContextMenu);
    setFocusPolicy(Qt::StrongFocus);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    setAutoFillBackground(true);

    // Mouse events stop at each control, so that a click on the picture or the band
    // isn't a click on the background too.
    IMGMAIN = new PictureLabel(clientArea());
    IMGMAIN->setObjectName(QStringLiteral("IMGMAIN"));
    IMGMAIN->setAttribute(Qt::WA_NoMousePropagation);
    IMGMAIN->resize(0, 0);
    platform::Screen::applyPointer(IMGMAIN, 99);

    LBLDESC = new QLabel(clientArea());
    LBLDESC->setObjectName(QStringLiteral("LBLDESC"));
    LBLDESC->setAttribute(Qt::WA_NoMousePropagation);
    LBLDESC->setTextFormat(Qt::PlainText);
    LBLDESC->setAlignment(Qt::AlignCenter);
    LBLDESC->setFont(QFont(QStringLiteral("Arial"), 18, QFont::Normal));
    QPalette band = LBLDESC->palette();
    band.setColor(QPalette::Window, Qt::black);
    band.setColor(QPalette::WindowText, QColor(255, 255, 128));
    LBLDESC->setPalette(band);
    LBLDESC->setAutoFillBackground(true);
    LBLDESC->resize(0, platform::Screen::pixelsY(BandHeight));
    LBLDESC->raise();

    TMRPICS = new QTimer(this);
    TMRPICS->setInterval(Interval);
    TMRPICS->start();
}

// The show covers the whole screen that the main window is on, taskbars and panels
// included: full screen, and maximized as far as the form's state goes.
void frmScreen::coverScreen()
{
    QScreen* target = Forms::mainForm() ? Forms::mainForm()->screen() : QGuiApplication::primaryScreen();
    if (target)
        setGeometry(target->geometry());
    QWidget::setWindowState(Qt::WindowMaximized | Qt::WindowFullScreen);
}

// The show has neither a task bar entry nor a window icon.
void frmScreen::showEvent(QShowEvent* event)
{
    Form::showEvent(event);
    platform::desktop::keepOffTaskbar(this);
    // The toolkit has given the window the program's icon; it comes off once
    // the window is mapped.
    QTimer::singleShot(0, this, [this] { platform::desktop::removeWindowIcon(this); });
    activateWindow();
    setFocus(Qt::ActiveWindowFocusReason);
}

void frmScreen::connectEvents()
{
    connect(TMRPICS, &QTimer::timeout, this, platform::guarded(this, &frmScreen::TMRPICS_Timer));
    connect(IMGMAIN, &PictureLabel::painted, this, [this] { pictures_->startDecoding(); });

    // A key acts on its release, and only if it was pressed in the show: the release
    // of the key that started it belongs to the main window.
    auto* form = new platform::ControlEvents(this);
    connect(form, &platform::ControlEvents::KeyDown, this,
            platform::guarded([this](int keyCode, int) { keysDown_.insert(keyCode); }));
    connect(form, &platform::ControlEvents::KeyUp, this, platform::guarded([this](int keyCode, int shift) {
                if (keysDown_.remove(keyCode))
                    Form_KeyUp(keyCode, shift);
            }));
    connect(form, &platform::ControlEvents::MouseUp, this, platform::guarded(this, &frmScreen::Form_MouseUp));

    auto* picture = new platform::ControlEvents(IMGMAIN);
    connect(picture, &platform::ControlEvents::MouseUp, this,
            platform::guarded(this, &frmScreen::IMGMAIN_MouseUp));

    // The band's Click comes after its MouseUp, from the left button released over
    // the band: a right click there only pauses.
    auto* band = new platform::ControlEvents(LBLDESC);
    connect(band, &platform::ControlEvents::MouseUp, this,
            platform::guarded([this](int button, int shift, float x, float y) {
                LBLDESC_MouseUp(button, shift, x, y);
                const QPointF at(x / platform::Screen::TwipsPerPixelX(),
                                 y / platform::Screen::TwipsPerPixelY());
                if (button == vbLeftButton && QRectF(LBLDESC->rect()).contains(at))
                    LBLDESC_Click();
            }));
}

void frmScreen::Form_KeyUp(int KeyCode, int)
{
    if (KeyCode == vbKeyRight)
        stepForward();
    else if (KeyCode == vbKeyLeft)
        stepBackward();
    else
        leave();
}

// Unlike the timed step, a key step doesn't drop PICNUM to 0 after the last
// picture; the next tick does.
//
// A key step ends by returning to the event loop that delivered the key, which
// handles what came in meanwhile just as a yield would. It doesn't yield in place:
// an event handled there could unload the form and have it deleted while the key
// is still being delivered to it.
void frmScreen::stepForward()
{
    restartTimer();
    IMGMAIN->hide();
    PICNUM = PICNUM + 1;
    if (PICNUM > PICCOUNT)
        PICNUM = 1;
    SHOWPICTURE();
}

// After a wrap PICNUM is 0, so the first step back brings the last picture, the
// one on the screen already.
void frmScreen::stepBackward()
{
    restartTimer();
    PICNUM = PICNUM - 1;
    IMGMAIN->hide();
    if (PICNUM < 1)
        PICNUM = PICCOUNT;
    SHOWPICTURE();
}

void frmScreen::Form_MouseUp(int Button, int, float, float)
{
    buttonUp(Button, true);
}

void frmScreen::IMGMAIN_MouseUp(int Button, int, float, float)
{
    buttonUp(Button, false);
}

void frmScreen::LBLDESC_MouseUp(int Button, int, float, float)
{
    buttonUp(Button, false);
}

// Other buttons do nothing.
void frmScreen::buttonUp(int Button, bool onBackground)
{
    if (Button == vbLeftButton)
        leave();
    else if (Button == vbRightButton)
        togglePause(onBackground);
}

void frmScreen::LBLDESC_Click()
{
    leave();
}

// The caption changes before the state. Only a resume from the background restarts
// the timer; from the picture or the band the next tick comes when it is due.
void frmScreen::togglePause(bool onBackground)
{
    if (PAUSED) {
        LBLDESC->setText(captionText(false));
        PAUSED = false;
        if (onBackground)
            restartTimer();
    } else {
        LBLDESC->setText(captionText(true));
        PAUSED = true;
    }
}

void frmScreen::leave()
{
    Forms::unload<frmScreen>();
}
