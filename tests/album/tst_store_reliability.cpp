// The album survives what happens to a running program and to its store: a kill
// at any moment of an add, a second program writing at the same time, a store
// that can't be written (read-only, disk full, file size limit) and a damaged
// store. The programs are vistarro-album-driver processes that run the real main
// window and store code; this test checks the store and starts the album again
// in its own process, as the next start of the program would.
//
// VISTARRO_KILLS sets the number of kills (3 by default), VISTARRO_KILL_SEED the
// seed of the moments; scripts/soak.sh runs many.
#include "FormSupport.h"
#include "Stored.h"
#include "TempStore.h"

#include "album/frmMain.h"
#include "library/clsLibrary.h"
#include "platform/core/Registry.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"
#include "settings/AlbumStore.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <sqlite3.h>

#include <grp.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int Pictures = 1000;
const QString Driver = QStringLiteral(VISTARRO_ALBUM_DRIVER);

using testsupport::stored;

QString slot(int n)
{
    return stored(AlbumStore::slotsKey(), AlbumStore::slotName(n));
}

// A folder of pictures named so that the found list's order is the numbers'.
// Only the names are read, so the files stay empty.
QStringList makePictures(const QTemporaryDir& dir, int count)
{
    QStringList paths;
    for (int i = 1; i <= count; ++i) {
        paths << dir.filePath(QStringLiteral("p%1.jpg").arg(i, 4, 10, QLatin1Char('0')));
        QFile file(paths.last());
        if (!file.open(QIODevice::WriteOnly))
            qFatal("can't make %s", qPrintable(paths.last()));
    }
    return paths;
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// PRAGMA integrity_check of the store file, through a connection of its own. The
// store's own connection is closed first: two connections of one process on one
// file would drop each other's locks.
QString integrity(const QString& database)
{
    platform::Registry::instance().reopen();
    if (!QFile::exists(database))
        return QStringLiteral("ok");
    sqlite3* db = nullptr;
    QString verdict = QStringLiteral("can't open");
    if (sqlite3_open_v2(QFile::encodeName(database).constData(), &db, SQLITE_OPEN_READONLY, nullptr) ==
        SQLITE_OK)
        sqlite3_exec(
            db, "PRAGMA integrity_check",
            [](void* out, int, char** row, char**) {
                *static_cast<QString*>(out) = QString::fromUtf8(row[0]);
                return 0;
            },
            &verdict, nullptr);
    sqlite3_close_v2(db);
    return verdict;
}

QStringList albumTexts(frmMain& form)
{
    QStringList texts;
    for (int i = 1; i <= form.LSTSELECTED->ListItems().Count(); ++i)
        texts << form.LSTSELECTED->ListItems()(i).Text();
    return texts;
}

// The album as the next start of the program lists it.
QStringList albumAtNextStart()
{
    platform::Registry::instance().reopen();
    testsupport::unloadForms<frmMain>();
    const QStringList texts = albumTexts(Forms::get<frmMain>());
    testsupport::unloadForms<frmMain>();
    return texts;
}

// Which slots an interrupted add may leave blank. A kill can only come between
// the two writes of one picture, the count and then the path, so only the last
// slot; a full disk refuses the writes that need more room and takes those that
// fit, so any slot.
enum Blanks { OnlyTheLastBlank, AnySlotBlank };

// What an interrupted add of `pictures` into an empty album may leave: the store
// opens and is whole; each slot from 1 to Items holds the picture added as that
// slot or is blank as `blanks` allows, and nothing lies above Items; and the next
// start lists exactly the pictures stored, in order, without a hole. Returns Items.
int checkAddedInOrder(const TempStore& store, const QStringList& pictures, Blanks blanks)
{
    [&] { QCOMPARE(integrity(store.databasePath()), QStringLiteral("ok")); }();
    bool isNumber = false;
    const QString count = stored(AlbumStore::countKey(), AlbumStore::countName());
    const int items = count == QLatin1String("<absent>") ? 0 : count.toInt(&isNumber);
    if (items != 0 && (!isNumber || items > pictures.size()))
        qWarning("Items is %s", qPrintable(count));
    [&] {
        QVERIFY(items == 0 || (isNumber && items <= pictures.size()));
        QStringList kept;
        for (int n = 1; n <= items; ++n) {
            const QString path = slot(n);
            if (path == pictures[n - 1]) {
                kept << path;
                continue;
            }
            if (path == QLatin1String("<absent>") && (n == items || blanks == AnySlotBlank))
                continue;
            QFAIL(qPrintable(QStringLiteral("slot %1 of %2 holds %3").arg(n).arg(items).arg(path)));
        }
        QCOMPARE(slot(items + 1), QStringLiteral("<absent>"));
        QCOMPARE(albumAtNextStart(), kept);
    }();
    return items;
}

// The album as the next start lists it, with the first `earlier` pictures
// required: they were stored before anything went wrong. The rest must be
// pictures of `added`, in their order, each at most once.
void checkNothingLost(const TempStore& store, const QStringList& earlier, const QStringList& added,
                      QStringList* listed)
{
    QCOMPARE(integrity(store.databasePath()), QStringLiteral("ok"));
    *listed = albumAtNextStart();
    QCOMPARE(listed->mid(0, earlier.size()), earlier);
    qsizetype at = 0;
    for (const QString& path : listed->mid(earlier.size())) {
        const qsizetype found = added.indexOf(path, at);
        QVERIFY2(found >= 0, qPrintable(path + QStringLiteral(" out of order or not added")));
        at = found + 1;
    }
}

// A driver process against the store of a config home.
class Program {
public:
    explicit Program(const QString& configHome)
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), configHome);
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        process.setProcessEnvironment(env);
        process.setProcessChannelMode(QProcess::SeparateChannels);
    }
    ~Program()
    {
        if (process.state() != QProcess::NotRunning) {
            process.kill();
            process.waitForFinished();
        }
    }

    void start(const QStringList& arguments) { process.start(Driver, arguments); }

    // Has the store's file operations fail as FaultyStore.h describes.
    void setFault(const QString& fault, const QString& whilePath = QString())
    {
        QProcessEnvironment env = process.processEnvironment();
        env.insert(QStringLiteral("VISTARRO_STORE_FAULT"), fault);
        if (!whilePath.isEmpty())
            env.insert(QStringLiteral("VISTARRO_STORE_FAULT_WHILE"), whilePath);
        process.setProcessEnvironment(env);
    }

    // Runs to the end and gives what it printed.
    QStringList run(const QStringList& arguments)
    {
        start(arguments);
        finish();
        return output();
    }

    bool finish()
    {
        const bool finished = process.waitForFinished(120000);
        error += process.readAllStandardError();
        return finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

    QStringList output()
    {
        out += process.readAllStandardOutput();
        return QString::fromUtf8(out).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    // Waits for a line that the driver prints.
    bool waitFor(const QByteArray& line)
    {
        while (!out.contains(line + '\n')) {
            if (!process.waitForReadyRead(60000))
                return false;
            out += process.readAllStandardOutput();
        }
        return true;
    }

    QProcess process;
    QByteArray out;
    QByteArray error;
};

// The child runs as an ordinary user, so that file permissions bind it also when
// the test runs as root.
void runAsNobody(QProcess& process)
{
    if (geteuid() != 0)
        return;
    process.setChildProcessModifier([] {
        if (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0)
            _exit(125);
    });
}

// Lets everybody into the folders of a path, for a child that runs as nobody.
void openToAll(const QString& path)
{
    for (QString p = path; p.size() > 1 && p != QDir::tempPath(); p = QFileInfo(p).path())
        QFile::setPermissions(p, QFile::permissions(p) | QFile::ExeOther | QFile::ReadOther |
                                     QFile::ExeGroup | QFile::ReadGroup);
}

} // namespace

