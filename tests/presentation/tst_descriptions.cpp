#include "library/clsLibrary.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "presentation/CommandDescriptions.h"
#include "presentation/ICOMNU.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace {

const QString Old = QStringLiteral("old");

// What a window is to the descriptions: an ordinary one, one that describes its
// own menus (the popup menus' form), or a print preview, which does that and has
// a status line of its own.
enum class Role { Plain, OwnMenus, Preview };

// A window as the description services see it: a form with its status line
// (holding an old text), one menu under its icon menu control, and a toolbar.
struct Window {
    explicit Window(const QString& name, Role role = Role::Plain, bool withStatusBar = true) : form(name)
    {
        form.setDescribesOwnMenus(role != Role::Plain);
        form.setPrintPreview(role == Role::Preview);
        if (withStatusBar) {
            bar = new platform::StatusBar({1000.0f}, form.clientArea());
            bar->setPanelText(1, Old);
        }
        menus = new zuv::ICOMNU(&form);
        menu = form.menuBar()->addMenu(QStringLiteral("&Menu"));
        toolbar = new platform::Toolbar(nullptr, &form);
        form.addToolBar(toolbar);
    }

    // The number of a new menu item; "-" makes a separator line.
    int32_t item(const QString& caption)
    {
        QAction* action = caption == QStringLiteral("-") ? menu->addSeparator() : menu->addAction(caption);
        menus->Attach(&form, true);
        return menus->itemNumber(action);
    }

    // X in the middle of a toolbar button or, with edge, on its left (-1) or right (1) edge.
    float pointerOver(QAction* button, int edge = 0)
    {
        form.show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(&form)); }();
        const platform::Twips place(toolbar->widgetForAction(button));
        return place.Left() + place.Width() * static_cast<float>(edge + 1) / 2;
    }

    QString line() const { return bar->panelText(1); }

    Form form;
    platform::StatusBar* bar = nullptr;
    zuv::ICOMNU* menus = nullptr;
    QMenu* menu = nullptr;
    platform::Toolbar* toolbar = nullptr;
};

clsLibrary& library()
{
    return clsLibrary::instance();
}

void addCaption(const char* window, bool onToolbar, const QString& caption, const QString& expected)
{
    QTest::addRow("%s %s %s", window, onToolbar ? "toolbar" : "menu",
                  qPrintable(QString(caption).replace(QLatin1Char('\t'), QLatin1Char(' '))))
        << QString::fromLatin1(window) << onToolbar << caption << expected;
}

} // namespace

class tst_descriptions : public QObject {
    Q_OBJECT

private slots:
    void descriptionOfACaption_data();
    void descriptionOfACaption();
    void exitUnderAnotherTitle();
    void printPreviewTakesTheLineWhileVisible();
    void whatAWindowIsDecidesNotItsName();
    void windowCommands_data();
    void windowCommands();
    void toolbarPointerAtTheEdges_data();
    void toolbarPointerAtTheEdges();
    void pointerAndAFormWithoutStatusBar();
};

// The captions that the windows carry, each the way it is reached (the main
// window's and the popups' with "album", the print preview's with "document"),
// and captions that show how the compared lengths decide.
void tst_descriptions::descriptionOfACaption_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<bool>("onToolbar");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("expected");

    // The album's commands reached from the menu (with its key text), the toolbar
    // and the popup; the preview's with "document".
    addCaption("frmMain", false, "&Remove\tCtrl+Del", "Remove from current album.");
    addCaption("frmMain", true, "&Remove", "Remove from current album.");
    addCaption("frmPopup", false, "Re&move All", "Remove All from current album.");
    addCaption("frmMain", false, "-", "");
    addCaption("frmMain", false, "E&xit\tAlt+F4", "Quits Vistarro.");
    addCaption("frmPopup", false, "&Properties...", "Display properties from current album.");
    addCaption("frmPPrev", false, "&Close\tAlt+F4", "Close Print Preview.");
    addCaption("frmPPrev", false, "&Zoom", "");
    addCaption("frmPPrev", false, "75 %", "View document at 75 %.");
    addCaption("frmPPrev", false, "&Next Page\tPgDn", "Show the next page.");
    addCaption("frmPPrev", true, "&Zoom In", "Zoom in to document.");

    // A keyword before a shorter one that it begins with, and the rows compared
    // over more characters than their keywords, which want the caption exactly.
    addCaption("frmMain", false, "&Copy to Folder", "Copy the picture to another folder.");
    addCaption("frmMain", false, "&Copy", "Copy the selection to the Clipboard.");
    addCaption("frmMain", false, "&Address", "Insert full address.");
    addCaption("frmMain", false, "&Addresses", "Add to current album.");
    addCaption("frmMain", false, "&Run Viewer...", "");
    addCaption("frmMain", false, "R&uler", "Show or hide the ruler.");
    addCaption("frmMain", false, "R&uler\tCtrl+R", "");
    addCaption("frmMain", false, "&3 /home/me/Pictures/Trip/one.jpg", "View one.jpg.");
    addCaption("frmMain", false, "&1 one.jpg", "View one.jpg.");
    addCaption("frmMain", false, "add", "");
}

