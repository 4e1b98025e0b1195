#include "platform/core/Error.h"
#include "platform/core/FileListBox.h"
#include "platform/core/FileNames.h"

#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace platform;

namespace {

const QString PicturePattern = QStringLiteral("*.bmp;*.jpg;*.gif");

bool touch(const QByteArray& path)
{
    const int fd = ::open(path.constData(), O_CREAT | O_WRONLY, 0644);
    return fd >= 0 && ::close(fd) == 0;
}

QStringList namesOf(const FileListBox& box)
{
    QStringList names;
    for (int i = 0; i < box.ListCount(); ++i)
        names << box.List(i);
    return names;
}

int errorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

} // namespace

class tst_FileListBox : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void listing_data();
    void listing();
    void badFolderKeepsOldList_data();
    void badFolderKeepsOldList();
    void manyNamesCappedInNumericOrder();

private:
    QTemporaryDir dir_;
    QByteArray folder_;
};

void tst_FileListBox::initTestCase()
{
    QVERIFY(dir_.isValid());
    folder_ = encodeFileName(dir_.path());
    for (const char* name : {"Photo.JpG", "img10.jpg", "img2.jpg", "b.bmp", "a.gif", "A.gif", "notes.txt",
                             ".hidden.jpg", "caf\xE9.jpg"})
        QVERIFY(touch(folder_ + '/' + name));
    QCOMPARE(::mkdir(QByteArray(folder_ + "/folder.jpg").constData(), 0755), 0);
    QCOMPARE(::symlink("img2.jpg", QByteArray(folder_ + "/link.jpg").constData()), 0);
    QCOMPARE(::symlink("missing.jpg", QByteArray(folder_ + "/dangling.jpg").constData()), 0);
}

void tst_FileListBox::cleanupTestCase()
{
    // QTemporaryDir can't remove a name that isn't valid UTF-8.
    ::unlink(QByteArray(folder_ + "/caf\xE9.jpg").constData());
}

void tst_FileListBox::listing_data()
{
    const QString cafe = QStringLiteral("caf") + QChar(0xF7E9) + QStringLiteral(".jpg");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("names");
    // Names equal apart from case keep the order of their bytes ("A" before "a");
    // numbers sort by value; hidden files, folders and dangling links never list.
    QTest::newRow("pictures") << PicturePattern
                              << QStringList{"A.gif",    "a.gif",     "b.bmp",    cafe,
                                             "img2.jpg", "img10.jpg", "link.jpg", "Photo.JpG"};
    QTest::newRow("case ignored, blanks trimmed")
        << " *.JPG ; *.TXT"
        << QStringList{cafe, "img2.jpg", "img10.jpg", "link.jpg", "notes.txt", "Photo.JpG"};
}

void tst_FileListBox::listing()
{
    QFETCH(QString, pattern);
    QFETCH(QStringList, names);
    FileListBox box;
    box.setPattern(pattern); // with no folder yet: an empty list
    QCOMPARE(box.ListCount(), int16_t(0));
    box.setPath(dir_.path() + '/');
    QCOMPARE(box.Path(), dir_.path());
    QCOMPARE(namesOf(box), names);
    // Every name, also one that isn't valid UTF-8, leads back to its file.
    for (const QString& name : names)
        QCOMPARE(::access(encodeFileName(box.Path() + '/' + name).constData(), R_OK), 0);
    QCOMPARE(errorOf([&] { box.List(box.ListCount()); }), err::SubscriptOutOfRange);
    QCOMPARE(errorOf([&] { box.List(-1); }), err::SubscriptOutOfRange);
}

void tst_FileListBox::badFolderKeepsOldList_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << dir_.path() + "/nowhere";
    QTest::newRow("a file") << dir_.path() + "/b.bmp";
    QTest::newRow("unreadable") << dir_.path() + "/locked";
}

void tst_FileListBox::badFolderKeepsOldList()
{
    QFETCH(QString, path);
    if (path.endsWith("/locked")) {
        if (geteuid() == 0)
            QSKIP("permissions don't stop root from reading a folder");
        QCOMPARE(::mkdir(encodeFileName(path).constData(), 0), 0);
    }
    FileListBox box;
    box.setPattern(PicturePattern);
    box.setPath(dir_.path());
    const QStringList before = namesOf(box);
    QCOMPARE(errorOf([&] { box.setPath(path); }), err::PathNotFound);
    QCOMPARE(box.Path(), dir_.path());
    QCOMPARE(namesOf(box), before);
}

void tst_FileListBox::manyNamesCappedInNumericOrder()
{
    // More names than the 16-bit count holds: the list keeps the first 32,767, which
    // by numeric sorting are exactly n1 .. n32767.
    QTemporaryDir many;
    const QByteArray folder = encodeFileName(many.path());
    for (int i = 32800; i >= 1; --i)
        QVERIFY(touch(folder + "/n" + QByteArray::number(i) + ".jpg"));
    FileListBox box;
    box.setPattern(PicturePattern);
    box.setPath(many.path());
    QCOMPARE(box.ListCount(), int16_t(32767));
    QCOMPARE(box.List(9), QStringLiteral("n10.jpg"));
    QCOMPARE(box.List(32766), QStringLiteral("n32767.jpg"));
}

QTEST_GUILESS_MAIN(tst_FileListBox)
#include "tst_filelistbox.moc"
