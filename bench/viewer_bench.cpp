// The slideshow on camera-sized pictures (24 megapixels, 6000 x 4000, JPEG quality
// 90) on a 1920 x 1080 screen: the first picture of a show, a timed step with the
// next picture decoded ahead, and the djpeg decode of the same file for scale.
//
//   vistarro-viewer-bench [benchmark options]   the benchmarks
//   vistarro-viewer-bench --write-pictures DIR  writes the pictures into DIR
//   vistarro-viewer-bench --play DIR STEPS      plays STEPS steps of the pictures in
//                                               DIR, then prints the peak memory
//
// VISTARRO_BENCH_JPEGS names a folder that --write-pictures has filled; without it
// the benchmarks write the pictures into a temporary folder first.
#include "FormSupport.h"
#include "TempStore.h"

#include "library/clsLibrary.h"
#include "platform/core/Registry.h"
#include "platform/widgets/Form.h"
#include "settings/AlbumStore.h"
#include "viewer/PicturePrefetch.h"
#include "viewer/frmScreen.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

constexpr int PictureWidth = 6000;
constexpr int PictureHeight = 4000;
// The show's screen (useFullHdScreen).
constexpr int ScreenWidth = 1920;
constexpr int ScreenHeight = 1080;
// Different files, so that each step decodes a picture of its own.
constexpr int AlbumSize = 4;
constexpr int StepsPerRun = 40;

// Smooth gradients under fine noise, as a photo has: neither a flat picture that
// compresses to nothing nor pure noise that no camera produces.
QImage photoLike(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator random(42);
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const int noise = int(random.bounded(24u)) - 12;
            const int r = 60 + 150 * x / width + noise;
            const int g = 40 + 120 * y / height + noise;
            const int b = 90 + 80 * ((x / 300 + y / 200) % 2) + noise;
            line[x] = qRgb(qBound(0, r, 255), qBound(0, g, 255), qBound(0, b, 255));
        }
    }
    return image;
}

QStringList picturePaths(const QString& folder)
{
    QStringList paths;
    for (int i = 1; i <= AlbumSize; ++i)
        paths << folder + QStringLiteral("/photo%1.jpg").arg(i);
    return paths;
}

// One picture drawn and encoded, the others copies of its file.
QStringList writePictures(const QString& folder)
{
    const QStringList paths = picturePaths(folder);
    if (!QFile::exists(paths.first()) &&
        !photoLike(PictureWidth, PictureHeight).save(paths.first(), "JPG", 90))
        qFatal("can't write %s", qPrintable(paths.first()));
    for (const QString& copy : paths.mid(1))
        if (!QFile::exists(copy) && !QFile::copy(paths.first(), copy))
            qFatal("can't write %s", qPrintable(copy));
    return paths;
}

const QStringList& pictures()
{
    static QTemporaryDir temporary;
    static const QStringList paths = writePictures(qEnvironmentVariableIsSet("VISTARRO_BENCH_JPEGS")
                                                       ? qEnvironmentVariable("VISTARRO_BENCH_JPEGS")
                                                       : temporary.path());
    return paths;
}

// A store of its own holding an album of the pictures.
class AlbumInStore {
public:
    explicit AlbumInStore(const QStringList& paths)
    {
        AlbumStore::setCount(int32_t(paths.size()));
        for (int n = 1; n <= paths.size(); ++n)
            AlbumStore::setSlot(n, paths[n - 1]);
    }

private:
    TempStore store_;
};

// Counts the paints of the picture, to be sure a step ends with it on the screen.
class PaintCounter : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

frmScreen& startShow()
{
    frmScreen& form = Forms::get<frmScreen>();
    form.Show();
    QCoreApplication::processEvents();
    return form;
}

// Leaves the show and lets the worker finish, so that nothing runs on in the
// background of the next measurement.
void leaveShow()
{
    testsupport::unloadForms<frmScreen>();
    PicturePrefetch::waitForWorker();
}

bool showsPicture(const frmScreen& form)
{
    return form.IMGMAIN->isVisible() && form.IMGMAIN->size() == QSize(PictureWidth, PictureHeight) &&
           !form.IMGMAIN->pixmap().isNull();
}

// Runs djpeg on the first picture, a process of its own, with `options` before
// the file's name; its output is thrown away.
void runDjpeg(benchmark::State& state, std::vector<QByteArray> options)
{
    const QByteArray djpeg = QFile::encodeName(QStandardPaths::findExecutable(QStringLiteral("djpeg")));
    if (djpeg.isEmpty()) {
        state.SkipWithError("djpeg isn't installed (libjpeg-turbo-progs)");
        return;
    }
    options.insert(options.begin(), {djpeg, "-outfile", "/dev/null"});
    options.push_back(QFile::encodeName(pictures().first()));
    std::vector<char*> argv;
    for (QByteArray& option : options)
        argv.push_back(option.data());
    argv.push_back(nullptr);
    for (auto _ : state) {
        pid_t child = 0;
        int status = 0;
        if (posix_spawn(&child, djpeg.constData(), nullptr, nullptr, argv.data(), environ) != 0 ||
            waitpid(child, &status, 0) != child || status != 0)
            state.SkipWithError("djpeg failed");
    }
}