void tst_descriptions::descriptionOfACaption()
{
    QFETCH(QString, window);
    QFETCH(bool, onToolbar);
    QFETCH(QString, caption);
    QFETCH(QString, expected);

    Window main(QStringLiteral("frmMain"));
    Window popup(QStringLiteral("frmPopup"), Role::OwnMenus, false);
    Window preview(QStringLiteral("frmPPrev"), Role::Preview);
    Window& current = window == "frmMain" ? main : window == "frmPopup" ? popup : preview;
    const bool inPreview = &current == &preview;
    const QString fileType = inPreview ? QStringLiteral("document") : QStringLiteral("album");
    if (inPreview)
        preview.form.show();

    if (onToolbar) {
        QAction* button =
            current.toolbar->addButton(QStringLiteral("KEY"), caption, caption, QStringLiteral("KEY"));
        library().GETTBARDESCRIPTIONS(&current.form, current.pointerOver(button), current.toolbar, fileType);
    } else {
        library().STATUSTEXTDESC(&current.form, &main.form, current.item(caption), caption == "-", fileType);
    }

    QCOMPARE((inPreview ? preview : main).line(), expected);
    if (inPreview)
        QCOMPARE(main.line(), Old);
}

// Under another program's title the closing command warns of unsaved work.
void tst_descriptions::exitUnderAnotherTitle()
{
    const auto exit = descriptions::describe(u"E&xit", {QStringLiteral("album"), QStringLiteral("Notebook")});
    QVERIFY(exit);
    QCOMPARE(exit->text, QStringLiteral("Quits Notebook; prompts to save album"));
}

// The print preview's menus describe in the main window's line while the preview
// is hidden. While it is visible, even a command of the main window's toolbar
// that closes it is described in the preview's line.
void tst_descriptions::printPreviewTakesTheLineWhileVisible()
{
    Window main(QStringLiteral("frmMain"));
    Window preview(QStringLiteral("frmPPrev"), Role::Preview);
    const int32_t print = preview.item(QStringLiteral("&Print..."));
    library().STATUSTEXTDESC(&preview.form, &main.form, print, false, QStringLiteral("document"));
    QCOMPARE(main.line(), QStringLiteral("Print the current document."));
    QCOMPARE(preview.line(), Old);

    main.bar->setPanelText(1, Old);
    preview.form.show();
    QAction* close = main.toolbar->addButton(QStringLiteral("CLOSE"), QStringLiteral("&Close"), QString(),
                                             QStringLiteral("CLOSE"));
    library().GETTBARDESCRIPTIONS(&main.form, main.pointerOver(close), main.toolbar, QStringLiteral("album"));
    QCOMPARE(preview.line(), QStringLiteral("Close Print Preview."));
    QCOMPARE(main.line(), Old);
}

