// The show as scripts/soak.sh runs it under a limit of address space (ulimit -v),
// on the offscreen platform, against the store of $XDG_CONFIG_HOME.
//
//   vistarro-show-driver make FOLDER
//       writes pictures of one colour each, from small to 4000 x 3000, into FOLDER.
//   vistarro-show-driver play FOLDER STEPS [MIB]
//       makes the pictures of FOLDER the album, starts the show (with MIB given,
//       under a limit of MIB more address space than it uses by then, for when
//       the size of the libraries makes a fixed limit meaningless), prints
//       "started", runs STEPS timed
//       steps of the show and checks after each that the picture up is the one the
//       caption names or, when that one couldn't be loaded, the one up before: its
//       middle pixel has that picture's colour. Prints "steps N, new M, kept K" and
//       ends with status 0, or prints what it saw and ends with status 1.
#include "library/clsLibrary.h"
#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/widgets/Form.h"
#include "viewer/frmScreen.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPainter>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int Pictures = 8;

void say(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

QColor colourOf(int n)
{
    return QColor::fromHsv(n * 360 / Pictures, 200, 230);
}

QSize sizeOf(int n)
{
    return QSize(500 + n * 500, 375 + n * 375);
}

QString nameOf(int n)
{
    return QStringLiteral("picture%1").arg(n);
}

int make(const QString& folder)
{
    QDir().mkpath(folder);
    for (int n = 0; n < Pictures; ++n) {
        QImage image(sizeOf(n), QImage::Format_RGB32);
        image.fill(colourOf(n));
        // Some detail, so that the file isn't trivially small.
        QPainter painter(&image);
        painter.setPen(colourOf(n).darker());
        for (int x = 0; x < image.width(); x += 40)
            painter.drawLine(x, 0, x, image.height() / 4);
        painter.end();
        if (!image.save(QDir(folder).filePath(nameOf(n) + QStringLiteral(".jpg")), "JPG", 85))
            return 1;
    }
    return 0;
}

bool near(QColor a, QColor b)
{
    return qAbs(a.red() - b.red()) < 24 && qAbs(a.green() - b.green()) < 24 && qAbs(a.blue() - b.blue()) < 24;
}

// The picture whose colour the middle of the shown pixmap has, or -1.
int shownPicture(const frmScreen& show)
{
    const QPixmap pixmap = show.IMGMAIN->pixmap();
    if (pixmap.isNull())
        return -1;
    const QImage middle = pixmap.copy(pixmap.width() / 2, pixmap.height() / 2, 1, 1).toImage();
    if (middle.isNull())
        qFatal("no memory left for the check itself");
    for (int n = 0; n < Pictures; ++n)
        if (near(middle.pixelColor(0, 0), colourOf(n)))
            return n;
    return -1;
}

// Allows `mib` MiB of address space beyond what the process uses now.
bool limitAddressSpace(int mib)
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return false;
    const rlim_t used = rlim_t(statm.readAll().split(' ').value(0).toULongLong()) * rlim_t(getpagesize());
    rlimit limit{};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = used + rlim_t(mib) * 1024 * 1024;
    return setrlimit(RLIMIT_AS, &limit) == 0;
}

int play(const QString& folder, int steps, int mib)
{
    clsLibrary& library = clsLibrary::instance();
    const QString album = clsLibrary::programKey() + QStringLiteral("\\fPICTURES");
    library.REGSTRWRITE(clsLibrary::currentUserKey(), album + QStringLiteral("\\Items"),
                        QStringLiteral("Items"), QString::number(Pictures));
    for (int n = 0; n < Pictures; ++n)
        library.REGSTRWRITE(clsLibrary::currentUserKey(), album + QStringLiteral("\\Selection"),
                            QString::number(n + 1),
                            QDir(folder).filePath(nameOf(n) + QStringLiteral(".jpg")));
    Form main(QStringLiteral("frmMain"));
    Forms::setMainForm(&main);
    if (mib > 0 && !limitAddressSpace(mib))
        return 2;
    Forms::get<frmScreen>().Show();
    frmScreen& show = Forms::get<frmScreen>();
    say("started");
    int up = shownPicture(show);
    int fresh = 0, kept = 0;
    for (int step = 1; step <= steps; ++step) {
        QCoreApplication::processEvents();
        show.TMRPICS_Timer();
        QCoreApplication::processEvents();
        const QString caption = show.LBLDESC->text();
        const int now = shownPicture(show);
        int named = -1;
        for (int n = 0; n < Pictures; ++n)
            if (caption.startsWith(nameOf(n) + QLatin1Char(' ')))
                named = n;
        // Nothing up yet (the first pictures couldn't be loaded) stays nothing.
        if (now >= 0 && now == named) {
            ++fresh;
        } else if (now == up) {
            ++kept;
        } else {
            say(QStringLiteral(
                    "step %1: the caption reads \"%2\", picture %3 is up, picture %4 was up before")
                    .arg(step)
                    .arg(caption)
                    .arg(now)
                    .arg(up)
                    .toUtf8());
            return 1;
        }
        up = now;
    }
    say(QStringLiteral("steps %1, new %2, kept %3").arg(steps).arg(fresh).arg(kept).toUtf8());
    Forms::unload<frmScreen>();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    platform::App::prepareProcess();
    QApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments().mid(1);
    if (args.size() == 2 && args[0] == QLatin1String("make"))
        return make(args[1]);
    if ((args.size() == 3 || args.size() == 4) && args[0] == QLatin1String("play"))
        return play(args[1], args[2].toInt(), args.value(3).toInt());
    std::fprintf(stderr, "usage: vistarro-show-driver make FOLDER | play FOLDER STEPS [MIB]\n");
    return 2;
}
