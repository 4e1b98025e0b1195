// A stand-in for a running Vistarro that the reliability tests start, kill and
// run side by side. It uses the program's own main window and store code on the
// offscreen platform, against the store of $XDG_CONFIG_HOME.
//
//   vistarro-album-driver addall FOLDER
//       starts the main window, changes to FOLDER, prints "adding", adds every
//       picture of FOLDER to the album, and prints "added N" with the album's size.
//   vistarro-album-driver addlater FOLDER GO
//       starts the main window, prints "started", waits for the file GO to exist,
//       then goes on as addall.
//   vistarro-album-driver list
//       starts the main window and prints "folder F" (the folder it opened), then
//       "album N" and the album's N paths, each percent-encoded on a line.
//   vistarro-album-driver share ID COUNT GO
//       waits for the file GO to exist, then writes COUNT pictures into album
//       slots of its own (ID 0 the odd slots, ID 1 the even ones), each as an add
//       does it (count, then path), and reads each back at once. Any failure of
//       the store is printed and ends the run with status 1.
//
// With VISTARRO_STORE_FAULT set, the store's file operations fail as FaultyStore.h
// describes, and addall ends with a line "store calls ..." that counts them.
#include "FaultyStore.h"

#include "album/frmMain.h"
#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/core/Registry.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"

#include <QApplication>
#include <QFileInfo>
#include <QThread>

#include <cstdio>

namespace {

void say(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

int addAll(const QString& folder)
{
    frmMain& form = Forms::get<frmMain>();
    form.FTVBROWSE->setSelectedfolder(folder);
    say("adding");
    form.ADDALL();
    say("added " + QByteArray::number(form.LSTSELECTED->ListItems().Count()));
    if (qEnvironmentVariableIsSet("VISTARRO_STORE_FAULT"))
        say("store calls " + faultystore::counts());
    return 0;
}

void waitForFile(const QString& path)
{
    while (!QFileInfo::exists(path))
        QThread::usleep(200);
}

int list()
{
    frmMain& form = Forms::get<frmMain>();
    say("folder " + form.FTVBROWSE->selectedfolder().toUtf8().toPercentEncoding("/"));
    const int32_t count = form.LSTSELECTED->ListItems().Count();
    say("album " + QByteArray::number(count));
    for (int32_t i = 1; i <= count; ++i)
        say(form.LSTSELECTED->ListItems()(i).Text().toUtf8().toPercentEncoding("/"));
    return 0;
}

int share(int id, int count, const QString& go)
{
    waitForFile(go);
    platform::Registry& store = platform::Registry::instance();
    const auto text = [](const QString& s) { return platform::RegistryValue{platform::REG_SZ, s.toUtf8()}; };
    try {
        for (int i = 1; i <= count; ++i) {
            const int slot = 2 * i - 1 + id;
            const QString path = QStringLiteral("/album/%1/picture%2.jpg").arg(id).arg(i);
            store.setValue(platform::HKEY_CURRENT_USER, frmMain::albumCountKey(), QStringLiteral("Items"),
                           text(QString::number(slot)));
            store.setValue(platform::HKEY_CURRENT_USER, frmMain::albumSlotsKey(), QString::number(slot),
                           text(path));
            const auto read = store.queryValue(platform::HKEY_CURRENT_USER, frmMain::albumSlotsKey(),
                                               QString::number(slot));
            if (!read || read->data != path.toUtf8()) {
                say("lost slot " + QByteArray::number(slot));
                return 1;
            }
        }
    } catch (const platform::Error& error) {
        say("error " + error.description().toUtf8());
        return 1;
    }
    say("shared " + QByteArray::number(count));
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    platform::App::prepareProcess();
    if (!faultystore::installFromEnvironment()) {
        std::fprintf(stderr, "VISTARRO_STORE_FAULT is not CLASS:N[+]:ERROR or count\n");
        return 2;
    }
    QApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments().mid(1);
    if (args.size() == 2 && args[0] == QLatin1String("addall"))
        return addAll(args[1]);
    if (args.size() == 3 && args[0] == QLatin1String("addlater")) {
        Forms::get<frmMain>();
        say("started");
        waitForFile(args[2]);
        return addAll(args[1]);
    }
    if (args.size() == 1 && args[0] == QLatin1String("list"))
        return list();
    if (args.size() == 4 && args[0] == QLatin1String("share"))
        return share(args[1].toInt(), args[2].toInt(), args[3]);
    std::fprintf(
        stderr,
        "usage: vistarro-album-driver addall FOLDER | addlater FOLDER GO | list | share ID COUNT GO\n");
    return 2;
}
