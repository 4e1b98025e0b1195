#include "TempStore.h"

#include "library/clsLibrary.h"
#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/core/FileNames.h"
#include "platform/core/Shell.h"
#include "platform/widgets/MsgBox.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>
#include <ftw.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

using platform::decodeFileName;
using platform::encodeFileName;

namespace {

clsLibrary& lib()
{
    return clsLibrary::instance();
}

// A temporary folder removed by the bytes of its names, which QTemporaryDir can't
// do for a name that isn't valid UTF-8.
class ByteTempDir {
public:
    explicit ByteTempDir(const QString& pattern = QDir::tempPath() + "/vistarro-XXXXXX") : dir_(pattern)
    {
        dir_.setAutoRemove(false);
    }
    ~ByteTempDir()
    {
        const auto remove = [](const char* path, const struct stat*, int, FTW*) { return ::remove(path); };
        if (dir_.isValid())
            nftw(bytes().constData(), remove, 16, FTW_DEPTH | FTW_PHYS);
    }
    QString path() const { return dir_.path(); }
    QByteArray bytes() const { return encodeFileName(dir_.path()); }

private:
    QTemporaryDir dir_;
};

bool writeBytes(const QByteArray& path, const QByteArray& content)
{
    std::ofstream out(path.constData(), std::ios::binary);
    out << content.toStdString();
    return bool(out);
}

QByteArray readBytes(const QByteArray& path)
{
    std::ifstream in(path.constData(), std::ios::binary);
    if (!in)
        return "<missing>";
    return QByteArray::fromStdString(std::string(std::istreambuf_iterator<char>(in), {}));
}

} // namespace

class tst_clsLibrary_files : public QObject {
    Q_OBJECT
private slots:
    void textRules_data();
    void textRules();
    void folderExist();
    void filesLocation_data();
    void filesLocation();
    void fileDelete_data();
    void fileDelete();
    void moveAndRename_data();
    void moveAndRename();
    void moveAcrossFileSystems();
    void internetAccess();
};

void tst_clsLibrary_files::textRules_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* operation, const char* input, const char* expected) {
        QTest::newRow(name) << QString(operation) << QString(input) << QString(expected);
    };
    row("lenchk empty", "FILENAMELENCHK", "", "");
    row("lenchk short name", "FILENAMELENCHK", "abc", "abc/");
    row("lenchk closed", "FILENAMELENCHK", "/home/ann/", "/home/ann/");
    row("folderpath file", "GETFOLDERPATH", "/a/b.txt", "/a");
    row("folderpath bare name", "GETFOLDERPATH", "b.txt", "");
    row("folderpath only leading", "GETFOLDERPATH", "/b.txt", "");
    row("filechk empty", "FILECHK", "", "Untitled");
}

void tst_clsLibrary_files::textRules()
{
    QFETCH(QString, operation);
    QFETCH(QString, input);
    QFETCH(QString, expected);
    if (operation == "FILENAMELENCHK")
        QCOMPARE(lib().FILENAMELENCHK(input), expected);
    else if (operation == "GETFOLDERPATH")
        QCOMPARE(lib().GETFOLDERPATH(input), expected);
    else
        QCOMPARE(lib().FILECHK(input), expected);
}

void tst_clsLibrary_files::folderExist()
{
    ByteTempDir dir;
    // Created on the first call, which answers false; a name that isn't valid UTF-8
    // is created with its own bytes.
    const QString folder = decodeFileName(dir.bytes() + "/f\xF6to");
    QVERIFY(!lib().FOLDEREXIST(folder));
    QVERIFY(lib().FOLDEREXIST(folder));
    QVERIFY(!lib().FILEEXISTS(folder));

    int error = 0;
    try {
        lib().FOLDEREXIST(dir.path() + "/missing/album");
    } catch (const platform::Error& e) {
        error = e.number();
    }
    QCOMPARE(error, platform::err::PathNotFound);
    QVERIFY(!QFileInfo::exists(dir.path() + "/missing"));
}

