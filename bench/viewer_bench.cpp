// The slideshow's step on a camera-sized picture: from the timer's tick to the new
// picture in IMGMAIN, for a 24-megapixel JPEG (6000 x 4000, quality 90) that the
// benchmark draws itself. Set VISTARRO_BENCH_JPEG to a path to keep the picture
// there, for comparing with other decoders.
#include "platform/Form.h"
#include "platform/Registry.h"
#include "settings/clsLibrary.h"
#include "viewer/frmScreen.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

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

void BM_TickTo24MegapixelPicture(benchmark::State& state)
{
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.filePath(QStringLiteral("config")).toUtf8());
    platform::Registry::instance().reopen();
    const QString kept = qEnvironmentVariable("VISTARRO_BENCH_JPEG");
    const QString path = kept.isEmpty() ? dir.filePath(QStringLiteral("photo.jpg")) : kept;
    if (!photoLike(6000, 4000).save(path, "JPG", 90))
        qFatal("can't write %s", qPrintable(path));
    // One picture: every tick loads it anew.
    auto& library = clsLibrary::instance();
    library.REGSTRWRITE(clsLibrary::currentUserKey(),
                        clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Items"),
                        QStringLiteral("Items"), QStringLiteral("1"));
    library.REGSTRWRITE(clsLibrary::currentUserKey(),
                        clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Selection"),
                        QStringLiteral("1"), path);

    Form main(QStringLiteral("frmMain"));
    Forms::setMainForm(&main);
    frmScreen& form = Forms::get<frmScreen>();
    form.Show();
    for (auto _ : state) {
        form.TMRPICS_Timer();
        if (form.IMGMAIN->pixmap().width() != 6000)
            state.SkipWithError("the picture didn't load");
    }
    Forms::unload<frmScreen>();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Forms::setMainForm(nullptr);
    platform::Registry::instance().reopen();
}
BENCHMARK(BM_TickTo24MegapixelPicture)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
