#include "presentation/ICOMNU.h"

#include "platform/core/Error.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

using zuv::ICOMNU;

namespace {

// A window with the menus of the album's main window, a submenu as the print
// preview has one, and a popup menu that stands under a title never seen.
class MenuForm : public QMainWindow {
public:
    MenuForm()
    {
        MNUFILETOP = menuBar()->addMenu(QStringLiteral("&File"));
        MNUFILERUN = MNUFILETOP->addAction(QStringLiteral("&Run Viewer"));
        MNUFILESEP1 = MNUFILETOP->addSeparator();
        MNUFILEEXIT = MNUFILETOP->addAction(QStringLiteral("E&xit\tAlt+F4"));
        MNUVIEWTOP = menuBar()->addMenu(QStringLiteral("&View"));
        MNUVIEWZOOM = MNUVIEWTOP->addMenu(QStringLiteral("&Zoom"));
        MNUZOOM200 = MNUVIEWZOOM->addAction(QStringLiteral("200 %"));
        MNUVIEWTOP->addAction(QStringLiteral("S&tatus Bar"));
        MNUFOUNDTOP = new QMenu(QStringLiteral("&Found Files Popup"), this);
        MNUFOUNDPREVIEW = MNUFOUNDTOP->addAction(QStringLiteral("Pre&view..."));
        MNUFOUNDPREVIEW->setObjectName(QStringLiteral("MNUFOUNDPREVIEW"));
        MNUFOUNDADD = MNUFOUNDTOP->addAction(QStringLiteral("&Add"));
        MNUFOUNDADD->setObjectName(QStringLiteral("MNUFOUNDADD"));
        resize(300, 200);
    }

    QMenu* MNUFILETOP;
    QAction* MNUFILERUN;
    QAction* MNUFILESEP1;
    QAction* MNUFILEEXIT;
    QMenu* MNUVIEWTOP;
    QMenu* MNUVIEWZOOM;
    QAction* MNUZOOM200;
    QMenu* MNUFOUNDTOP;
    QAction* MNUFOUNDPREVIEW;
    QAction* MNUFOUNDADD;
};

// Every event of the control, in the order raised, as the window would see them.
class EventLog {
public:
    explicit EventLog(ICOMNU& menus)
    {
        QObject::connect(&menus, &ICOMNU::ItemReport, &context_, [this](int32_t n, int32_t, bool separator) {
            log_ << QStringLiteral("ItemReport %1%2").arg(n).arg(separator ? " separator" : "");
        });
        QObject::connect(&menus, &ICOMNU::ItemReportPlain, &context_, [this](int32_t n, int32_t, bool) {
            log_ << QStringLiteral("ItemReportPlain %1").arg(n);
        });
        QObject::connect(&menus, &ICOMNU::StatusResetA, &context_,
                         [this](int32_t n) { log_ << QStringLiteral("StatusResetA %1").arg(n); });
        QObject::connect(&menus, &ICOMNU::StatusResetB, &context_,
                         [this](int32_t n) { log_ << QStringLiteral("StatusResetB %1").arg(n); });
        QObject::connect(&menus, &ICOMNU::StatusResetC, &context_,
                         [this] { log_ << QStringLiteral("StatusResetC"); });
        QObject::connect(&menus, &ICOMNU::StatusResetD, &context_,
                         [this](int32_t n, int32_t, int32_t, int32_t, int32_t, int32_t) {
                             log_ << QStringLiteral("StatusResetD %1").arg(n);
                         });
    }

    QStringList take() { return std::exchange(log_, {}); }

private:
    QObject context_;
    QStringList log_;
};

void pointAt(QMenu* menu, QAction* action)
{
    QTest::mouseMove(menu, menu->actionGeometry(action).center());
}

void open(QMenu* menu)
{
    menu->popup(QPoint(20, 20));
    QVERIFY(QTest::qWaitForWindowExposed(menu));
}

} // namespace

