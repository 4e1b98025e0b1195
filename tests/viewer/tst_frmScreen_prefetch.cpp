// The show's pictures decoded ahead and cut to the screen: what the screen shows
// is always what a plain LoadPicture of the file as it is now gives, whichever way
// the picture came (decoded at the step, decoded ahead on the worker, kept from
// before), and a picture decoded ahead is never used once its file or its slot
// has changed.
#include "FormSupport.h"
#include "TempStore.h"

#include "library/clsLibrary.h"
#include "platform/core/Error.h"
#include "platform/core/Picture.h"
#include "viewer/PicturePrefetch.h"
#include "viewer/frmScreen.h"

#include <QBuffer>
#include <QFileInfo>
#include <QLabel>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <QScopeGuard>

#include <system_error>
#include <thread>

#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

// Larger than the offscreen screen (800 x 800) both ways, and no multiple of the
// JPEG blocks, so that the cut falls inside blocks on every side.
constexpr QSize Large(1003, 907);

QByteArray jpegOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG", 90);
    return buffer.data();
}

// Noise over a gradient, so that a picture put up a pixel off doesn't compare
// equal.
QImage noisy(QSize size, quint32 seed, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y,
                           qRgb((x * 255 / size.width() + int(random.bounded(40u))) & 0xFF,
                                (y * 255 / size.height() + int(random.bounded(40u))) & 0xFF,
                                int(random.bounded(256u))));
    return image.convertToFormat(format);
}

// A JPEG with an EXIF orientation (1 to 8) in front of its data.
QByteArray oriented(const QByteArray& jpeg, int orientation)
{
    const QByteArray exif = QByteArray("ffe10022457869660000" // APP1, 34 bytes, "Exif\0\0"
                                       "4d4d002a00000008"     // big-endian TIFF, IFD at 8
                                       "0001"                 // one entry:
                                       "0112000300000001") +  // Orientation, one 16-bit value
                            QByteArray::number(orientation, 16).rightJustified(4, '0') +
                            "0000"      // the rest of the value's four bytes
                            "00000000"; // no further IFD
    return jpeg.left(2) + QByteArray::fromHex(exif) + jpeg.mid(2);
}

// A JPEG whose frame header claims 9000 x 9000 pixels: more than the decoder may
// allocate for the whole picture, though a screen's part of it would fit.
QByteArray claimingHugeSize(QByteArray jpeg)
{
    const qsizetype frame = jpeg.indexOf(QByteArray::fromHex("ffc0"));
    jpeg.replace(frame + 5, 4, QByteArray::fromHex("23282328"));
    return jpeg;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

void writeSlot(int slot, const QString& path)
{
    QVERIFY(clsLibrary::instance().REGSTRWRITE(
        clsLibrary::currentUserKey(), clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Selection"),
        QString::number(slot), path));
}

void writeAlbum(const QStringList& paths)
{
    QVERIFY(clsLibrary::instance().REGSTRWRITE(
        clsLibrary::currentUserKey(), clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Items"),
        QStringLiteral("Items"), QString::number(paths.size())));
    for (int slot = 1; slot <= paths.size(); ++slot)
        writeSlot(slot, paths[slot - 1]);
}

frmScreen* startShow()
{
    Forms::get<frmScreen>().Show();
    return &Forms::get<frmScreen>();
}

void leaveShow()
{
    testsupport::unloadForms<frmScreen>();
}

// Lets the show paint its picture, which hands the decodes ahead to the worker,
// and waits for them.
void settle()
{
    QCoreApplication::processEvents();
    PicturePrefetch::waitForWorker();
}

// The part of the picture the form shows, against the same part of the file as
// LoadPicture gives it now.
void showsFile(frmScreen* form, const QString& path)
{
    const QImage loaded = platform::LoadPicture(path);
    QCOMPARE(form->IMGMAIN->size(), loaded.size());
    const QRect seen =
        (form->IMGMAIN->geometry() & form->clientArea()->rect()).translated(-form->IMGMAIN->pos());
    QVERIFY(!seen.isEmpty());
    QCOMPARE(form->IMGMAIN->grab(seen).toImage().convertToFormat(QImage::Format_RGB32),
             loaded.copy(seen).convertToFormat(QImage::Format_RGB32));
}

} // namespace

class tst_frmScreen_prefetch : public QObject {
    Q_OBJECT

    Form* main_ = nullptr;
    QTemporaryDir dir_;

    QString file(const QString& name, const QByteArray& bytes)
    {
        const QString path = dir_.filePath(name);
        writeFile(path, bytes);
        return path;
    }

private slots:
    void initTestCase() { Forms::setMainForm(main_ = new Form(QStringLiteral("frmMain"))); }
    void cleanup()
    {
        leaveShow();
        PicturePrefetch::waitForWorker();
    }
    void cleanupTestCase() { delete main_; }

