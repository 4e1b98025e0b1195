// Files that anybody can have put in a folder, and what listing, adding, the
// preview, the properties dialog and the show make of each: pictures cut short or
// damaged, empty files, pictures that claim 60000 by 60000 pixels, a folder, a
// named pipe, a dangling link and an unreadable file named like pictures, names
// that aren't UTF-8, hold a line feed or are 255 bytes long, and folders of
// 32,767 and 40,000 pictures. Nothing may hang, crash or take more memory than a
// picture may.
//
// As root the test runs as nobody, so that an unreadable file is unreadable.
#include "FormSupport.h"
#include "TempStore.h"

#include "album/frmMain.h"
#include "library/clsLibrary.h"
#include "picinfo/frmProps.h"
#include "platform/core/FileNames.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/MsgBox.h"
#include "platform/widgets/PictureBox.h"
#include "viewer/frmPPrevPhoto.h"
#include "viewer/frmScreen.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtEndian>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Every step over one file must end within this time.
constexpr qint64 StepLimitMs = 10000;

QByteArray encoded(const char* format, QSize size = {64, 48})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

QByteArray bytesOf(quint32 value)
{
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}

// A GIF of one pixel, the smallest there is.
const QByteArray
    OnePixelGif("GIF89a\x01\x00\x01\x00\x80\x00\x00\xff\xff\xff\x00\x00\x00!\xf9\x04\x01\x00\x00\x00\x00"
                ",\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00;",
                43);

// Headers that claim 60000 by 60000 pixels in front of a little picture data.
QByteArray hugeBmp()
{
    QByteArray bmp = encoded("bmp");
    bmp.replace(18, 8, bytesOf(qToLittleEndian(60000u)) + bytesOf(qToLittleEndian(60000u)));
    return bmp;
}

QByteArray hugePng()
{
    QByteArray png = encoded("png");
    // IHDR: its width and height, then a CRC that fits them.
    png.replace(16, 8, QByteArray("\x00\x00\xea\x60\x00\x00\xea\x60", 8));
    const quint32 crc = ~[&] {
        quint32 c = 0xffffffffu;
        for (const char byte : png.mid(12, 17)) {
            c ^= uchar(byte);
            for (int k = 0; k < 8; ++k)
                c = (c >> 1) ^ (0xedb88320u & (0u - (c & 1u)));
        }
        return c;
    }();
    png.replace(29, 4, bytesOf(qToBigEndian(crc)));
    return png;
}

QByteArray hugeJpeg()
{
    QByteArray jpeg = encoded("jpeg");
    const qsizetype frame = jpeg.indexOf("\xff\xc0");
    jpeg.replace(frame + 5, 4, QByteArray("\xea\x60\xea\x60", 4));
    return jpeg;
}

QByteArray hugeGif()
{
    QByteArray gif = OnePixelGif;
    gif.replace(6, 4, QByteArray("\x60\xea\x60\xea", 4));
    gif.replace(28, 8, QByteArray("\x00\x00\x00\x00\x60\xea\x60\xea", 8));
    return gif;
}

QByteArray damaged(QByteArray bytes, qsizetype at, qsizetype count = 16)
{
    for (qsizetype i = at; i < at + count && i < bytes.size(); ++i)
        bytes[i] = char(bytes[i] ^ 0xa5);
    return bytes;
}

// What the preview, the properties dialog and the show make of one path.
struct Outcome {
    QString preview;    // "WxH" of the picture shown, or the line that says why not
    QString properties; // "TYPE WxH" of the Picture tab, and " | " and the message shown
    QString show;       // the caption, and "picture WxH" or "previous picture"
};

