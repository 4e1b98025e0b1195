#include "library/clsLibrary.h"

#include "platform/widgets/Form.h"
#include "platform/widgets/Screen.h"

#include "Stored.h"
#include "TempStore.h"

#include <QFile>
#include <QPushButton>
#include <QTest>

#include <memory>

namespace {

// The offscreen screen: 800 by 800 pixels at 96 DPI, 15 twips to the pixel.
constexpr float ScreenWidth = 12000;
constexpr float ScreenHeight = 12000;

// A form's design placement in these tests, on the pixel grid.
constexpr float DesignLeft = 1500;
constexpr float DesignTop = 1200;
constexpr float DesignWidth = 6000;
constexpr float DesignHeight = 4500;

const QString Folder = QStringLiteral("GLOBAL");
const QString Absent = QStringLiteral("(absent)");

class frmPlaced : public Form {
public:
    frmPlaced() : Form(QStringLiteral("frmPlaced"))
    {
        Move(DesignLeft, DesignTop, DesignWidth, DesignHeight);
    }
};

QString windowKey()
{
    return clsLibrary::companyKey() + QStringLiteral("\\GLOBAL\\frmPlaced\\Window");
}

QString stored(const QString& item)
{
    return testsupport::stored(windowKey(), item, Absent);
}

void store(const QString& item, const QString& data)
{
    QVERIFY(clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), windowKey(), item, data));
}

// Stores the values of a row; an empty text stands for a value that isn't there.
void storeRow(const QStringList& items, const QStringList& values)
{
    for (qsizetype i = 0; i < items.size(); ++i)
        if (!values.at(i).isEmpty())
            store(items.at(i), values.at(i));
}

const QStringList PlacementItems = {QStringLiteral("Window State"), QStringLiteral("Left"),
                                    QStringLiteral("Top"), QStringLiteral("Width"), QStringLiteral("Height")};

} // namespace

class tst_clsLibraryPlacement : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void restore_data();
    void restore();
    void maximizedStartStopsBeforeSizeAndPlace();
    void save_data();
    void save();
    void roundTripOfAShownWindow();
    void buttonsInTheTopRightCorner();
};

void tst_clsLibraryPlacement::initTestCase()
{
    if (platform::Screen::TwipsPerPixelX() != 15 || platform::Screen::Width() != ScreenWidth ||
        platform::Screen::Height() != ScreenHeight)
        QSKIP("the expected places are worked out for the offscreen screen of 800 by 800 at 96 DPI");
}

void tst_clsLibraryPlacement::restore_data()
{
    QTest::addColumn<bool>("resize");
    QTest::addColumn<QStringList>("values"); // "Window State", "Left", "Top", "Width", "Height"
    QTest::addColumn<QRectF>("expected");    // left, top, width, height in twips

    const QRectF design(DesignLeft, DesignTop, DesignWidth, DesignHeight);
    // Centred at the design size: (6000 + 12000) / 2 - 6000 and (4500 + 12000) / 2 - 4500.
    const float centreLeft = 3000;
    const float centreTop = 3750;

    QTest::newRow("first start keeps the design place") << true << QStringList{"", "", "", "", ""} << design;
    QTest::newRow("normal state restores size and place")
        << true << QStringList{"0", "600", "300", "7500", "6000"} << QRectF(600, 300, 7500, 6000);
    QTest::newRow("left below 0 centres across only") << true << QStringList{"0", "-100", "300", "", ""}
                                                      << QRectF(centreLeft, 300, DesignWidth, DesignHeight);
    QTest::newRow("off the right edge, from a larger screen")
        << true << QStringList{"0", "9000", "300", "", ""}
        << QRectF(centreLeft, 300, DesignWidth, DesignHeight);
    QTest::newRow("exactly at the right and bottom edges stays")
        << true << QStringList{"0", "6000", "7500", "", ""} << QRectF(6000, 7500, DesignWidth, DesignHeight);
    // (15000 + 12000) / 2 - 15000 and (13500 + 12000) / 2 - 13500.
    QTest::newRow("larger than the screen is centred at a negative place")
        << true << QStringList{"0", "0", "0", "15000", "13500"} << QRectF(-1500, -750, 15000, 13500);
    // (6015 + 12000) / 2 - 6015 is 2992.5, which rounds to the even 2992, and that
    // lands on pixel 199; rounding up to 2993 would land on pixel 200.
    QTest::newRow("centre rounds halves to even")
        << true << QStringList{"0", "-15", "", "6015", ""} << QRectF(199 * 15, DesignTop, 6015, DesignHeight);
    QTest::newRow("without resize the size stays") << false << QStringList{"0", "600", "300", "7500", "6000"}
                                                   << QRectF(600, 300, DesignWidth, DesignHeight);
    QTest::newRow("without resize the centre is the design size's")
        << false << QStringList{"", "-100", "-100", "7500", "6000"}
        << QRectF(centreLeft, centreTop, DesignWidth, DesignHeight);
    QTest::newRow("values that aren't numbers keep the present ones")
        << true << QStringList{"maximized", "abc", "300", "wide", "1e99"}
        << QRectF(DesignLeft, 300, DesignWidth, DesignHeight);
}