    // Short of address space the worker's thread can't start: the show goes on,
    // each step loading its own picture. It must run first, before any show has
    // started the worker of this process.
    void showGoesOnWithoutItsWorker()
    {
#if defined(__SANITIZE_ADDRESS__)
        QSKIP("AddressSanitizer reserves more address space than any limit leaves");
#endif
        TempStore store;
        QStringList pictures;
        for (int i = 0; i < 3; ++i)
            pictures << file(QStringLiteral("small%1.jpg").arg(i), jpegOf(noisy({64 + i, 48}, 30 + i)));
        writeAlbum(pictures);

        // Room for the show's small pictures and its window, not for a thread
        // whose stack is made larger than that.
        pthread_attr_t defaults, large;
        QCOMPARE(pthread_getattr_default_np(&defaults), 0);
        QCOMPARE(pthread_getattr_default_np(&large), 0);
        QCOMPARE(pthread_attr_setstacksize(&large, size_t(512) << 20), 0);
        QCOMPARE(pthread_setattr_default_np(&large), 0);
        QFile statm(QStringLiteral("/proc/self/statm"));
        QVERIFY(statm.open(QIODevice::ReadOnly));
        const rlim_t used = rlim_t(statm.readAll().split(' ').value(0).toULongLong()) * rlim_t(getpagesize());
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_AS, &before), 0);
        const rlimit tight{used + (rlim_t(96) << 20), before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_AS, &tight), 0);
        const auto loosen = [&] {
            setrlimit(RLIMIT_AS, &before);
            pthread_setattr_default_np(&defaults);
        };
        auto restore = qScopeGuard(loosen);
        bool threadStarted = false;
        try {
            std::thread([] {}).join();
            threadStarted = true;
        } catch (const std::system_error&) {
        }
        if (threadStarted)
            QSKIP("a thread still starts under the limit");

        frmScreen* form = startShow();
        for (int step = 1; step <= 4; ++step) {
            // The painted picture and the fallback timer both ask for the worker.
            QTest::qWait(300);
            const QString expected = pictures[step % 3];
            form->TMRPICS_Timer();
            QCOMPARE(form->PICPATH, expected);
            QCOMPARE(form->IMGMAIN->size(), QSize(64 + step % 3, 48));
        }
        restore.dismiss();
        loosen();
        showsFile(form, pictures[4 % 3]);
    }

    void shownPixelsAreTheFilesPixels_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray large = jpegOf(noisy(Large, 1));
        QTest::newRow("upright") << large;
        // 2 to 8: mirrored, turned half, flipped, and the four with a quarter turn,
        // stored on its side so that upright it is as large as the others.
        const QByteArray onItsSide = jpegOf(noisy(Large.transposed(), 2));
        for (int orientation = 2; orientation <= 8; ++orientation)
            QTest::addRow("orientation %d", orientation)
                << oriented(orientation >= 5 ? onItsSide : large, orientation);
        QTest::newRow("grey") << jpegOf(noisy(Large, 3, QImage::Format_Grayscale8));
        QTest::newRow("smaller than the screen") << jpegOf(noisy(QSize(301, 203), 4));
        QBuffer png;
        png.open(QIODevice::WriteOnly);
        noisy(Large, 5).save(&png, "PNG");
        QTest::newRow("png under a jpg name") << png.data();
    }

    // Slot 2 is decoded ahead while slot 1 shows; a new show loads it at its start.
    void shownPixelsAreTheFilesPixels()
    {
        QFETCH(QByteArray, content);
        TempStore store;
        const QString picture = file(QStringLiteral("picture.jpg"), content);
        writeAlbum({file(QStringLiteral("first.jpg"), jpegOf(noisy({64, 48}, 9))), picture});
        frmScreen* form = startShow();
        settle();
        const int hits = PicturePrefetch::hits();
        form->TMRPICS_Timer();
        QCOMPARE(PicturePrefetch::hits(), hits + 1);
        showsFile(form, picture);

        leaveShow();
        writeAlbum({picture});
        showsFile(startShow(), picture);
    }

    // The show's parts are centred, where a mirror maps a part onto itself; parts
    // off the centre pin the way from the upright picture to the stored one.
    void anyPartIsThatPartOfTheWholePicture_data()
    {
        shownPixelsAreTheFilesPixels_data();
    }

    void anyPartIsThatPartOfTheWholePicture()
    {
        QFETCH(QByteArray, content);
        const QString picture = file(QStringLiteral("picture.jpg"), content);
        const QImage whole = platform::LoadPicture(picture);
        for (const QRect& wanted : {QRect(0, 0, 37, 41), QRect(whole.width() - 120, 30, 120, 90),
                                    QRect(50, whole.height() - 70, 200, 70)}) {
            const platform::PicturePart part =
                platform::LoadPicturePart(picture, [&](QSize) { return wanted; });
            QCOMPARE(part.size, whole.size());
            QCOMPARE(part.part, wanted & whole.rect());
            QCOMPARE(part.image, whole.copy(part.part));
        }
    }

    void changedPicturesAreLoadedAgain_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("nothing") << "";
        QTest::newRow("size") << "size";
        QTest::newRow("modification time") << "time";
        QTest::newRow("slot path") << "slot";
    }

    void changedPicturesAreLoadedAgain()
    {
        QFETCH(QString, change);
        TempStore store;
        const QString next = file(QStringLiteral("next.jpg"), jpegOf(noisy(Large, 11)));
        writeAlbum({file(QStringLiteral("first.jpg"), jpegOf(noisy(Large, 10))), next});
        frmScreen* form = startShow();
        settle();

        // Another picture in the file, its time a minute on, or the slot naming
        // another file.
        QString expected = next;
        if (change == QLatin1String("size")) {
            QByteArray other = jpegOf(noisy(Large, 12));
            if (other.size() == QFileInfo(next).size())
                other.append('\0');
            writeFile(next, other);
        } else if (change == QLatin1String("time")) {
            struct stat st;
            QCOMPARE(::stat(QFile::encodeName(next).constData(), &st), 0);
            const timespec times[2] = {st.st_atim, {st.st_mtim.tv_sec + 60, st.st_mtim.tv_nsec}};
            QCOMPARE(::utimensat(AT_FDCWD, QFile::encodeName(next).constData(), times, 0), 0);
        } else if (change == QLatin1String("slot")) {
            expected = file(QStringLiteral("instead.jpg"), jpegOf(noisy(Large, 12)));
            writeSlot(2, expected);
        }
        const int hits = PicturePrefetch::hits();
        form->TMRPICS_Timer();
        QCOMPARE(PicturePrefetch::hits(), change.isEmpty() ? hits + 1 : hits);
        showsFile(form, expected);
        QCOMPARE(form->PICPATH, expected);
    }

    // The file decoded ahead has gone at its step: the previous picture stays and
    // the caption keeps the previous name.
    void aGoneFileKeepsThePreviousPicture()
    {
        TempStore store;
        const QString first = file(QStringLiteral("first.jpg"), jpegOf(noisy(Large, 20)));
        const QString gone = file(QStringLiteral("gone.jpg"), jpegOf(noisy(Large, 21)));
        writeAlbum({first, gone});
        frmScreen* form = startShow();
        settle();
        const qint64 shown = form->IMGMAIN->pixmap().cacheKey();
        QVERIFY(QFile::remove(gone));
        form->TMRPICS_Timer();
        QCOMPARE(form->IMGMAIN->pixmap().cacheKey(), shown);
        QCOMPARE(form->LBLDESC->text(), QStringLiteral("first (2 of 2)"));
        showsFile(form, first);
    }

    void refusedPicturesAreRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray jpeg = jpegOf(noisy(Large, 31));
        // Only the screen's part would be decoded, but the whole picture is over
        // the decoder's limit.
        QTest::newRow("over the allocation limit") << claimingHugeSize(jpeg);
        // The damage comes after the last row of the picture, far below the part
        // on the screen: a reserved marker in place of the end of the image.
        QTest::newRow("damaged after its last row") << jpeg.chopped(2) + QByteArray::fromHex("ffc8");
    }

    // A picture that LoadPicture refuses is refused decoded ahead too: the
    // previous picture stays, under the new name.
    void refusedPicturesAreRefused()
    {
        QFETCH(QByteArray, content);
        TempStore store;
        const QString first = file(QStringLiteral("first.jpg"), jpegOf(noisy(Large, 30)));
        const QString refused = file(QStringLiteral("refused.jpg"), content);
        QVERIFY_THROWS_EXCEPTION(platform::Error, platform::LoadPicture(refused));
        writeAlbum({first, refused});
        frmScreen* form = startShow();
        settle();
        const qint64 shown = form->IMGMAIN->pixmap().cacheKey();
        form->TMRPICS_Timer();
        QCOMPARE(form->IMGMAIN->pixmap().cacheKey(), shown);
        QCOMPARE(form->LBLDESC->text(), QStringLiteral("refused (2 of 2)"));
    }

    // A form that grows beyond the screen uncovers more of a large picture than
    // was decoded for the screen: the newly seen part is the file's too.
    void aGrownFormShowsMoreOfTheSamePicture()
    {
        TempStore store;
        const QString picture = file(QStringLiteral("picture.jpg"), jpegOf(noisy({1400, 1100}, 40)));
        writeAlbum({picture});
        frmScreen* form = startShow();
        settle();
        form->setWindowState(Qt::WindowNoState);
        form->resize(1800, 1500);
        QCoreApplication::processEvents();
        QVERIFY(form->clientArea()->width() > 1600);
        showsFile(form, picture);
    }
};

QTEST_MAIN(tst_frmScreen_prefetch)
#include "tst_frmScreen_prefetch.moc"