class tst_ICOMNU : public QObject {
    Q_OBJECT

private slots:
    void numbersFollowTheMenus_data();
    void numbersFollowTheMenus();
    void pointerThroughAMenuOfTheBar();
    void pointerThroughPopupMenus();
    void iconsAndDefaults();
    void unknownItemsAreInvalidCalls();
    void attachAgainTakesInNewItems();
};

void tst_ICOMNU::numbersFollowTheMenus_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("caption");

    const QStringList captions = {"&File", "&Run Viewer", "-",           "E&xit\tAlt+F4",      "&View",
                                  "&Zoom", "200 %",       "S&tatus Bar", "&Found Files Popup", "Pre&view...",
                                  "&Add"};
    QTest::newRow("0 is no item") << 0 << QString();
    for (int i = 0; i < captions.size(); ++i)
        QTest::addRow("%d %s", i + 1, qPrintable(captions.at(i))) << i + 1 << captions.at(i);
    QTest::newRow("past the last") << int(captions.size() + 1) << QString();
}

// The menu bar first, each title before its items and a submenu's items right
// after its title, then the popup menu under its title; a separator reads "-".
void tst_ICOMNU::numbersFollowTheMenus()
{
    QFETCH(int, number);
    QFETCH(QString, caption);
    MenuForm form;
    ICOMNU menus;
    menus.Attach(&form, true);
    QCOMPARE(menus.CAPTION(number), caption);
}

void tst_ICOMNU::pointerThroughAMenuOfTheBar()
{
    MenuForm form;
    form.MNUFILEEXIT->setEnabled(false);
    ICOMNU menus;
    menus.Attach(&form, true);
    EventLog log(menus);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));

    open(form.MNUFILETOP);
    pointAt(form.MNUFILETOP, form.MNUFILERUN);
    pointAt(form.MNUFILETOP, form.MNUFILESEP1);
    // A disabled item isn't highlighted, but it is described.
    pointAt(form.MNUFILETOP, form.MNUFILEEXIT);
    // Off the menu, where there is no item.
    QTest::mouseMove(form.MNUFILETOP, form.MNUFILETOP->rect().bottomRight() + QPoint(10, 10));
    pointAt(form.MNUFILETOP, form.MNUFILERUN);
    form.MNUFILETOP->hide();
    QCOMPARE(log.take(), QStringList({"ItemReport 2", "ItemReport 3 separator", "ItemReport 4",
                                      "StatusResetB 1", "ItemReport 2", "StatusResetC"}));

    // Into a submenu and out of it: the submenu's title is described again.
    open(form.MNUVIEWTOP);
    pointAt(form.MNUVIEWTOP, form.MNUVIEWZOOM->menuAction());
    QTRY_VERIFY(form.MNUVIEWZOOM->isVisible());
    pointAt(form.MNUVIEWZOOM, form.MNUZOOM200);
    form.MNUVIEWZOOM->hide();
    form.MNUVIEWTOP->hide();
    QCOMPARE(log.take(), QStringList({"ItemReport 6", "ItemReport 7", "ItemReport 6", "StatusResetC"}));

    // Along the bar's titles: a click opens one, the arrow key the next.
    QMenuBar* bar = form.menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(form.MNUFILETOP->menuAction()).center());
    QTRY_VERIFY(form.MNUFILETOP->isVisible());
    QTest::keyClick(form.MNUFILETOP, Qt::Key_Right);
    QTRY_VERIFY(form.MNUVIEWTOP->isVisible());
    form.MNUVIEWTOP->hide();
    QCOMPARE(log.take(), QStringList({"StatusResetA 1", "StatusResetC", "StatusResetA 5", "ItemReport 6",
                                      "StatusResetC"}));
}