void tst_clsLibraryPlacement::restore()
{
    QFETCH(bool, resize);
    QFETCH(QStringList, values);
    QFETCH(QRectF, expected);
    TempStore temp;
    storeRow(PlacementItems, values);

    frmPlaced form;
    clsLibrary::instance().FORMLOAD(Folder, &form, resize);

    QCOMPARE(form.WindowState(), 0);
    QCOMPARE(QRectF(form.Left(), form.Top(), form.Width(), form.Height()), expected);
}

// A window closed maximized comes up maximized; its stored place and size aren't
// applied, so on restore it goes to its design size and place.
void tst_clsLibraryPlacement::maximizedStartStopsBeforeSizeAndPlace()
{
    TempStore temp;
    storeRow(PlacementItems, {"2", "-100", "300", "7500", "6000"});

    frmPlaced form;
    clsLibrary::instance().FORMLOAD(Folder, &form, true);

    QCOMPARE(form.WindowState(), 2);
    form.setWindowState(0);
    // The window inside its frame, in pixels, as the design placement put it.
    QCOMPARE(form.geometry(), QRect(100, 80, 400, 300));
}

void tst_clsLibraryPlacement::save_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("resize");
    QTest::addColumn<QStringList>("written");

    QTest::newRow("normal") << 0 << true << PlacementItems;
    QTest::newRow("maximized writes only the state") << 2 << true << QStringList{"Window State"};
    QTest::newRow("minimized writes nothing") << 1 << true << QStringList{};
    QTest::newRow("without resize only the place") << 0 << false << QStringList{"Left", "Top"};
}

// Values not written keep what the last close stored.
void tst_clsLibraryPlacement::save()
{
    QFETCH(int, state);
    QFETCH(bool, resize);
    QFETCH(QStringList, written);
    TempStore temp;
    const QString old = QStringLiteral("old");
    for (const QString& item : PlacementItems)
        store(item, old);

    frmPlaced form;
    form.setWindowState(state);
    clsLibrary::instance().FORMSAVE(Folder, &form, resize);

    const QStringList present = {QString::number(state), QString::number(form.Left()),
                                 QString::number(form.Top()), QString::number(form.Width()),
                                 QString::number(form.Height())};
    for (qsizetype i = 0; i < PlacementItems.size(); ++i) {
        const QString& item = PlacementItems.at(i);
        QCOMPARE(stored(item), written.contains(item) ? present.at(i) : old);
    }
}

// The offscreen platform frames a shown window, as a window manager does: the
// outer size saved at one close must be the outer size at the next start, not
// grow by the frame each time.
void tst_clsLibraryPlacement::roundTripOfAShownWindow()
{
    TempStore temp;
    QRectF closed;
    {
        frmPlaced form;
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        form.Move(2400, 1800, 7200, 5400);
        closed = QRectF(form.Left(), form.Top(), form.Width(), form.Height());
        QCOMPARE(closed, QRectF(2400, 1800, 7200, 5400));
        clsLibrary::instance().FORMSAVE(Folder, &form, true);
    }
    frmPlaced form;
    clsLibrary::instance().FORMLOAD(Folder, &form, true);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QTRY_COMPARE(QRectF(form.Left(), form.Top(), form.Width(), form.Height()), closed);
}

void tst_clsLibraryPlacement::buttonsInTheTopRightCorner()
{
    frmPlaced form;
    form.clientArea()->setFixedWidth(400); // 6000 twips
    auto* close = new QPushButton(QStringLiteral("&Close"), form.clientArea());
    auto* ok = new QPushButton(QStringLiteral("OK"), form.clientArea());
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), form.clientArea());
    for (QPushButton* button : {close, ok, cancel})
        button->resize(75, 23); // 1125 by 345 twips

    clsLibrary::instance().RESIZEBTNCLOSE(&form, close);
    clsLibrary::instance().RESIZEBTNSOKCANCEL(&form, ok, cancel);

    // 165 twips down is pixel 11; 6000 - 135 - 1125 = 4740 twips is pixel 316, and
    // 4740 - 135 - 1125 = 3480 twips is pixel 232.
    QCOMPARE(close->pos(), QPoint(316, 11));
    QCOMPARE(cancel->pos(), QPoint(316, 11));
    QCOMPARE(ok->pos(), QPoint(232, 11));
}

QTEST_MAIN(tst_clsLibraryPlacement)
#include "tst_clsLibrary_placement.moc"
