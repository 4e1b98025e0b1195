#include "platform/core/Error.h"
#include "platform/core/FileListBox.h"
#include "platform/core/FileNames.h"
#include "platform/core/NameOrder.h"
#include "platform/core/NamePatterns.h"

#include <QCollator>

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <fcntl.h>
#include <fnmatch.h>
#include <numeric>
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
    void patternsMatchAsFnmatch();
    void orderIsTheCollators_data();
    void orderIsTheCollators();

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

void tst_FileListBox::patternsMatchAsFnmatch()
{
    // Plain patterns against ASCII names are compared directly; the rest goes to
    // fnmatch. Either way the answer is fnmatch's, also for a name that folds into
    // ASCII only outside it (the Kelvin sign folds to 'k').
    const QByteArrayList names = {"a.jpg",
                                  "A.JPG",
                                  "a.jpgx",
                                  "jpg",
                                  ".jpg",
                                  "x.Jpeg",
                                  "caf\xE9.jpg",
                                  "\xE2\x84\xAA.jpg",
                                  "x.\xE2\x84\xAApg",
                                  "a?b[c].jpg",
                                  "weird\\.jpg",
                                  "a.jp",
                                  "a.gif.jpg"};
    const QStringList patterns = {"*.jpg",  "*.JPG",   "*.kpg", "a.jpg",    "*",   "*.jp?",
                                  "[ab].*", "*\\.jpg", "caf*",  "*.\u00E9", "jpg", "*.gif"};
    for (const QString& pattern : patterns) {
        const NamePatterns matcher(pattern);
        const QByteArray bytes = encodeFileName(pattern);
        for (const QByteArray& name : names)
            QVERIFY2(matcher.matches(name.constData()) ==
                         (fnmatch(bytes.constData(), name.constData(), FNM_CASEFOLD) == 0),
                     qPrintable(pattern + " against " + decodeFileName(name)));
    }
}

void tst_FileListBox::orderIsTheCollators_data()
{
    QTest::addColumn<QByteArrayList>("names");
    // The order is checked against the collator's sort keys with the bytes as the
    // tie-break, whatever the names: those the quick order gets right, those it
    // puts right afterwards, and those it gives up on.
    QTest::newRow("ASCII") << QByteArrayList{"b.jpg",
                                             "A.jpg",
                                             "a.jpg",
                                             "a-b.jpg",
                                             "a_b.jpg",
                                             "a b.jpg",
                                             "a.b.jpg",
                                             "ab.jpg",
                                             "a1.jpg",
                                             "a01.jpg",
                                             "a001.jpg",
                                             "a10.jpg",
                                             "a9b.jpg",
                                             "a9.jpg",
                                             "0.jpg",
                                             "000.jpg",
                                             "Z.jpg",
                                             "~.jpg",
                                             "a\x01.jpg",
                                             "a.jpg~",
                                             "a2.jpg",
                                             "a2.JPG",
                                             "a12345678901234567890"};
    QTest::newRow("beyond ASCII") << QByteArrayList{
        "caf\xC3\xA9.jpg", "cafe.jpg",         "cafz.jpg", "caf\xE9.jpg",          "\xC3\x89t\xC3\xA9.jpg",
        "ete.jpg",         "\xE2\x84\xAA.jpg", "k.jpg",    "\xD9\xA1\xD9\xA2.jpg", "12.jpg"};
    QByteArrayList interleaved; // the quick order puts every accented name after all plain ones
    for (int i = 0; i < 300; ++i) {
        interleaved << "e" + QByteArray::number(i) + ".jpg";
        interleaved << "\xC3\xA9" + QByteArray::number(i) + ".jpg";
    }
    QTest::newRow("far off") << interleaved;
}

void tst_FileListBox::orderIsTheCollators()
{
    QFETCH(QByteArrayList, names);
    std::vector<QString> texts;
    std::vector<const char*> bytes;
    for (const QByteArray& name : names) {
        texts.push_back(decodeFileName(name));
        bytes.push_back(name.constData());
    }
    QLocale locale;
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English);
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::vector<size_t> expected(names.size());
    std::iota(expected.begin(), expected.end(), size_t(0));
    std::sort(expected.begin(), expected.end(), [&](size_t a, size_t b) {
        const int byKey = collator.sortKey(texts[a]).compare(collator.sortKey(texts[b]));
        return byKey != 0 ? byKey < 0 : names[qsizetype(a)] < names[qsizetype(b)];
    });
    QCOMPARE(fileManagerOrder(texts, bytes), expected);
}

QTEST_GUILESS_MAIN(tst_FileListBox)
#include "tst_filelistbox.moc"
