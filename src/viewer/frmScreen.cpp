// The slideshow engine: start, the timed step, what one step shows and where, and
// the pictures decoded ahead for the steps to come.
#include "viewer/frmScreen.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/core/Picture.h"
#include "platform/widgets/Screen.h"
#include "settings/StoreAndFileServices.h"

#include <QCoreApplication>
#include <QGuiApplication>
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
    return StoreAndFileServices::programKey() + QStringLiteral("\\fPICTURES\\Items");
}
QString albumSlotsKey()
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\fPICTURES\\Selection");
}

QString readAlbum(const QString& key, const QString& item, const QString& defaultValue)
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), key, item,
                                                       defaultValue);
}

// The worker converts with the twips per pixel it was given, not the screen's.
int toPixels(float twips, float twipsPerPixel)
{
    return qRound(twips / twipsPerPixel);
}

// A child control placed in twips on the form.
void setControlLeft(QWidget* control, float twips)
{
    control->move(platform::Screen::pixelsX(twips), control->y());
}

void setControlTop(QWidget* control, float twips)
{
    control->move(control->x(), platform::Screen::pixelsY(twips));
}

void setControlWidth(QWidget* control, float twips)
{
    control->resize(platform::Screen::pixelsX(twips), control->height());
}

// Where a picture starts that is centred on the whole screen: an exact halving in
// twips, negative for a picture larger than the screen.
float centred(float screenTwips, float pictureTwips)
{
    return (screenTwips - pictureTwips) / 2.0f;
}

// How long the decodes ahead wait for the picture of a step to be painted.
constexpr int PrefetchFallbackMs = 250;

// What a screen may show beyond the part of a picture it shows at the moment
// (rounding between twips, pixels and device pixels), in device pixels.
constexpr int PartMargin = 2;

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
    resumeNext([&] { exists = StoreAndFileServices::instance().FILEEXISTS(PICPATH); });
    if (exists) {
        resumeNext([&] { setPicture(PICPATH, pictures_->load(PICPATH, visiblePart())); });
        FINDNAME();
    }
    SETCAPTION();
    PLACECONTROLS();
    IMGMAIN->show();
    // The hourglass of the run command ends here: the pointer is hidden everywhere.
    platform::Screen::setMousePointer(99);
    setMousePointer(99);
    // Nothing on the screen changes from here.
    prefetchAround();
}

// One image pixel on one device pixel: on a scaled screen the pixmap carries the
// screen's ratio, and the control takes the picture's size in device-independent
// pixels. The control holds only the part of the picture a screen can show.
void frmScreen::setPicture(const QString& path, platform::PicturePart picture)
{
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap = QPixmap::fromImage(picture.image);
    // Short of memory the conversion gives nothing: the previous picture stays up.
    if (pixmap.isNull() && !picture.part.isEmpty())
        throw platform::Error(platform::err::OutOfMemory);
    pixmap.setDevicePixelRatio(ratio);
    const QSizeF size = QSizeF(picture.size) / ratio;
    IMGMAIN->setPart(pixmap, picture.part.topLeft());
    IMGMAIN->resize(qCeil(size.width()), qCeil(size.height()));
    pictureWidth_ = platform::Screen::twipsX(size.width());
    pictureHeight_ = platform::Screen::twipsY(size.height());
    shown_ = std::move(picture);
    shownPath_ = path;
}

// The part of a picture of a natural size (device pixels) that the show can put on
// a screen: the picture centred as PLACECONTROLS centres it, seen through the
// largest screen there is. The function keeps copies of all it needs, so that the
// worker can call it.
PicturePrefetch::Keep frmScreen::visiblePart() const
{
    const float screenWidth = platform::Screen::Width();
    const float screenHeight = platform::Screen::Height();
    const float tx = platform::Screen::TwipsPerPixelX();
    const float ty = platform::Screen::TwipsPerPixelY();
    const qreal ratio = devicePixelRatioF();
    QSize room = clientArea()->size();
    for (const QScreen* each : QGuiApplication::screens())
        room = room.expandedTo(each->size());
    return [=](QSize natural) {
        const QSizeF size = QSizeF(natural) / ratio;
        const int left = toPixels(centred(screenWidth, static_cast<float>(size.width()) * tx), tx);
        const int top = toPixels(centred(screenHeight, static_cast<float>(size.height()) * ty), ty);
        const QRectF seen(-left * ratio, -top * ratio, room.width() * ratio, room.height() * ratio);
        return seen.toAlignedRect().adjusted(-PartMargin, -PartMargin, PartMargin, PartMargin) &
               QRect(QPoint(), natural);
    };
}

// Decodes ahead the pictures that the next step forward and the next step back
// will ask for, and keeps the one on the screen. Invisible: a failure here only
// leaves the steps to load their pictures themselves. The worker starts once the
// step's picture is up, so that it never competes with the step itself.
void frmScreen::prefetchAround()
{
    resumeNext([&] {
        const int32_t next = PICNUM >= PICCOUNT ? 1 : PICNUM + 1;
        const int32_t previous = PICNUM <= 1 ? PICCOUNT : PICNUM - 1;
        QStringList ahead;
        for (const int32_t slot : {next, previous}) {
            const QString path = readAlbum(albumSlotsKey(), QString::number(slot), QStringLiteral("1"));
            if (slot >= 1 && StoreAndFileServices::instance().FILEEXISTS(path))
                ahead << path;
        }
        pictures_->keepAround(PICPATH, ahead, visiblePart());
    });
    // The decodes start when the picture has been painted (see connectEvents), or a
    // little later when nothing is painted.
    QTimer::singleShot(PrefetchFallbackMs, this, [this] { pictures_->startDecoding(); });
}

// A screen that has grown may show more of the picture than was decoded: the
// picture is decoded again from its file, as long as the file is the one it came
// from, so that the screen shows the same pixels.
void frmScreen::uncoverPicture()
{
    if (shownPath_.isEmpty())
        return;
    const PicturePrefetch::Keep keep = visiblePart();
    if (shown_.part.contains(keep(shown_.size)))
        return;
    resumeNext([&] {
        platform::PicturePart again = platform::LoadPicturePart(shownPath_, keep);
        if (again.stamp == shown_.stamp)
            setPicture(shownPath_, std::move(again));
    });
}

// The file name without its extension, found from the end of the path. Only
// three- and four-letter extensions are recognised; with any other, the search runs
// on to the left and the name keeps the folders it passes: the text behind the
// leftmost separator, so /pics/old/a.x gives pics/old/a.x. The search takes in the
// path's first character, since here the root's separator stands there where a
// drive letter stood on the old platform. A path without a separator stays whole.
void frmScreen::FINDNAME()
{
    NAMESCAN = 0;
    PICNAME = PICPATH;
    while (NAMESCAN <= PICPATH.size()) {
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
    setControlTop(IMGMAIN, centred(platform::Screen::Height(), pictureHeight_));
    setControlLeft(IMGMAIN, centred(platform::Screen::Width(), pictureWidth_));
}

void frmScreen::Form_Resize()
{
    PLACECONTROLS();
    uncoverPicture();
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