class tst_StoreReliability : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { testsupport::unloadForms<frmMain>(); }

    // A program killed at a random moment of adding 1,000 pictures leaves a store
    // that opens and holds the pictures added so far, in their order.
    void killedWhileAddingLosesNothing()
    {
        QTemporaryDir folder;
        const QStringList pictures = makePictures(folder, Pictures);

        // One whole run first, to know how long a start and an add last.
        QElapsedTimer clock;
        qint64 startMs = 0, addMs = 0;
        {
            TempStore store;
            Program program(store.configHome());
            clock.start();
            program.start({QStringLiteral("addall"), folder.path()});
            QVERIFY(program.waitFor("adding"));
            startMs = clock.restart();
            QVERIFY(program.waitFor("added " + QByteArray::number(Pictures)));
            addMs = clock.elapsed();
            QVERIFY2(program.finish(), program.error.constData());
            QCOMPARE(checkAddedInOrder(store, pictures, OnlyTheLastBlank), Pictures);
        }

        const int kills =
            qEnvironmentVariableIsSet("VISTARRO_KILLS") ? qEnvironmentVariableIntValue("VISTARRO_KILLS") : 3;
        const quint32 seed = qEnvironmentVariableIsSet("VISTARRO_KILL_SEED")
                                 ? quint32(qEnvironmentVariableIntValue("VISTARRO_KILL_SEED"))
                                 : QRandomGenerator::global()->generate();
        QRandomGenerator random(seed);
        int beforeAdd = 0, midAdd = 0, afterAdd = 0;
        QList<int> counts;
        for (int round = 1; round <= kills; ++round) {
            TempStore store;
            Program program(store.configHome());
            // One kill in four anywhere in the start, which makes the store; the
            // others anywhere in the add, and now and then just after it.
            const bool inStart = round % 4 == 1;
            program.start({QStringLiteral("addall"), folder.path()});
            if (!inStart)
                QVERIFY(program.waitFor("adding"));
            QThread::usleep(random.bounded(quint64(inStart ? startMs : addMs) * (inStart ? 1000 : 1100) + 1));
            program.process.kill();
            QVERIFY(program.process.waitForFinished());
            const int items = checkAddedInOrder(store, pictures, OnlyTheLastBlank);
            if (QTest::currentTestFailed()) {
                qWarning("kill %d of seed %u broke the store", round, seed);
                return;
            }
            counts << items;
            (items == 0 ? beforeAdd : items < Pictures ? midAdd : afterAdd)++;
        }
        std::sort(counts.begin(), counts.end());
        qInfo(
            "kills: %d survived with 0 broken stores (%d before the add, %d during it, %d after it); "
            "a start lasts %lld ms and an add of %d pictures %lld ms; seed %u; pictures stored at the kill: "
            "min %d, median %d, max %d",
            kills, beforeAdd, midAdd, afterAdd, startMs, Pictures, addMs, seed, counts.value(0),
            counts.value(counts.size() / 2), counts.value(counts.size() - 1));
    }

    // Two programs that write and read the album at the same time, starting on a
    // store that doesn't exist yet and again on the one they made: no write is
    // lost, no write fails ("database is locked"), and the file stays whole.
    void twoProgramsShareTheStore()
    {
        TempStore store;
        QTemporaryDir work;
        const int count = qEnvironmentVariableIsSet("VISTARRO_SHARE_COUNT")
                              ? qEnvironmentVariableIntValue("VISTARRO_SHARE_COUNT")
                              : 300;
        for (const char* round : {"a new", "the same"}) {
            const QString go = work.filePath(QString::fromLatin1(round));
            Program first(store.configHome()), second(store.configHome());
            first.start({QStringLiteral("share"), QStringLiteral("0"), QString::number(count), go});
            second.start({QStringLiteral("share"), QStringLiteral("1"), QString::number(count), go});
            QVERIFY(first.process.waitForStarted() && second.process.waitForStarted());
            QElapsedTimer clock;
            clock.start();
            QFile(go).open(QIODevice::WriteOnly);
            const bool firstOk = first.finish();
            const bool secondOk = second.finish();
            const qint64 ms = clock.elapsed();
            QVERIFY2(firstOk, qPrintable(first.output().join('\n') + first.error));
            QVERIFY2(secondOk, qPrintable(second.output().join('\n') + second.error));

            QCOMPARE(integrity(store.databasePath()), QStringLiteral("ok"));
            const QString items = stored(AlbumStore::countKey(), AlbumStore::countName());
            QVERIFY2(items == QString::number(2 * count) || items == QString::number(2 * count - 1),
                     qPrintable(items));
            for (int i = 1; i <= count; ++i)
                for (int id = 0; id < 2; ++id)
                    QCOMPARE(slot(2 * i - 1 + id), QStringLiteral("/album/%1/picture%2.jpg").arg(id).arg(i));
            qInfo("two programs, %s store: %d album slots each written and read back at once in %lld ms, "
                  "no write lost or failed, integrity ok",
                  round, count, ms);
            // The next round must find its own paths, not the first round's.
            for (int n = 1; n <= 2 * count; ++n)
                QVERIFY(clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(),
                                                           AlbumStore::slotsKey(), AlbumStore::slotName(n),
                                                           QString()));
        }
    }

    void readsFailingAtStart_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<bool>("answersLater");
        QTest::newRow("every read fails, then the store answers") << "injected" << true;
        QTest::newRow("every read fails, all along") << "injected" << false;
        QTest::newRow("full file system at start, freed before the add") << "tmpfs" << true;
    }

    // A store that can't be read when the program starts gives an empty album, but
    // an add must not write over the stored one: once the store answers, the add
    // comes after the stored pictures, and until it does nothing is written.
    void readsFailingAtStart()
    {
        QFETCH(QString, fault);
        QFETCH(bool, answersLater);
        TempStore store;
        QTemporaryDir folder, later, work;
        const QStringList earlier = makePictures(folder, 5);
        const QStringList added = makePictures(later, 3);
        {
            Program maker(store.configHome());
            QVERIFY(maker.run({QStringLiteral("addall"), folder.path()}).contains(QStringLiteral("added 5")));
        }
        platform::Registry::instance().reopen();
        const QString failing = work.filePath(QStringLiteral("failing"));
        const QString go = work.filePath(QStringLiteral("go"));
        const QString storeFolder = QFileInfo(store.databasePath()).path();
        auto unmount = qScopeGuard([&] { umount2(QFile::encodeName(storeFolder).constData(), MNT_DETACH); });
        QFile(failing).open(QIODevice::WriteOnly);
        Program program(store.configHome());
        if (fault == QLatin1String("injected")) {
            program.setFault(QStringLiteral("read:1+:EIO"), failing);
        } else {
            // The store moves onto a small file system that a filler then fills:
            // the shared-memory file that a read of a store in write-ahead-log mode
            // needs can't be made.
            const QByteArray database = fileBytes(store.databasePath());
            if (mount("tmpfs", QFile::encodeName(storeFolder).constData(), "tmpfs", 0, "size=256k") != 0)
                QSKIP("mounting a file system needs root (scripts/soak.sh runs this as root)");
            QFile copy(store.databasePath());
            QVERIFY(copy.open(QIODevice::WriteOnly) && copy.write(database) == database.size());
            copy.close();
            QFile filler(storeFolder + QStringLiteral("/filler"));
            QVERIFY(filler.open(QIODevice::WriteOnly));
            const QByteArray block(4096, 'x');
            while (filler.write(block) == block.size() && filler.flush()) {
            }
        }
        program.start({QStringLiteral("addlater"), later.path(), go});
        QVERIFY(program.waitFor("started"));
        if (answersLater) {
            QFile::remove(failing);
            QFile::remove(storeFolder + QStringLiteral("/filler"));
        }
        QFile(go).open(QIODevice::WriteOnly);
        QVERIFY2(program.finish(), program.error.constData());

        QStringList listed;
        checkNothingLost(store, earlier, added, &listed);
        QCOMPARE(listed, answersLater ? earlier + added : earlier);
        // The window showed the stored album as soon as the store answered.
        QVERIFY(
            program.output().contains(answersLater ? QStringLiteral("added 8") : QStringLiteral("added 3")));
    }

    // A start whose first read of the store fails opens in the default folder,
    // and the stored folder is still there for the next start (the writes of
    // that start succeed, so the default could be written over it).
    void unreadFolderIsKept()
    {
        TempStore store;
        QTemporaryDir folder, work;
        makePictures(folder, 1);
        {
            Program maker(store.configHome());
            QVERIFY(maker.run({QStringLiteral("addall"), folder.path()}).contains(QStringLiteral("added 1")));
        }
        const QString openedIn =
            QStringLiteral("folder ") + QFile::encodeName(folder.path()).toPercentEncoding("/");
        const QString failing = work.filePath(QStringLiteral("failing"));
        QFile(failing).open(QIODevice::WriteOnly);
        {
            Program unread(store.configHome());
            unread.setFault(QStringLiteral("read:1:EIO"), failing);
            QVERIFY(!unread.run({QStringLiteral("list")}).contains(openedIn));
        }
        Program next(store.configHome());
        QVERIFY(next.run({QStringLiteral("list")}).contains(openedIn));
    }

    // Fails one read, write or sync of the store during an add of 50 pictures to
    // an album of 5 (or every call from that one on, as a full disk does): the
    // store stays whole and the next start lists the 5 and, in order, what of the
    // add was stored. A handful of points by default; VISTARRO_FAULT_SWEEP=1 fails
    // every call of each class in turn, with EIO alone and with ENOSPC onward.
    void failedStoreCallsLoseNothing()
    {
        TempStore store;
        QTemporaryDir folder, later;
        const QStringList earlier = makePictures(folder, 5);
        const QStringList added = makePictures(later, 50);
        {
            Program maker(store.configHome());
            QVERIFY(maker.run({QStringLiteral("addall"), folder.path()}).contains(QStringLiteral("added 5")));
        }
        platform::Registry::instance().reopen();
        const QString database = store.databasePath();
        const QByteArray before = fileBytes(database);
        const auto restore = [&] {
            platform::Registry::instance().reopen();
            QFile::remove(database + QStringLiteral("-wal"));
            QFile::remove(database + QStringLiteral("-shm"));
            QFile file(database);
            return file.open(QIODevice::WriteOnly) && file.write(before) == before.size();
        };

        // How many calls of each class a whole run makes.
        QMap<QString, int> total;
        {
            Program counter(store.configHome());
            counter.setFault(QStringLiteral("count"));
            const QStringList out = counter.run({QStringLiteral("addall"), later.path()});
            QVERIFY2(out.contains(QStringLiteral("added 55")), counter.error.constData());
            const QString calls = out.last();
            QVERIFY2(calls.startsWith(QStringLiteral("store calls ")), qPrintable(calls));
            for (const QString& pair : calls.mid(12).split(QLatin1Char(' ')))
                total[pair.section(QLatin1Char('='), 0, 0)] = pair.section(QLatin1Char('='), 1).toInt();
            QVERIFY(total.value(QStringLiteral("write")) > 0);
        }

        const bool sweep = qEnvironmentVariableIntValue("VISTARRO_FAULT_SWEEP") != 0;
        QList<QString> faults;
        for (const QString& kind :
             {QStringLiteral("read"), QStringLiteral("write"), QStringLiteral("sync")}) {
            const int calls = total.value(kind);
            QSet<int> points;
            if (sweep) {
                for (int n = 1; n <= calls; ++n)
                    points << n;
            } else if (calls > 0) {
                points = {1, (calls + 1) / 2, calls};
            }
            QList<int> sorted = points.values();
            std::sort(sorted.begin(), sorted.end());
            for (int n : sorted) {
                faults << QStringLiteral("%1:%2:EIO").arg(kind).arg(n);
                if (sweep || n == (calls + 1) / 2)
                    faults << QStringLiteral("%1:%2+:ENOSPC").arg(kind).arg(n);
            }
        }
        QMap<QString, int> runs, lostFromAdd;
        for (const QString& fault : faults) {
            QVERIFY(restore());
            Program program(store.configHome());
            program.setFault(fault);
            program.run({QStringLiteral("addall"), later.path()});
            QVERIFY2(program.process.exitStatus() == QProcess::NormalExit && program.process.exitCode() == 0,
                     qPrintable(fault + QLatin1Char(' ') + QString::fromUtf8(program.error)));
            QStringList listed;
            checkNothingLost(store, earlier, added, &listed);
            if (QTest::currentTestFailed()) {
                qWarning("failing %s lost a stored picture or broke the store", qPrintable(fault));
                return;
            }
            const QString kind = fault.section(QLatin1Char(':'), 0, 0) +
                                 (fault.endsWith(QLatin1String("+:ENOSPC")) ? QStringLiteral(" ENOSPC onward")
                                                                            : QStringLiteral(" EIO once"));
            const int lost = int(added.size() - (listed.size() - earlier.size()));
            // One failed call costs at most the one picture whose write it was.
            QVERIFY2(
                lost <= 1 || !kind.endsWith(QLatin1String("EIO once")),
                qPrintable(QStringLiteral("failing %1 lost %2 pictures of the add").arg(fault).arg(lost)));
            ++runs[kind];
            lostFromAdd[kind] += lost;
        }
        for (auto it = runs.cbegin(); it != runs.cend(); ++it)
            qInfo(
                "store fault %s: %d points of %d, every store whole, the 5 earlier pictures kept each time; "
                "pictures of the add not stored, over all points: %d",
                qPrintable(it.key()), it.value(), total.value(it.key().section(QLatin1Char(' '), 0, 0)),
                lostFromAdd.value(it.key()));
    }

    void storeThatCantBeWritten_data()
    {
        QTest::addColumn<QString>("limit");
        QTest::newRow("file size limit (ulimit -f)") << "ulimit";
        QTest::newRow("full file system") << "tmpfs";
    }

    // The add runs to its end, the pictures added before the store filled up are
    // kept in order, and the store stays whole.
    void storeThatCantBeWritten()
    {
        QFETCH(QString, limit);
        TempStore store;
        QTemporaryDir folder;
        const QStringList pictures = makePictures(folder, Pictures);
        Program program(store.configHome());
        const QString storeFolder = QFileInfo(store.databasePath()).path();
        QVERIFY(QDir().mkpath(storeFolder));
        auto unmount = qScopeGuard([&] { umount2(QFile::encodeName(storeFolder).constData(), MNT_DETACH); });
        if (limit == QLatin1String("tmpfs")) {
            if (mount("tmpfs", QFile::encodeName(storeFolder).constData(), "tmpfs", 0, "size=96k") != 0)
                QSKIP("mounting a file system needs root");
        } else {
            program.process.setChildProcessModifier([] {
                const rlimit size{64 * 1024, 64 * 1024};
                setrlimit(RLIMIT_FSIZE, &size);
            });
        }

        QVERIFY2(program.run({QStringLiteral("addall"), folder.path()})
                     .contains(QStringLiteral("added %1").arg(Pictures)),
                 program.error.constData());
        const int items = checkAddedInOrder(store, pictures, AnySlotBlank);
        QVERIFY2(items > 0 && items < Pictures, qPrintable(QString::number(items)));
    }

    void readOnlyStore_data()
    {
        QTest::addColumn<bool>("folderWritable");
        QTest::addColumn<bool>("fileWritable");
        QTest::newRow("read-only folder") << false << true;
        QTest::newRow("read-only file") << true << false;
        QTest::newRow("both read-only") << false << false;
    }

    // A store that the program may read but not write: it shows the album and the
    // folder it holds, adds work in the window, and the file stays as it was.
    void readOnlyStore()
    {
        QFETCH(bool, folderWritable);
        QFETCH(bool, fileWritable);
        TempStore store;
        QTemporaryDir folder;
        const QStringList pictures = makePictures(folder, 3);
        {
            Program maker(store.configHome());
            QVERIFY(maker.run({QStringLiteral("addall"), folder.path()}).contains(QStringLiteral("added 3")));
        }
        const QString database = store.databasePath();
        const QString storeFolder = QFileInfo(database).path();
        QVERIFY(!QFile::exists(database + QStringLiteral("-wal")));
        const QByteArray before = fileBytes(database);
        const QStringList filesBefore = QDir(storeFolder).entryList(QDir::Files);

        // As root the child runs as nobody, for whom the folder and file as made
        // are read-only; other users take the write permissions away.
        openToAll(storeFolder);
        openToAll(folder.path());
        const QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
        const QFile::Permissions all = ownerOnly | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther |
                                       QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup;
        const QFile::Permissions readOnly = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
        const QFile::Permissions folderAsIs = QFile::permissions(storeFolder);
        const QFile::Permissions fileAsIs = QFile::permissions(database);
        auto restore = qScopeGuard([&] {
            QFile::setPermissions(storeFolder, folderAsIs);
            QFile::setPermissions(database, fileAsIs);
        });
        QFile::setPermissions(
            storeFolder,
            folderWritable ? all : (readOnly | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther));
        QFile::setPermissions(database,
                              fileWritable ? (fileAsIs | QFile::WriteOther | QFile::WriteGroup) : readOnly);

        Program lister(store.configHome());
        runAsNobody(lister.process);
        const QStringList listed = lister.run({QStringLiteral("list")});
        QStringList expected{"folder " + folder.path(), "album 3"};
        expected += pictures;
        QStringList decoded;
        for (const QString& line : listed)
            decoded << QString::fromUtf8(QByteArray::fromPercentEncoding(line.toUtf8()));
        QCOMPARE(decoded, expected);

        Program adder(store.configHome());
        runAsNobody(adder.process);
        QVERIFY2(adder.run({QStringLiteral("addall"), folder.path()}).contains(QStringLiteral("added 6")),
                 adder.error.constData());

        QCOMPARE(fileBytes(database), before);
        if (!folderWritable)
            QCOMPARE(QDir(storeFolder).entryList(QDir::Files), filesBefore);
    }

    void damagedStore_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::newRow("a damaged page") << "page";
        QTest::newRow("cut short") << "cut";
        QTest::newRow("not a database") << "text";
    }

    // A damaged store: the program starts with what it can read of the album,
    // keeps working in the window, and never writes a byte into the file, which
    // could still be saved with SQLite's own recovery.
    void damagedStore()
    {
        QFETCH(QString, damage);
        TempStore store;
        // Long paths, so that the album takes many pages of the file.
        const QString base = QStringLiteral("/pictures/") + QString(100, QLatin1Char('x'));
        const auto path = [&](int n) {
            return base + QStringLiteral("/p%1.jpg").arg(n, 3, 10, QLatin1Char('0'));
        };
        const auto write = [](const QString& key, const QString& item, const QString& data) {
            return clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), key, item, data);
        };
        QStringList album;
        QVERIFY(write(AlbumStore::countKey(), AlbumStore::countName(), QStringLiteral("200")));
        for (int n = 1; n <= 200; ++n) {
            album << path(n);
            QVERIFY(write(AlbumStore::slotsKey(), AlbumStore::slotName(n), album.last()));
        }
        platform::Registry::instance().reopen();

        const QString database = store.databasePath();
        QFile file(database);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QByteArray bytes = file.readAll();
        const int pageSize = (uchar(bytes[16]) << 8) | uchar(bytes[17]);
        if (damage == QLatin1String("page")) {
            // The b-tree page that holds slot 150: its page type byte is not one.
            const qsizetype at = bytes.indexOf(path(150).toUtf8());
            QVERIFY(at > 0);
            bytes[at / pageSize * pageSize] = char(0x55);
        } else if (damage == QLatin1String("cut")) {
            bytes.truncate(bytes.size() - pageSize);
        } else {
            bytes = "[Album]\nItems=200\n";
        }
        file.resize(0);
        file.write(bytes);
        file.close();
        const QByteArray before = fileBytes(database);

        // Whatever is listed is the stored album's pictures, in their order.
        testsupport::unloadForms<frmMain>();
        platform::Registry::instance().reopen();
        frmMain& form = Forms::get<frmMain>();
        const QStringList listed = albumTexts(form);
        qsizetype at = 0;
        for (const QString& text : listed) {
            at = album.indexOf(text, at);
            QVERIFY2(at >= 0, qPrintable(text));
        }
        if (damage == QLatin1String("page")) {
            QVERIFY(!listed.contains(path(150)));
            QVERIFY(listed.contains(path(1)));
        }

        // The window goes on working; the store takes no write.
        QTemporaryDir folder;
        makePictures(folder, 2);
        form.FTVBROWSE->setSelectedfolder(folder.path());
        form.ADDALL();
        QCOMPARE(form.LSTSELECTED->ListItems().Count(), listed.size() + 2);
        form.LSTSELECTED->setCurrentIndex(form.LSTSELECTED->model()->index(0, 0));
        form.CLEAR();
        form.CLEARALL();
        QCOMPARE(form.LSTSELECTED->ListItems().Count(), 0);
        QVERIFY(!write(AlbumStore::countKey(), AlbumStore::countName(), QStringLiteral("0")));
        platform::Registry::instance().reopen();
        QCOMPARE(fileBytes(database), before);
    }
};

QTEST_MAIN(tst_StoreReliability)
#include "tst_store_reliability.moc"