// The references: djpeg decoding the whole file, and only the part that the
// show's screen shows of it at natural size (the picture's centre).
void BM_Djpeg(benchmark::State& state)
{
    runDjpeg(state, {});
}
BENCHMARK(BM_Djpeg)->Unit(benchmark::kMillisecond)->Iterations(3)->Repetitions(7)->ReportAggregatesOnly(true);

void BM_DjpegCrop(benchmark::State& state)
{
    const int left = (PictureWidth - ScreenWidth) / 2;
    const int top = (PictureHeight - ScreenHeight) / 2;
    runDjpeg(
        state,
        {"-crop",
         QStringLiteral("%1x%2+%3+%4").arg(ScreenWidth).arg(ScreenHeight).arg(left).arg(top).toLatin1()});
}
BENCHMARK(BM_DjpegCrop)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

// From the show's start to its first picture painted: nothing was decoded ahead.
void BM_FirstPicture(benchmark::State& state)
{
    AlbumInStore album(pictures());
    Form main(QStringLiteral("frmMain"));
    Forms::setMainForm(&main);
    for (auto _ : state) {
        PaintCounter counter;
        frmScreen& form = Forms::get<frmScreen>();
        form.IMGMAIN->installEventFilter(&counter);
        form.Show();
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (!showsPicture(form) || counter.paints == 0)
            state.SkipWithError("the first picture wasn't painted");
        leaveShow();
        state.ResumeTiming();
    }
    Forms::setMainForm(nullptr);
}
BENCHMARK(BM_FirstPicture)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

double percentile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    const auto rank = static_cast<size_t>(std::ceil(share * double(values.size())));
    return values[std::clamp<size_t>(rank, 1, values.size()) - 1];
}

// The timer's tick to the next picture painted, the picture having been decoded
// ahead while the one before it was on the screen (as the five seconds between
// two steps allow). Each run takes StepsPerRun steps round the album.
void BM_StepWithPrefetch(benchmark::State& state)
{
    AlbumInStore album(pictures());
    Form main(QStringLiteral("frmMain"));
    Forms::setMainForm(&main);
    for (auto _ : state) {
        frmScreen& form = startShow();
        PaintCounter counter;
        form.IMGMAIN->installEventFilter(&counter);
        std::vector<double> steps;
        int missed = 0;
        for (int i = 0; i < StepsPerRun; ++i) {
            PicturePrefetch::waitForWorker();
            const int paints = counter.paints;
            const int hits = PicturePrefetch::hits();
            QElapsedTimer timer;
            timer.start();
            form.TMRPICS_Timer();
            steps.push_back(double(timer.nsecsElapsed()) / 1e6);
            if (counter.paints == paints || !showsPicture(form))
                state.SkipWithError("a step didn't paint its picture");
            if (PicturePrefetch::hits() != hits + 1)
                ++missed;
        }
        state.SetIterationTime(percentile(steps, 0.95) / 1e3);
        state.counters["p95_ms"] = percentile(steps, 0.95);
        state.counters["median_ms"] = percentile(steps, 0.5);
        state.counters["max_ms"] = percentile(steps, 1.0);
        state.counters["not_decoded_ahead"] = missed;
        leaveShow();
    }
    Forms::setMainForm(nullptr);
}
BENCHMARK(BM_StepWithPrefetch)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);

// Plays the pictures for a number of steps, each after the worker is done, and
// prints the peak resident memory with the size of one decoded picture.
int play(const QString& folder, int steps)
{
    AlbumInStore album(picturePaths(folder));
    Form main(QStringLiteral("frmMain"));
    Forms::setMainForm(&main);
    frmScreen& form = startShow();
    for (int i = 0; i < steps; ++i) {
        PicturePrefetch::waitForWorker();
        form.TMRPICS_Timer();
    }
    leaveShow();
    Forms::setMainForm(nullptr);
    QImageReader reader(picturePaths(folder).first());
    const qint64 decoded = qint64(reader.size().width()) * reader.size().height() * 4;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("{\"steps\": %d, \"peak_rss_bytes\": %lld, \"decoded_picture_bytes\": %lld}\n", steps,
                static_cast<long long>(usage.ru_maxrss) * 1024, static_cast<long long>(decoded));
    return 0;
}

// A screen of 1920 x 1080 at 96 DPI for the offscreen platform, unless the
// caller chose a platform.
void useFullHdScreen(QTemporaryDir& dir)
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return;
    const QString config = dir.filePath(QStringLiteral("screen.json"));
    QFile file(config);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", qPrintable(config));
    file.write(QStringLiteral(R"({"screens": [{"name": "bench", "x": 0, "y": 0, "width": %1, "height": %2,)"
                              R"( "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                   .arg(ScreenWidth)
                   .arg(ScreenHeight)
                   .toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(config));
}

} // namespace

int main(int argc, char** argv)
{
    QTemporaryDir screenConfig;
    useFullHdScreen(screenConfig);
    QApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() == 3 && args[1] == QLatin1String("--write-pictures")) {
        writePictures(args[2]);
        return 0;
    }
    if (args.size() == 4 && args[1] == QLatin1String("--play"))
        return play(args[2], args[3].toInt());
    benchmark::AddCustomContext("screen", "1920x1080 offscreen");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
