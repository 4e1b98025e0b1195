// The album's bulk operations on real files and a real store: adding a whole folder
// and changing to a big folder. Each benchmark builds its own data in a temporary
// folder and points the store at a temporary config home.
#include "album/frmMain.h"
#include "platform/FolderTree.h"
#include "platform/Registry.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

void makePictures(const QString& folder, int count)
{
    for (int i = 0; i < count; ++i) {
        QFile file(folder + QStringLiteral("/picture%1.jpg").arg(i, 5, 10, QLatin1Char('0')));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("can't create %s", qPrintable(file.fileName()));
    }
}

// A store of its own under a temporary config home.
class FreshStore {
public:
    FreshStore()
    {
        qputenv("XDG_CONFIG_HOME", dir_.path().toUtf8());
        platform::Registry::instance().reopen();
    }
    ~FreshStore() { platform::Registry::instance().reopen(); }

private:
    QTemporaryDir dir_;
};

frmMain& freshMainWindow()
{
    Forms::unload<frmMain>();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return Forms::get<frmMain>();
}

void BM_AddAll1000(benchmark::State& state)
{
    QTemporaryDir pictures;
    makePictures(pictures.path(), 1000);
    for (auto _ : state) {
        state.PauseTiming();
        FreshStore store;
        frmMain& form = freshMainWindow();
        form.FTVBROWSE->setSelectedfolder(pictures.path());
        state.ResumeTiming();
        form.ADDALL();
    }
}
BENCHMARK(BM_AddAll1000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_ChangeFolder10000(benchmark::State& state)
{
    QTemporaryDir pictures, empty;
    makePictures(pictures.path(), 10000);
    FreshStore store;
    frmMain& form = freshMainWindow();
    for (auto _ : state) {
        state.PauseTiming();
        form.FTVBROWSE->setSelectedfolder(empty.path());
        state.ResumeTiming();
        form.FTVBROWSE->setSelectedfolder(pictures.path());
    }
}
BENCHMARK(BM_ChangeFolder10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
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
    Forms::unload<frmMain>();
    return 0;
}
