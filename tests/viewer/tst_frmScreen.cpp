// The slideshow against a store of its own and real picture files: the order of
// the pictures, the caption after each step, pause, the ways out, and what a
// missing or broken picture leaves on the screen. Time is driven by calling the
// timer's handler; nothing waits for the clock.
#include "FormSupport.h"
#include "TempStore.h"

#include "library/clsLibrary.h"
#include "platform/widgets/Screen.h"
#include "viewer/frmScreen.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

void store(const QString& key, const QString& item, const QString& data)
{
    QVERIFY(clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), key, item, data));
}

QString countKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Items");
}

// Picture files in a folder of their own, and the album in the store.
class Album {
public:
    QString picture(const QString& name, QSize size = {40, 30})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        image.save(path(name), "JPG");
        return path(name);
    }

    QString path(const QString& name) const { return dir_.filePath(name + QStringLiteral(".jpg")); }

    // Writes the count and one slot per path; a null path leaves its slot unwritten.
    static void setSlots(const QStringList& paths)
    {
        store(countKey(), QStringLiteral("Items"), QString::number(paths.size()));
        for (int n = 1; n <= paths.size(); ++n)
            if (!paths[n - 1].isNull())
                store(clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Selection"), QString::number(n),
                      paths[n - 1]);
    }

private:
    QTemporaryDir dir_;
};

frmScreen* start()
{
    Forms::get<frmScreen>().Show();
    return &Forms::get<frmScreen>();
}

QString caption(const frmScreen* form)
{
    return form->LBLDESC->text();
}

// What a user does, one letter each: T a tick; > and < the arrow keys; b, p, l a
// right click and B, P, L a left click on the background, the picture, the band;
// E, S, H, h Escape, Space, Home, Shift pressed and released;
// f the release of F12 alone, as when it started the show from the main window.
void act(frmScreen* form, QChar move)
{
    const auto click = [](QWidget* where, Qt::MouseButton button) { QTest::mouseClick(where, button); };
    switch (move.unicode()) {
    case 'T': form->TMRPICS_Timer(); break;
    case '>': QTest::keyClick(form, Qt::Key_Right); break;
    case '<': QTest::keyClick(form, Qt::Key_Left); break;
    case 'b': click(form->clientArea(), Qt::RightButton); break;
    case 'p': click(form->IMGMAIN, Qt::RightButton); break;
    case 'l': click(form->LBLDESC, Qt::RightButton); break;
    case 'B': click(form->clientArea(), Qt::LeftButton); break;
    case 'P': click(form->IMGMAIN, Qt::LeftButton); break;
    case 'L': click(form->LBLDESC, Qt::LeftButton); break;
    case 'E': QTest::keyClick(form, Qt::Key_Escape); break;
    case 'S': QTest::keyClick(form, Qt::Key_Space); break;
    case 'H': QTest::keyClick(form, Qt::Key_Home); break;
    case 'h': QTest::keyClick(form, Qt::Key_Shift); break;
    case 'f': QTest::keyRelease(form, Qt::Key_F12); break;
    }
}

} // namespace

class tst_frmScreen : public QObject {
    Q_OBJECT

    Form* main_ = nullptr;

private slots:
    // The main window that the show hides and shows again.
    void initTestCase() { Forms::setMainForm(main_ = new Form(QStringLiteral("frmMain"))); }
    void init() { main_->show(); }
    void cleanup() { testsupport::unloadForms<frmScreen>(); }
    void cleanupTestCase() { delete main_; }