// A window named like the preview but without its role neither is read for its
// menus nor takes the line; a preview of any other name does both.
void tst_descriptions::whatAWindowIsDecidesNotItsName()
{
    Window main(QStringLiteral("frmMain"));
    Window namedLikePreview(QStringLiteral("frmPPrev"));
    namedLikePreview.form.show();
    const int32_t print = namedLikePreview.item(QStringLiteral("&Print..."));
    library().STATUSTEXTDESC(&namedLikePreview.form, &main.form, print, false, QStringLiteral("document"));
    QCOMPARE(main.line(), QString());
    QCOMPARE(namedLikePreview.line(), Old);
    namedLikePreview.form.hide();

    main.bar->setPanelText(1, Old);
    Window report(QStringLiteral("frmReport"), Role::Preview);
    report.form.show();
    const int32_t close = report.item(QStringLiteral("&Close\tAlt+F4"));
    library().STATUSTEXTDESC(&report.form, &main.form, close, false, QStringLiteral("document"));
    QCOMPARE(report.line(), QStringLiteral("Close Print Preview."));
    QCOMPARE(main.line(), Old);
}

// The window commands have no caption: the line shows their own text, and any
// other number that no item has leaves it cleared.
void tst_descriptions::windowCommands_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");

    QTest::newRow("restore") << 61728 << "Restore the window to normal size.";
    QTest::newRow("close") << 61536 << "Close the current window and prompts to save the documents.";
    QTest::newRow("not a command") << 61441 << "";
    QTest::newRow("menus closed") << 0 << "";
}

void tst_descriptions::windowCommands()
{
    QFETCH(int, number);
    QFETCH(QString, expected);

    Window main(QStringLiteral("frmMain"));
    Window preview(QStringLiteral("frmPPrev"), Role::Preview);
    library().STATUSTEXTDESC(&preview.form, &main.form, number, false);
    QCOMPARE(main.line(), expected);
}

// Only a pointer strictly inside a button describes it; a separator is a button
// without a description, so it clears the line.
void tst_descriptions::toolbarPointerAtTheEdges_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("edge");
    QTest::addColumn<float>("offset");
    QTest::addColumn<QString>("expected");

    const QString add = QStringLiteral("Add to current album.");
    QTest::newRow("on the left edge") << 0 << -1 << 0.0f << Old;
    QTest::newRow("a twip inside the left edge") << 0 << -1 << 1.0f << add;
    QTest::newRow("a twip inside the right edge") << 0 << 1 << -1.0f << add;
    QTest::newRow("over the separator") << 1 << 0 << 0.0f << "";
    QTest::newRow("past the last button") << 2 << 1 << 1.0f << Old;
}

void tst_descriptions::toolbarPointerAtTheEdges()
{
    QFETCH(int, button);
    QFETCH(int, edge);
    QFETCH(float, offset);
    QFETCH(QString, expected);

    Window main(QStringLiteral("frmMain"));
    main.toolbar->addButton(QStringLiteral("ADD"), QStringLiteral("&Add"), QString(), QStringLiteral("ADD"));
    main.toolbar->addSeparator();
    main.toolbar->addButton(QStringLiteral("RUN"), QStringLiteral("&Run Viewer"), QString(),
                            QStringLiteral("RUN"));
    const float x = main.pointerOver(main.toolbar->actions().at(button), edge) + offset;
    library().GETTBARDESCRIPTIONS(&main.form, x, main.toolbar, QStringLiteral("album"));
    QCOMPARE(main.line(), expected);
}

// Every description sets the pointer, to the default one unless the caller asks
// for another. A form without a status bar shows nothing, not even in the status
// bar of a window shown modally over it, which is its child.
void tst_descriptions::pointerAndAFormWithoutStatusBar()
{
    Window main(QStringLiteral("frmMain"));
    main.form.setMousePointer(11);
    library().STATUSBARCAPTION(&main.form, QStringLiteral("Ready"));
    QCOMPARE(main.form.MousePointer(), 0);

    Window popup(QStringLiteral("frmPopup"), Role::OwnMenus, false);
    Window child(QStringLiteral("frmProps"));
    child.form.setParent(&popup.form, Qt::Window);
    library().STATUSBARCAPTION(&popup.form, QStringLiteral("Working"), 11);
    QCOMPARE(child.line(), Old);
    QCOMPARE(popup.form.MousePointer(), 11);
}

QTEST_MAIN(tst_descriptions)
#include "tst_descriptions.moc"