// A popup menu reports its closing twice. The window commands carry their own
// numbers; those aren't items, so their caption is unknown and the status bar
// takes their text from the number.
void tst_ICOMNU::pointerThroughPopupMenus()
{
    MenuForm form;
    auto* windowMenu = new QMenu(&form);
    QAction* restore = windowMenu->addAction(QStringLiteral("&Restore"));
    restore->setData(61728);
    ICOMNU menus;
    menus.AttachSystemMenu(windowMenu);
    menus.Attach(&form);
    EventLog log(menus);

    open(form.MNUFOUNDTOP);
    pointAt(form.MNUFOUNDTOP, form.MNUFOUNDPREVIEW);
    pointAt(form.MNUFOUNDTOP, form.MNUFOUNDADD);
    QTest::keyClick(form.MNUFOUNDTOP, Qt::Key_Escape);
    open(windowMenu);
    pointAt(windowMenu, restore);
    windowMenu->hide();
    QCOMPARE(log.take(), QStringList({"ItemReport 10", "ItemReport 11", "StatusResetD 9", "StatusResetC",
                                      "ItemReportPlain 61728", "StatusResetC"}));
    QCOMPARE(menus.CAPTION(61728), QString());
    QCOMPARE(menus.CAPTION(12), QString());
}

void tst_ICOMNU::iconsAndDefaults()
{
    MenuForm form;
    ICOMNU menus;
    menus.Attach(&form);
    menus.setImageList([](int32_t index) {
        QPixmap image(16, 16);
        image.fill(index == 0 ? Qt::red : Qt::blue);
        return QIcon(image);
    });

    // The first image of the list has index 0.
    menus.setItemIcon(QStringLiteral("MNUFOUNDPREVIEW"), 0);
    QCOMPARE(form.MNUFOUNDPREVIEW->icon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    menus.setItemIcon(QStringLiteral("MNUFOUNDPREVIEW"), -1);
    QVERIFY(form.MNUFOUNDPREVIEW->icon().isNull());

    // One default item per menu, shown bold.
    menus.setItemDefault(QStringLiteral("mnuFoundAdd"), true);
    menus.setItemDefault(QStringLiteral("MNUFOUNDPREVIEW"), true);
    QCOMPARE(form.MNUFOUNDTOP->defaultAction(), form.MNUFOUNDPREVIEW);
    QVERIFY(form.MNUFOUNDPREVIEW->font().bold() && !form.MNUFOUNDADD->font().bold());
    menus.setItemDefault(10, false);
    QVERIFY(!form.MNUFOUNDPREVIEW->font().bold());
    QCOMPARE(form.MNUFOUNDTOP->defaultAction(), nullptr);
}

void tst_ICOMNU::unknownItemsAreInvalidCalls()
{
    MenuForm form;
    ICOMNU menus;
    menus.Attach(&form);
    QVERIFY_THROWS_EXCEPTION(platform::Error, menus.setItemIcon(QStringLiteral("MNUNOSUCHITEM"), 0));
    QVERIFY_THROWS_EXCEPTION(platform::Error, menus.ItemIcon(0));
    QVERIFY_THROWS_EXCEPTION(platform::Error, menus.setItemIcon(1, -2));
}

// The print preview attaches again at every preview: the numbers follow the
// menus as they now are, and what an item holds stays with it.
void tst_ICOMNU::attachAgainTakesInNewItems()
{
    MenuForm form;
    ICOMNU menus;
    menus.Attach(&form);
    menus.setImageList([](int32_t) { return QIcon(); });
    menus.setItemIcon(QStringLiteral("MNUFOUNDADD"), 3);

    QAction* added =
        menus.AddItem(QStringLiteral("&Properties..."), QStringLiteral("MNUFOUNDPROPS"), 2, 9, false, true);
    QCOMPARE(menus.CAPTION(12), QStringLiteral("&Properties..."));
    QCOMPARE(form.MNUFOUNDTOP->actions().indexOf(added), 1);

    menus.Attach(&form);
    QCOMPARE(menus.CAPTION(11), QStringLiteral("&Properties..."));
    QCOMPARE(menus.ItemIcon(QStringLiteral("MNUFOUNDADD")), 3);
    QCOMPARE(menus.CAPTION(12), QStringLiteral("&Add"));
}

QTEST_MAIN(tst_ICOMNU)
#include "tst_icomnu.moc"