    void moves_data()
    {
        QTest::addColumn<QString>("moves");
        QTest::addColumn<QStringList>("captions");
        // 1 where the move restarts the timer (stopped before each move).
        QTest::addColumn<QString>("restarts");
        QTest::newRow("ticks wrap, the caption keeps N of N")
            << "TTT" << QStringList{"b (2 of 3)", "c (3 of 3)", "a (1 of 3)"} << "000";
        QTest::newRow("a pause after the last picture shows the wrap")
            << "TTbTbT"
            << QStringList{"b (2 of 3)", "c (3 of 3)", "<<Paused>> c (0 of 3)", "<<Paused>> c (0 of 3)",
                           "c (0 of 3)", "a (1 of 3)"}
            << "000010";
        QTest::newRow("right wraps to the first")
            << ">>>" << QStringList{"b (2 of 3)", "c (3 of 3)", "a (1 of 3)"} << "111";
        QTest::newRow("left wraps to the last") << "<<" << QStringList{"c (3 of 3)", "b (2 of 3)"} << "11";
        QTest::newRow("left after a timed wrap repeats the last")
            << "TT<<" << QStringList{"b (2 of 3)", "c (3 of 3)", "c (3 of 3)", "b (2 of 3)"} << "0011";
        QTest::newRow("a tick after keys at the end wraps")
            << ">>T" << QStringList{"b (2 of 3)", "c (3 of 3)", "a (1 of 3)"} << "110";
        QTest::newRow("resume from the picture leaves the timer")
            << "pTp" << QStringList{"<<Paused>> a (1 of 3)", "<<Paused>> a (1 of 3)", "a (1 of 3)"} << "000";
        QTest::newRow("keys step a paused show")
            << "l>l" << QStringList{"<<Paused>> a (1 of 3)", "<<Paused>> b (2 of 3)", "b (2 of 3)"} << "010";
    }

    void moves()
    {
        QFETCH(QString, moves);
        QFETCH(QStringList, captions);
        QFETCH(QString, restarts);
        TempStore temp;
        Album album;
        album.setSlots({album.picture("a"), album.picture("b"), album.picture("c")});
        frmScreen* form = start();
        QVERIFY(!main_->isVisible());
        QCOMPARE(caption(form), QStringLiteral("a (1 of 3)"));
        QCOMPARE(platform::Screen::MousePointer(), 99);
        QCOMPARE(form->MousePointer(), 99);
        for (int i = 0; i < moves.size(); ++i) {
            form->TMRPICS->stop();
            act(form, moves[i]);
            QCOMPARE(caption(form), captions[i]);
            QCOMPARE(form->TMRPICS->isActive(), restarts[i] == QLatin1Char('1'));
        }
    }

    void leaving_data()
    {
        QTest::addColumn<QChar>("move");
        QTest::addColumn<bool>("leaves");
        for (const char move : {'E', 'S', 'H', 'h', 'B', 'P', 'L'})
            QTest::addRow("%c", move) << QChar(move) << true;
        QTest::newRow("right click on the band only pauses") << QChar('l') << false;
        QTest::newRow("release of the key that started the show") << QChar('f') << false;
    }

    void leaving()
    {
        QFETCH(QChar, move);
        QFETCH(bool, leaves);
        TempStore temp;
        Album album;
        album.setSlots({album.picture("a")});
        main_->setMousePointer(11);
        act(start(), move);
        QCOMPARE(Forms::isLoaded<frmScreen>(), !leaves);
        QCOMPARE(main_->isVisible(), leaves);
        if (leaves) {
            QCOMPARE(platform::Screen::MousePointer(), 0);
            QCOMPARE(main_->MousePointer(), 0);
        }
    }

    // A key that comes in during a step is handled at the step's end and may end the
    // show there; nothing may touch the form after that (the sanitizer build checks).
    void keyDuringAStepEndsTheShowAtItsEnd()
    {
        TempStore temp;
        Album album;
        album.setSlots({album.picture("a"), album.picture("b")});
        frmScreen* form = start();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            QCoreApplication::postEvent(form, new QKeyEvent(type, Qt::Key_Escape, Qt::NoModifier));
        form->TMRPICS_Timer();
        QVERIFY(!Forms::isLoaded<frmScreen>());
        QVERIFY(main_->isVisible());
    }