void tst_clsLibrary_files::filesLocation_data()
{
    QTest::addColumn<QString>("stored"); // "<none>": nothing stored; "<temp>": an existing folder
    QTest::addColumn<bool>("fallsBack");
    QTest::newRow("nothing stored") << "<none>" << false;
    QTest::newRow("existing folder") << "<temp>" << false;
    QTest::newRow("missing folder") << "/no/such/folder" << true;
}

void tst_clsLibrary_files::filesLocation()
{
    QFETCH(QString, stored);
    QFETCH(bool, fallsBack);
    TempStore store;
    QTemporaryDir dir;
    const QString user = clsLibrary::currentUserKey();
    const QString prefsKey = clsLibrary::programKey() + "\\frmPrefs\\Items";
    const QString sharedKey = clsLibrary::companyKey() + "\\GLOBAL\\frmPPrev\\Items";
    if (stored == "<temp>")
        stored = dir.path();
    if (stored != "<none>")
        QVERIFY(lib().REGSTRWRITE(user, prefsKey, "Files Location", stored));

    const QString programFolder = platform::App::Path() + '/';
    const QString location = lib().FILESLOCATION();
    const QString written = lib().REGSTRREAD(user, sharedKey, "Files Location", "<unset>");
    if (fallsBack) {
        // The fallback goes to the shared key; the key that was read keeps its value.
        QCOMPARE(location, programFolder);
        QCOMPARE(written, programFolder);
        QCOMPARE(lib().REGSTRREAD(user, prefsKey, "Files Location", "<unset>"), stored);
    } else {
        QCOMPARE(location, stored == "<none>" ? programFolder : stored + '/');
        QCOMPARE(written, QStringLiteral("<unset>"));
    }
}

void tst_clsLibrary_files::fileDelete_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("answer");
    QTest::newRow("answered no") << QByteArray("a.jpg") << int(QMessageBox::No);
    QTest::newRow("latin-1 name, yes") << QByteArray("caf\xE9.jpg") << int(QMessageBox::Yes);
}

void tst_clsLibrary_files::fileDelete()
{
    QFETCH(QByteArray, name);
    QFETCH(int, answer);
    const bool trashed = answer == QMessageBox::Yes;
    // The trash lives under the XDG data home; HOME on the same file system makes
    // it the trash that a file of this folder goes to.
    ByteTempDir home;
    const QByteArray oldHome = qgetenv("HOME");
    qputenv("HOME", home.bytes());
    qputenv("XDG_DATA_HOME", home.bytes() + "/data");
    const auto restore = qScopeGuard([&] {
        qputenv("HOME", oldHome);
        qunsetenv("XDG_DATA_HOME");
    });
    const QByteArray file = home.bytes() + '/' + name;
    QVERIFY(writeBytes(file, "photo"));

    const int asked = platform::MsgBox::askedCount();
    platform::MsgBox::setNextAnswer(QMessageBox::StandardButton(answer));
    lib().FILEDELETE(decodeFileName(file));
    QCOMPARE(platform::MsgBox::askedCount(), asked + 1);
    QVERIFY(platform::MsgBox::lastText().contains(decodeFileName(name)));

    QCOMPARE(lib().FILEEXISTS(decodeFileName(file)), !trashed);
    const QByteArray trash = home.bytes() + "/data/Trash";
    QCOMPARE(readBytes(trash + "/files/" + name), trashed ? QByteArray("photo") : QByteArray("<missing>"));
    if (trashed) {
        // The info file records where the file came from, byte for byte.
        const QByteArray info = readBytes(trash + "/info/" + name + ".trashinfo");
        QVERIFY2(info.contains("Path=" + file.toPercentEncoding("/")), info.constData());
    }

    // A missing file is not asked about.
    lib().FILEDELETE(home.path() + "/nothing.jpg");
    QCOMPARE(platform::MsgBox::askedCount(), asked + 1);
}