QString sizeText(QSize size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString previewOf(const QString& path)
{
    frmPPrevPhoto& preview = Forms::get<frmPPrevPhoto>();
    preview.loadPicture(path);
    const QString shown = preview.PICPREVIEW->Picture().isNull()
                              ? preview.PICPREVIEW->message()
                              : sizeText(preview.PICPREVIEW->Picture().size());
    Forms::unload<frmPPrevPhoto>();
    return shown;
}

// Answers queued for the message box that no box has taken yet.
int queuedAnswers = 0;

QString propertiesOf(const QString& path)
{
    QString shown;
    QTimer::singleShot(0, [&] {
        frmProps& props = Forms::get<frmProps>();
        shown = props.TXTPICTYPE->text() + QLatin1Char(' ') + props.TXTPICWIDTH->text().section(' ', 0, 0) +
                QLatin1Char('x') + props.TXTPICHEIGHT->text().section(' ', 0, 0);
        props.BTNCLOSE->click();
        Forms::unload<frmProps>();
    });
    const int asked = platform::MsgBox::askedCount();
    if (queuedAnswers == 0) {
        platform::MsgBox::setNextAnswer(QMessageBox::Ok);
        queuedAnswers = 1;
    }
    clsLibrary::instance().GETPROPERTIES(frmProps::load, path, nullptr, QStringLiteral("PICTURE"));
    if (platform::MsgBox::askedCount() != asked) {
        queuedAnswers = 0;
        shown += QStringLiteral(" |") + platform::MsgBox::lastText();
    }
    return shown;
}

// The show of a good picture of 40 x 30 and then this one: what the second step
// leaves on the screen.
QString showOf(const QString& good, const QString& path)
{
    const auto write = [](const QString& key, const QString& item, const QString& data) {
        clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), key, item, data);
    };
    write(frmMain::albumCountKey(), QStringLiteral("Items"), QStringLiteral("2"));
    write(frmMain::albumSlotsKey(), QStringLiteral("1"), good);
    write(frmMain::albumSlotsKey(), QStringLiteral("2"), path);
    frmScreen& show = Forms::get<frmScreen>();
    show.Show();
    show.TMRPICS_Timer();
    const QSize size = show.IMGMAIN->pixmap().size();
    const QString shown = show.LBLDESC->text() + QLatin1String(", ") +
                          (size == QSize(40, 30) ? QStringLiteral("previous picture")
                                                 : QStringLiteral("picture ") + sizeText(size));
    testsupport::unloadForms<frmScreen>();
    return shown;
}

qint64 peakMemoryKiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Makes `count` names in a folder, hard links of one empty picture.
void makeMany(const QString& folder, int count)
{
    const QByteArray first = QFile::encodeName(folder + QStringLiteral("/img00001.jpg"));
    QFile(QFile::decodeName(first)).open(QIODevice::WriteOnly);
    for (int i = 2; i <= count; ++i) {
        const QByteArray name =
            QFile::encodeName(folder + QStringLiteral("/img%1.jpg").arg(i, 5, 10, QLatin1Char('0')));
        if (::link(first.constData(), name.constData()) != 0)
            qFatal("can't link %s", name.constData());
    }
}

} // namespace

class tst_HostileFiles : public QObject {
    Q_OBJECT

    QTemporaryDir* folder_ = nullptr;
    QTemporaryDir* other_ = nullptr; // the show's first picture
    TempStore* store_ = nullptr;
    QString good_;
    bool unprivileged_ = false;

    QString path(const QByteArray& name) const
    {
        return platform::decodeFileName(QFile::encodeName(folder_->path()) + '/' + name);
    }

