// The album's big operations on real files and a real store: changing to a big
// folder, adding all of it, starting with a big album, and the single store reads
// and writes they are made of. Each benchmark builds its own data in a temporary
// folder and points the store at a temporary config home.
#include "FormSupport.h"
#include "Stored.h"
#include "TempStore.h"

#include "album/frmMain.h"
#include "library/clsLibrary.h"
#include "platform/core/Registry.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <dirent.h>
#include <string>
#include <vector>

namespace {

constexpr int Pictures = 10000;
constexpr int OtherFiles = 2000;

void makeFiles(const QString& folder, const QString& pattern, int count)
{
    for (int i = 0; i < count; ++i) {
        QFile file(folder + QLatin1Char('/') + pattern.arg(i, 5, 10, QLatin1Char('0')));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("can't create %s", qPrintable(file.fileName()));
    }
}

// Ten thousand pictures among two thousand other files, and an empty folder
// beside them to change from. Only names are read, so the files stay empty.
struct BigFolder {
    QTemporaryDir root;
    QString pictures = root.filePath(QStringLiteral("pictures"));
    QString empty = root.filePath(QStringLiteral("empty"));

    BigFolder()
    {
        QDir(root.path()).mkdir(QStringLiteral("pictures"));
        QDir(root.path()).mkdir(QStringLiteral("empty"));
        makeFiles(pictures, QStringLiteral("picture%1.jpg"), Pictures);
        makeFiles(pictures, QStringLiteral("notes%1.txt"), OtherFiles);
    }
};

const BigFolder& bigFolder()
{
    static const BigFolder folder;
    return folder;
}

frmMain& freshMainWindow()
{
    testsupport::unloadForms<frmMain>();
    return Forms::get<frmMain>();
}

void write(const QString& key, const QString& item, const QString& data)
{
    clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), key, item, data);
}

QString read(const QString& key, const QString& item)
{
    return testsupport::stored(key, item, QString());
}

QString picturePath(int i)
{
    return bigFolder().pictures + QStringLiteral("/picture%1.jpg").arg(i, 5, 10, QLatin1Char('0'));
}

// What any program pays to learn the names of the folder: readdir, nothing else.
void BM_BareListing(benchmark::State& state)
{
    const QByteArray folder = QFile::encodeName(bigFolder().pictures);
    for (auto _ : state) {
        std::vector<std::string> names;
        DIR* dir = opendir(folder.constData());
        while (const dirent* entry = readdir(dir))
            names.emplace_back(entry->d_name);
        closedir(dir);
        benchmark::DoNotOptimize(names.data());
    }
}
BENCHMARK(BM_BareListing)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

// From the pick in the folder tree to the found list filled, the counts in the
// status bar and the window painted.
void BM_ChangeFolder(benchmark::State& state)
{
    const BigFolder& folder = bigFolder();
    TempStore store;
    frmMain& form = freshMainWindow();
    form.Show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        form.FTVBROWSE->setSelectedfolder(folder.empty);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        form.FTVBROWSE->setSelectedfolder(folder.pictures);
        QCoreApplication::processEvents();
    }
    if (form.LVWFOUND->ListItems().Count() != Pictures)
        state.SkipWithError("the found list doesn't hold the pictures");
    testsupport::unloadForms<frmMain>();
}
BENCHMARK(BM_ChangeFolder)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

void BM_AddAll(benchmark::State& state)
{
    const BigFolder& folder = bigFolder();
    for (auto _ : state) {
        state.PauseTiming();
        TempStore store;
        frmMain& form = freshMainWindow();
        form.FTVBROWSE->setSelectedfolder(folder.pictures);
        state.ResumeTiming();
        form.ADDALL();
        state.PauseTiming();
        if (read(frmMain::albumCountKey(), QStringLiteral("Items")) != QString::number(Pictures) ||
            read(frmMain::albumSlotsKey(), QString::number(Pictures)) != picturePath(Pictures - 1))
            state.SkipWithError("the album isn't in the store");
        testsupport::unloadForms<frmMain>();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AddAll)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// A stored album of ten thousand pictures and the big folder as the last one
// browsed: from loading the main window to its first paint.
void BM_StartWithAlbum(benchmark::State& state)
{
    const BigFolder& folder = bigFolder();
    TempStore store;
    write(frmMain::albumCountKey(), QStringLiteral("Items"), QString::number(Pictures));
    for (int i = 1; i <= Pictures; ++i)
        write(frmMain::albumSlotsKey(), QString::number(i), picturePath(i - 1));
    write(frmMain::preferencesKey(), QStringLiteral("Files Location"), folder.pictures + QLatin1Char('/'));
    testsupport::unloadForms<frmMain>();
    for (auto _ : state) {
        frmMain& form = Forms::get<frmMain>();
        form.Show();
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (form.LSTSELECTED->ListItems().Count() != Pictures)
            state.SkipWithError("the album didn't load");
        testsupport::unloadForms<frmMain>();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_StartWithAlbum)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

// One write of a slot, as an add makes it, into a store that already holds an
// album of ten thousand.
void BM_RegStrWrite(benchmark::State& state)
{
    TempStore store;
    for (int i = 1; i <= Pictures; ++i)
        write(frmMain::albumSlotsKey(), QString::number(i), picturePath(i - 1));
    int slot = 0;
    for (auto _ : state) {
        slot = slot % Pictures + 1;
        write(frmMain::albumSlotsKey(), QString::number(slot), picturePath(Pictures - slot));
    }
}
BENCHMARK(BM_RegStrWrite)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

// One read of a slot, as the show makes it at every step.
void BM_RegStrRead(benchmark::State& state)
{
    TempStore store;
    for (int i = 1; i <= Pictures; ++i)
        write(frmMain::albumSlotsKey(), QString::number(i), picturePath(i - 1));
    int slot = 0;
    for (auto _ : state) {
        slot = slot % Pictures + 1;
        benchmark::DoNotOptimize(read(frmMain::albumSlotsKey(), QString::number(slot)));
    }
}
BENCHMARK(BM_RegStrRead)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    testsupport::unloadForms<frmMain>();
    return 0;
}