    void failedPicturesKeepThePreviousOne()
    {
        TempStore temp;
        Album album;
        QFile broken(album.path("broken"));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write(QByteArray(2000, 'B')) == 2000);
        broken.close();
        // Slot 5 is absent from the store and reads as the relative name "1".
        album.setSlots({album.picture("a"), album.path("gone"), "", broken.fileName(), QString()});
        frmScreen* form = start();
        const qint64 shown = form->IMGMAIN->pixmap().cacheKey();
        for (const char* expected : {"a (2 of 5)", "a (3 of 5)", "broken (4 of 5)", "broken (5 of 5)"}) {
            form->TMRPICS_Timer();
            QCOMPARE(caption(form), QString::fromLatin1(expected));
            QCOMPARE(form->IMGMAIN->pixmap().cacheKey(), shown);
        }
    }

    void storedCount_data()
    {
        QTest::addColumn<QString>("items");
        QTest::newRow("absent") << QString();
        QTest::newRow("not a number") << "many";
        QTest::newRow("beyond 16 bits") << "40000";
    }

    // Slot 1 is looked up all the same; with nothing found the screen stays black
    // and the name is empty.
    void storedCount()
    {
        QFETCH(QString, items);
        TempStore temp;
        if (!items.isNull())
            store(countKey(), QStringLiteral("Items"), items);
        frmScreen* form = start();
        QCOMPARE(caption(form), QStringLiteral(" (1 of 0)"));
        QVERIFY(form->IMGMAIN->pixmap().isNull());
    }

    void findName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        const auto row = [](const char* path, const char* name) {
            QTest::newRow(path) << QString(path) << QString(name);
        };
        row("/pics/sunset.jpg", "sunset");
        row("/pics/a.jpeg", "a");
        row("/pics/my.photo.jpg", "my.photo");
        // Other extensions keep every folder: the text behind the leftmost separator.
        row("/home/pics/old/a.gz", "home/pics/old/a.gz");
        row("/pics/old/a.x", "pics/old/a.x");
        row("/pics/old/noextension", "pics/old/noextension");
        // A picture in the root folder loses its separator like any other.
        row("/a.jpg", "a");
        row("sunset.jpg", "sunset.jpg");
        row("/x/a.b/c", "c");
    }

    void findName()
    {
        QFETCH(QString, path);
        QFETCH(QString, name);
        TempStore temp;
        frmScreen* form = start();
        form->PICPATH = path;
        form->FINDNAME();
        QCOMPARE(form->PICNAME, name);
    }

    // Twice the margin is even, so the cut is the same on both sides. One image
    // pixel is one device pixel, also on a scaled screen.
    void centresOnTheWholeScreen_data()
    {
        QTest::addColumn<QSize>("margin");
        QTest::newRow("larger than the screen") << QSize(-200, -100);
        QTest::newRow("smaller") << QSize(200, 100);
    }

    void centresOnTheWholeScreen()
    {
        QFETCH(QSize, margin);
        TempStore temp;
        Album album;
        const float ty = platform::Screen::TwipsPerPixelY();
        const QSize screen(qRound(platform::Screen::Width() / platform::Screen::TwipsPerPixelX()),
                           qRound(platform::Screen::Height() / ty));
        album.setSlots({album.picture("a", (screen - margin) * main_->devicePixelRatioF())});
        frmScreen* form = start();
        QCOMPARE(form->IMGMAIN->geometry(),
                 QRect(QPoint(margin.width() / 2, margin.height() / 2), screen - margin));
        QCOMPARE(form->LBLDESC->geometry(), QRect(0, qRound((form->ScaleHeight() - 540) / ty),
                                                  form->clientArea()->width(), qRound(540 / ty)));
        // The band is in front of the picture.
        QCOMPARE(form->clientArea()->childAt(form->LBLDESC->geometry().center()), form->LBLDESC);
    }
};

QTEST_MAIN(tst_frmScreen)
#include "tst_frmScreen.moc"