void tst_clsLibrary_files::moveAndRename_data()
{
    // Before: a.jpg ("A"), b.jpg ("B") and sub/b.jpg ("SB").
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QStringList>("after");
    const auto row = [](const char* name, const char* operation, const char* from, const char* to,
                        const QStringList& after) {
        QTest::newRow(name) << QString(operation) << QString(from) << QString(to) << after;
    };
    const QStringList unchanged{"a.jpg", "A", "b.jpg", "B", "sub/b.jpg", "SB"};
    row("move into folder", "FILEMOVE", "a.jpg", "sub", {"sub/a.jpg", "A", "b.jpg", "B", "sub/b.jpg", "SB"});
    row("move never overwrites", "FILEMOVE", "b.jpg", "sub", unchanged);
    row("rename bare name", "FILERENAME", "a.jpg", "z.jpg", {"z.jpg", "A", "b.jpg", "B", "sub/b.jpg", "SB"});
    row("rename never overwrites", "FILERENAME", "a.jpg", "b.jpg", unchanged);
    row("rename onto a folder name", "FILERENAME", "a.jpg", "sub", unchanged);
}

void tst_clsLibrary_files::moveAndRename()
{
    QFETCH(QString, operation);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QStringList, after);
    QTemporaryDir dir;
    const QString root = dir.path() + '/';
    QVERIFY(QDir().mkdir(root + "sub"));
    QVERIFY(writeBytes(encodeFileName(root + "a.jpg"), "A"));
    QVERIFY(writeBytes(encodeFileName(root + "b.jpg"), "B"));
    QVERIFY(writeBytes(encodeFileName(root + "sub/b.jpg"), "SB"));

    if (operation == "FILEMOVE")
        lib().FILEMOVE(root + from, root + to);
    else
        lib().FILERENAME(root + from, to);
    for (qsizetype i = 0; i < after.size(); i += 2)
        QCOMPARE(readBytes(encodeFileName(root + after[i])), after[i + 1].toUtf8());
    QCOMPARE(QDir(root).entryList(QDir::Files).size() + QDir(root + "sub").entryList(QDir::Files).size(),
             after.size() / 2);
}

void tst_clsLibrary_files::moveAcrossFileSystems()
{
    ByteTempDir dir;
    struct stat here, shm;
    if (::stat("/dev/shm", &shm) != 0 || ::stat(dir.bytes().constData(), &here) != 0 ||
        here.st_dev == shm.st_dev || ::access("/dev/shm", W_OK) != 0)
        QSKIP("no second writable file system");
    ByteTempDir other(QStringLiteral("/dev/shm/vistarro-XXXXXX"));
    const QByteArray source = dir.bytes() + "/\xE9t\xE9.jpg";
    const QByteArray moved = other.bytes() + "/\xE9t\xE9.jpg";
    QVERIFY(writeBytes(source, "photo"));
    QCOMPARE(::chmod(source.constData(), 0640), 0);

    lib().FILEMOVE(decodeFileName(source), other.path());
    struct stat st;
    QCOMPARE(::stat(moved.constData(), &st), 0);
    QCOMPARE(st.st_mode & 0777, mode_t(0640));
    QCOMPARE(readBytes(moved), QByteArray("photo"));
    QCOMPARE(readBytes(source), QByteArray("<missing>"));

    // Back onto a name that exists again: nothing changes on either side.
    QVERIFY(writeBytes(source, "newer"));
    lib().FILEMOVE(decodeFileName(moved), decodeFileName(source));
    QCOMPARE(readBytes(source), QByteArray("newer"));
    QCOMPARE(readBytes(moved), QByteArray("photo"));
}

void tst_clsLibrary_files::internetAccess()
{
    QStringList urls;
    platform::Shell::setUrlOpenerForTests([&urls](const QString& url) {
        urls << url;
        return true;
    });
    lib().INTERNETACCESS("123", "mailto:", "");
    lib().INTERNETACCESS("123", "", "https://vistarro.example/");
    lib().INTERNETACCESS("", "mailto:", "ann@vistarro.example");
    platform::Shell::setUrlOpenerForTests({});
    QCOMPARE(urls, (QStringList{"https://vistarro.example/", "mailto:ann@vistarro.example"}));
}

QTEST_MAIN(tst_clsLibrary_files)
#include "tst_clsLibrary_files.moc"