    void put(const QByteArray& name, const QByteArray& bytes)
    {
        const int fd =
            ::open(platform::encodeFileName(path(name)).constData(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
        QVERIFY(fd >= 0);
        QCOMPARE(::write(fd, bytes.constData(), size_t(bytes.size())), ssize_t(bytes.size()));
        ::close(fd);
    }

private slots:
    void initTestCase()
    {
        // An unreadable file is only unreadable for someone other than root.
        if (geteuid() == 0)
            unprivileged_ = setegid(65534) == 0 && seteuid(65534) == 0;
        folder_ = new QTemporaryDir;
        other_ = new QTemporaryDir;
        store_ = new TempStore;
        good_ = other_->filePath(QStringLiteral("first.jpg"));
        QFile first(good_);
        QVERIFY(first.open(QIODevice::WriteOnly) && first.write(encoded("jpeg", {40, 30})) > 0);
        first.close();
        put("good.jpg", encoded("jpeg"));

        const QByteArray bmp = encoded("bmp"), jpeg = encoded("jpeg"), png = encoded("png");
        put("bmp-cut.bmp", bmp.left(bmp.size() / 3));
        put("bmp-damaged.bmp", damaged(bmp, 28, 4)); // the bit count and compression
        put("gif-cut.gif", OnePixelGif.left(30));
        put("gif-damaged.gif", damaged(OnePixelGif, 13, 28)); // colour table and image header
        put("jpeg-cut-in-header.jpg", jpeg.left(120));
        const qsizetype scan = jpeg.indexOf("\xff\xda");
        put("jpeg-cut-in-data.jpg", jpeg.left((scan + jpeg.size()) / 2));
        put("jpeg-damaged.jpg", damaged(jpeg, jpeg.size() * 2 / 3, 64));
        put("png-cut.jpg", png.left(png.size() / 2));
        put("png-damaged.jpg", damaged(png, png.size() - 30, 8));
        put("empty.jpg", QByteArray());
        put("huge.bmp", hugeBmp());
        put("huge-png.jpg", hugePng());
        put("huge.jpg", hugeJpeg());
        put("huge.gif", hugeGif());
        QVERIFY(::mkdir(platform::encodeFileName(path("folder.jpg")).constData(), 0755) == 0);
        QVERIFY(::mkfifo(platform::encodeFileName(path("pipe.jpg")).constData(), 0644) == 0);
        QVERIFY(::symlink("nowhere.jpg", platform::encodeFileName(path("dangling.jpg")).constData()) == 0);
        put("unreadable.jpg", jpeg);
        QVERIFY(::chmod(platform::encodeFileName(path("unreadable.jpg")).constData(), 0) == 0);
        put("caf\xe9.jpg", jpeg);
        put("line\nfeed.jpg", jpeg);
        put(QByteArray(251, 'n') + ".jpg", jpeg);
    }

    void cleanup() { testsupport::unloadForms<frmMain, frmScreen, frmPPrevPhoto, frmProps>(); }

    void cleanupTestCase()
    {
        testsupport::unloadForms<frmMain>();
        delete store_;
        delete folder_;
        delete other_;
        if (unprivileged_) {
            QVERIFY(seteuid(0) == 0);
            QVERIFY(setegid(0) == 0);
        }
    }

    // Listing lists the regular files among them, and adding adds every one.
    void listingAndAdding()
    {
        frmMain& form = Forms::get<frmMain>();
        QElapsedTimer clock;
        clock.start();
        form.FTVBROWSE->setSelectedfolder(folder_->path());
        form.ADDALL();
        QVERIFY(clock.elapsed() < StepLimitMs);
        QStringList found, added;
        for (int i = 1; i <= form.LVWFOUND->ListItems().Count(); ++i)
            found << form.LVWFOUND->ListItems()(i).Text();
        for (int i = 1; i <= form.LSTSELECTED->ListItems().Count(); ++i)
            added << form.LSTSELECTED->ListItems()(i).Text();
        const QStringList expected{
            "bmp-cut.bmp",
            "bmp-damaged.bmp",
            platform::decodeFileName("caf\xe9.jpg"),
            "empty.jpg",
            "gif-cut.gif",
            "gif-damaged.gif",
            "good.jpg",
            "huge-png.jpg",
            "huge.bmp",
            "huge.gif",
            "huge.jpg",
            "jpeg-cut-in-data.jpg",
            "jpeg-cut-in-header.jpg",
            "jpeg-damaged.jpg",
            "line\nfeed.jpg",
            QString(251, 'n') + ".jpg",
            "png-cut.jpg",
            "png-damaged.jpg",
            "unreadable.jpg",
        };
        QCOMPARE(found, expected);
        QStringList paths;
        for (const QString& name : expected)
            paths << folder_->path() + QLatin1Char('/') + name;
        QCOMPARE(added, paths);
        testsupport::unloadForms<frmMain>();
    }

    void eachFile_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("preview");
        QTest::addColumn<QString>("properties");
        QTest::addColumn<QString>("show");
        const QString invalid = QStringLiteral("The picture can't be shown: Invalid picture.");
        const QString notFound = QStringLiteral("The picture can't be shown: File not found.");
        // The Picture tab keeps "0" in its boxes for a type it doesn't know.
        const QString unknown = QStringLiteral("0 0x0");
        const auto failed = [](const char* type, const char* error) {
            return QStringLiteral("%1 0x0 | Error occurs : %2")
                .arg(QLatin1String(type), QLatin1String(error));
        };
        const auto shows = [](const QString& name) {
            return name + QStringLiteral(" (2 of 2), picture 64x48");
        };
        const auto keeps = [](const QString& name) {
            return name + QStringLiteral(" (2 of 2), previous picture");
        };
        // The show names a file it finds and can't load, and keeps the name before
        // for a path that is no regular file.
        const QString before = keeps(QStringLiteral("first"));

        QTest::newRow("a good picture") << QByteArray("good.jpg") << "64x48"
                                        << "JPEG 64x48" << shows("good");
        QTest::newRow("BMP cut short")
            << QByteArray("bmp-cut.bmp") << invalid << "BMP 64x48" << keeps("bmp-cut");
        QTest::newRow("BMP damaged header")
            << QByteArray("bmp-damaged.bmp") << invalid << "BMP 64x48" << keeps("bmp-damaged");
        QTest::newRow("GIF cut short")
            << QByteArray("gif-cut.gif") << invalid << "GIF 1x1" << keeps("gif-cut");
        QTest::newRow("GIF damaged") << QByteArray("gif-damaged.gif") << invalid << "GIF 1x1"
                                     << keeps("gif-damaged");
        QTest::newRow("JPEG cut in its header")
            << QByteArray("jpeg-cut-in-header.jpg") << invalid << unknown << keeps("jpeg-cut-in-header");
        QTest::newRow("JPEG cut in its data") << QByteArray("jpeg-cut-in-data.jpg") << "64x48"
                                              << "JPEG 64x48" << shows("jpeg-cut-in-data");
        QTest::newRow("JPEG damaged data") << QByteArray("jpeg-damaged.jpg") << "64x48"
                                           << "JPEG 64x48" << shows("jpeg-damaged");
        QTest::newRow("PNG cut short")
            << QByteArray("png-cut.jpg") << invalid << "PNG 64x48" << keeps("png-cut");
        QTest::newRow("PNG damaged data")
            << QByteArray("png-damaged.jpg") << invalid << "PNG 64x48" << keeps("png-damaged");
        QTest::newRow("empty file") << QByteArray("empty.jpg") << invalid << unknown << keeps("empty");
        QTest::newRow("BMP of 60000 x 60000")
            << QByteArray("huge.bmp") << invalid << failed("BMP", "Overflow") << keeps("huge");
        QTest::newRow("PNG of 60000 x 60000")
            << QByteArray("huge-png.jpg") << invalid << failed("PNG", "Overflow") << keeps("huge-png");
        QTest::newRow("JPEG of 60000 x 60000")
            << QByteArray("huge.jpg") << invalid << failed("JPEG", "Overflow") << keeps("huge");
        QTest::newRow("GIF of 60000 x 60000")
            << QByteArray("huge.gif") << invalid << failed("GIF", "Overflow") << keeps("huge");
        QTest::newRow("folder") << QByteArray("folder.jpg") << invalid
                                << failed("0", "Path/File access error") << before;
        QTest::newRow("named pipe") << QByteArray("pipe.jpg") << invalid
                                    << failed("0", "Path/File access error") << before;
        QTest::newRow("dangling link")
            << QByteArray("dangling.jpg") << notFound << failed("0", "File not found") << before;
        if (unprivileged_ || geteuid() != 0)
            QTest::newRow("unreadable file") << QByteArray("unreadable.jpg") << invalid
                                             << failed("0", "Permission denied") << keeps("unreadable");
        QTest::newRow("name not UTF-8") << QByteArray("caf\xe9.jpg") << "64x48"
                                        << "JPEG 64x48" << shows(QStringLiteral("caf") + QChar(0xf7e9));
        QTest::newRow("line feed in the name") << QByteArray("line\nfeed.jpg") << "64x48"
                                               << "JPEG 64x48" << shows("line\nfeed");
        // The store reads a path of more than 254 characters as absent: the slot
        // reads as the viewer's default "1", which names no file.
        QTest::newRow("name of 255 bytes") << QByteArray(251, 'n') + ".jpg"
                                           << "64x48"
                                           << "JPEG 64x48" << before;
    }

    void eachFile()
    {
        QFETCH(QByteArray, name);
        const QString file = path(name);
        const qint64 memoryBefore = peakMemoryKiB();
        QElapsedTimer clock;
        clock.start();
        Outcome got;
        got.preview = previewOf(file);
        QVERIFY(clock.restart() < StepLimitMs);
        got.properties = propertiesOf(file);
        QVERIFY(clock.restart() < StepLimitMs);
        got.show = showOf(good_, file);
        QVERIFY(clock.restart() < StepLimitMs);
        // Nothing decoded here may come near the decoders' limit.
        QVERIFY(peakMemoryKiB() - memoryBefore < 64 * 1024);

        qInfo("%s | %s | %s | %s", QTest::currentDataTag(), qPrintable(got.preview),
              qPrintable(got.properties), qPrintable(got.show));
        QTEST(got.preview, "preview");
        QTEST(got.properties, "properties");
        QTEST(got.show, "show");
    }

    // The found list and the album hold 32,767 items at the most: a folder of
    // 32,767 pictures lists and adds whole, one of 40,000 lists its first 32,767,
    // and an add to the full album does nothing. The show runs over the album.
    void bigFolders()
    {
        QTemporaryDir full, over;
        makeMany(full.path(), 32767);
        makeMany(over.path(), 40000);
        TempStore store;
        frmMain& form = Forms::get<frmMain>();
        QElapsedTimer clock;
        clock.start();
        form.FTVBROWSE->setSelectedfolder(full.path());
        QCOMPARE(form.LVWFOUND->ListItems().Count(), 32767);
        form.ADDALL();
        QCOMPARE(form.LSTSELECTED->ListItems().Count(), 32767);
        form.FTVBROWSE->setSelectedfolder(over.path());
        QCOMPARE(form.LVWFOUND->ListItems().Count(), 32767);
        QCOMPARE(form.LVWFOUND->ListItems()(32767).Text(), QStringLiteral("img32767.jpg"));
        form.ADDALL();
        QCOMPARE(form.LSTSELECTED->ListItems().Count(), 32767);
        qInfo("two folder changes and an add of 32,767 pictures: %lld ms", clock.elapsed());
        testsupport::unloadForms<frmMain>();

        // The show steps over the empty files to the end of the album and round.
        frmScreen& show = Forms::get<frmScreen>();
        show.Show();
        QCOMPARE(show.PICCOUNT, int16_t(32767));
        QTest::keyClick(&show, Qt::Key_Left);
        QCOMPARE(show.LBLDESC->text(), QStringLiteral("img32767 (32767 of 32767)"));
        show.TMRPICS_Timer();
        QCOMPARE(show.LBLDESC->text(), QStringLiteral("img00001 (1 of 32767)"));
        testsupport::unloadForms<frmScreen>();
    }
};

QTEST_MAIN(tst_HostileFiles)
#include "tst_hostile_files.moc"
