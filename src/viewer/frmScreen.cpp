// The slideshow engine: start, the timed step, what one step shows and where.
#include "viewer/frmScreen.h"

#include "platform/Conversions.h"
#include "platform/Error.h"
#include "platform/Picture.h"
#include "platform/Screen.h"
#include "settings/clsLibrary.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QtMath>

using platform::resumeNext;

namespace {

// The album as the main window stores it.
QString albumCountKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Items");
}
QString albumSlotsKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Selection");
}

QString readAlbum(const QString& key, const QString& item, const QString& defaultValue)
{
    return clsLibrary::instance().REGSTRREAD(clsLibrary::currentUserKey(), key, item, defaultValue);
}

// A child control placed in twips on the form.
void setControlLeft(QWidget* control, float twips)
{
    control->move(qRound(twips / platform::Screen::TwipsPerPixelX()), control->y());
}

void setControlTop(QWidget* control, float twips)
{
    control->move(control->x(), qRound(twips / platform::Screen::TwipsPerPixelY()));
}

void setControlWidth(QWidget* control, float twips)
{
    control->resize(qRound(twips / platform::Screen::TwipsPerPixelX()), control->height());
}

} // namespace

frmScreen::frmScreen() : Form(QStringLiteral("frmScreen"))
{
    createControls();
    connectEvents();
    coverScreen();
}

frmScreen::~frmScreen() = default;

void frmScreen::Form_Load()
{
    if (Form* main = Forms::mainForm())
        main->Hide();
    PAUSED = false;
    setControlLeft(LBLDESC, 0);
    setControlWidth(LBLDESC, ScaleWidth());
    setControlTop(LBLDESC, ScaleHeight() - BandHeight);
    // The first interval counts from here.
    restartTimer();
    // A count that isn't a number or doesn't fit 16 bits leaves PICCOUNT at 0.
    resumeNext([&] {
        PICCOUNT =
            platform::toInt16(readAlbum(albumCountKey(), QStringLiteral("Items"), QStringLiteral("0")));
    });
    PICNUM = 0;
    // Top and left 0 of the screen that the show covers.
    move(screen()->geometry().topLeft());
    advance();
}

// The timer goes on ticking while the show is paused; its ticks change nothing.
void frmScreen::TMRPICS_Timer()
{
    if (PAUSED)
        return;
    advance();
}

// The timed step from the hiding of the picture on. Right after the last picture
// PICNUM drops to 0, so the caption still reads N of N while the next tick brings
// picture 1. The period stays the timer's own: nothing restarts it here.
void frmScreen::advance()
{
    IMGMAIN->hide();
    if (PICNUM > PICCOUNT - 1)
        PICNUM = 0;
    PICNUM = PICNUM + 1;
    SHOWPICTURE();
    if (PICNUM > PICCOUNT - 1)
        PICNUM = 0;
    // The key and mouse events that came in during the step run now. One of them may
    // unload the form, and its deletion may happen in here: nothing touches the form
    // after this.
    QCoreApplication::processEvents();
}

// A slot that is blank, absent (it reads "1") or names a file that has gone keeps
// the previous picture and name; a file that is there but can't be decoded keeps
// the previous picture under the new name.
void frmScreen::SHOWPICTURE()
{
    resumeNext([&] { PICPATH = readAlbum(albumSlotsKey(), QString::number(PICNUM), QStringLiteral("1")); });
    bool exists = false;
    resumeNext([&] { exists = clsLibrary::instance().FILEEXISTS(PICPATH); });
    if (exists) {
        resumeNext([&] { setPicture(platform::LoadPicture(PICPATH)); });
        FINDNAME();
    }
    SETCAPTION();
    PLACECONTROLS();
    IMGMAIN->show();
    // The hourglass of the run command ends here: the pointer is hidden everywhere.
    platform::Screen::setMousePointer(99);
    setMousePointer(99);
}

// One image pixel on one device pixel: on a scaled screen the pixmap carries the
// screen's ratio, and the control takes the picture's size in device-independent
// pixels.
void frmScreen::setPicture(QImage image)
{
    QPixmap pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    const QSizeF size = pixmap.deviceIndependentSize();
    IMGMAIN->setPixmap(pixmap);
    IMGMAIN->resize(qCeil(size.width()), qCeil(size.height()));
    pictureWidth_ = static_cast<float>(size.width()) * platform::Screen::TwipsPerPixelX();
    pictureHeight_ = static_cast<float>(size.height()) * platform::Screen::TwipsPerPixelY();
}

// The file name without its extension, found from the end of the path. Only
// three- and four-letter extensions are recognised; with any other, the search runs
// on to the left and the name keeps the folders it passes, up to the one behind
// the leftmost separator that it reaches (the path's first character is never
// looked at). A path without a separator stays whole.
void frmScreen::FINDNAME()
{
    NAMESCAN = 0;
    PICNAME = PICPATH;
    while (NAMESCAN < PICPATH.size()) {
        if (PICPATH.right(NAMESCAN).startsWith(QLatin1Char('/'))) {
            PICNAME = PICPATH.right(NAMESCAN - 1);
            // A dot four from the end: a three-letter extension; five: four letters.
            for (const int tail : {4, 5}) {
                if (PICPATH.right(tail).startsWith(QLatin1Char('.'))) {
                    const int length = NAMESCAN - 1 - tail;
                    // A cut of negative length fails and leaves the name as it is.
                    if (length >= 0)
                        PICNAME = PICNAME.left(length);
                    return;
                }
            }
        }
        NAMESCAN = static_cast<int16_t>(NAMESCAN + 1);
    }
}

QString frmScreen::captionText(bool paused) const
{
    const QString text = PICNAME + QStringLiteral(" (") + QString::number(PICNUM) + QStringLiteral(" of ") +
                         QString::number(PICCOUNT) + QStringLiteral(")");
    return paused ? QStringLiteral("<<Paused>> ") + text : text;
}

void frmScreen::SETCAPTION()
{
    LBLDESC->setText(captionText(PAUSED));
}

// The band spans the bottom of the form. The picture is centred on the whole
// screen, not on the room above the band, by an exact halving in twips: a picture
// larger than the screen gets a negative left or top and is cut equally on both
// sides.
void frmScreen::PLACECONTROLS()
{
    setControlWidth(LBLDESC, ScaleWidth());
    setControlTop(LBLDESC, ScaleHeight() - BandHeight);
    setControlTop(IMGMAIN, (platform::Screen::Height() - pictureHeight_) / 2.0f);
    setControlLeft(IMGMAIN, (platform::Screen::Width() - pictureWidth_) / 2.0f);
}

void frmScreen::Form_Resize()
{
    PLACECONTROLS();
}

void frmScreen::Form_Unload()
{
    if (Form* main = Forms::mainForm())
        main->Show();
    platform::Screen::setMousePointer(0);
    if (Form* main = Forms::mainForm())
        main->setMousePointer(0);
    TMRPICS->stop();
}

// Starting a running timer starts its interval anew.
void frmScreen::restartTimer()
{
    TMRPICS->start();
}
