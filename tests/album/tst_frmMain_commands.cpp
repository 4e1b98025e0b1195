// Every command of the main window through each of its ways in, and the rules
// that switch the commands on and off as the focus moves and the album changes.
#include "FormSupport.h"
#include "TempStore.h"

#include "album/frmMain.h"
#include "album/frmPopup.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/Toolbar.h"
#include "viewer/frmScreen.h"

#include <QAction>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using Way = std::function<void(frmMain*)>;
Q_DECLARE_METATYPE(Way)

namespace {

frmPopup& popup()
{
    return Forms::get<frmPopup>();
}

} // namespace

class tst_frmMain_commands : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;

    frmMain* startWithFocusIn(bool foundList, int albumSize)
    {
        for (const char* name : {"a.jpg", "b.gif", "c.bmp"}) {
            QFile file(dir_.filePath(name));
            file.open(QIODevice::WriteOnly);
        }
        frmMain* form = &Forms::get<frmMain>();
        form->FTVBROWSE->setSelectedfolder(dir_.path());
        for (int i = 0; i < albumSize; ++i)
            form->ADDALL();
        form->show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(form)); }();
        form->activateWindow();
        QWidget* list = foundList ? static_cast<QWidget*>(form->LVWFOUND) : form->LSTSELECTED;
        list->setFocus(Qt::TabFocusReason);
        [&] { QTRY_VERIFY(list->hasFocus()); }();
        form->LVWFOUND->ListItems()(2).setSelected(true);
        form->LSTSELECTED->setCurrentIndex(form->LSTSELECTED->model()->index(0, 0));
        return form;
    }

    // The toolbar button and the menu item of a command always agree.
    static bool enabled(frmMain* form, const QString& key, const QAction* item)
    {
        const bool button = form->TBARMAIN->Buttons(key)->isEnabled();
        return button == item->isEnabled() ? button : (qWarning() << key << "disagrees", false);
    }

private slots:
    void cleanup() { testsupport::unloadForms<frmScreen, frmMain>(); }

    void commandsByEveryWay_data()
    {
        QTest::addColumn<bool>("inFoundList");
        QTest::addColumn<int>("albumBefore");
        QTest::addColumn<Way>("way");
        QTest::addColumn<int>("albumAfter");
        const auto key = [](Qt::Key k, Qt::KeyboardModifiers m) {
            return Way([=](frmMain*) { QTest::keyClick(QApplication::focusWidget(), k, m); });
        };
        QTest::newRow("add, menu") << true << 0 << Way([](frmMain* f) { f->MNUEDITADD->trigger(); }) << 1;
        QTest::newRow("add, toolbar")
            << true << 0 << Way([](frmMain* f) { f->TBARMAIN->Buttons("ADD")->trigger(); }) << 1;
        QTest::newRow("add, Insert") << true << 0 << key(Qt::Key_Insert, Qt::NoModifier) << 1;
        QTest::newRow("add, Shift+Insert") << true << 0 << key(Qt::Key_Insert, Qt::ShiftModifier) << 1;
        QTest::newRow("add, Ctrl+Insert is no key")
            << true << 0 << key(Qt::Key_Insert, Qt::ControlModifier) << 0;
        QTest::newRow("add, context menu")
            << true << 0 << Way([](frmMain*) { popup().MNUFOUNDADD->trigger(); }) << 1;
        QTest::newRow("add all, context menu")
            << true << 0 << Way([](frmMain*) { popup().MNUFOUNDADDALL->trigger(); }) << 3;
        QTest::newRow("remove, Ctrl+Delete") << false << 1 << key(Qt::Key_Delete, Qt::ControlModifier) << 2;
        QTest::newRow("remove, plain Delete is no key")
            << false << 1 << key(Qt::Key_Delete, Qt::NoModifier) << 3;
        QTest::newRow("remove, context menu")
            << false << 1 << Way([](frmMain*) { popup().MNUSELECTEDCLEAR->trigger(); }) << 2;
        QTest::newRow("remove all, toolbar")
            << false << 1 << Way([](frmMain* f) { f->TBARMAIN->Buttons("REMOVE ALL")->trigger(); }) << 0;
        QTest::newRow("remove all, context menu")
            << false << 1 << Way([](frmMain*) { popup().MNUSELECTEDCLEARALL->trigger(); }) << 0;
        QTest::newRow("Insert in the album adds nothing")
            << false << 1 << key(Qt::Key_Insert, Qt::NoModifier) << 3;
    }

    void commandsByEveryWay()
    {
        QFETCH(bool, inFoundList);
        QFETCH(int, albumBefore);
        QFETCH(Way, way);
        QFETCH(int, albumAfter);
        TempStore temp;
        frmMain* form = startWithFocusIn(inFoundList, albumBefore);
        way(form);
        QCOMPARE(form->LSTSELECTED->ListItems().Count(), albumAfter);
        // Run follows the album; the pair of the focused list follows its count.
        QCOMPARE(enabled(form, "RUN", form->MNUFILERUN), albumAfter > 0);
        if (!inFoundList)
            QCOMPARE(enabled(form, "REMOVE", form->MNUEDITREMOVE), albumAfter > 0);
    }

    void enablementFollowsTheFocus()
    {
        TempStore temp;
        frmMain* form = startWithFocusIn(true, 0);
        QVERIFY(enabled(form, "ADD", form->MNUEDITADD) && enabled(form, "ADD ALL", form->MNUEDITADDALL));
        QVERIFY(!enabled(form, "REMOVE", form->MNUEDITREMOVE));

        // An empty album takes the focus: the add pair goes, the remove pair stays off.
        form->LSTSELECTED->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(!enabled(form, "ADD", form->MNUEDITADD));
        QVERIFY(!enabled(form, "REMOVE ALL", form->MNUEDITREMOVEALL));

        form->ADDALL();
        form->LVWFOUND->setFocus(Qt::TabFocusReason);
        form->LSTSELECTED->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(enabled(form, "REMOVE ALL", form->MNUEDITREMOVEALL));
        QVERIFY(enabled(form, "REMOVE", form->MNUEDITREMOVE));

        // The tree has the focus: both pairs are grey, Run stays on.
        form->FTVBROWSE->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(!enabled(form, "REMOVE", form->MNUEDITREMOVE));
        QVERIFY(!enabled(form, "ADD", form->MNUEDITADD));
        QVERIFY(enabled(form, "RUN", form->MNUFILERUN));
    }

    // A picture box takes the focus when clicked, so a click beside the lists
    // (heading band, splitters, the panel behind a list, the toolbar's band)
    // takes the add pair away; a click on a toolbar button doesn't.
    void clickBesideTheListsTakesTheirCommands()
    {
        TempStore temp;
        frmMain* form = startWithFocusIn(true, 0);
        const auto clickOn = [form](QWidget* target, QPoint at) {
            form->LVWFOUND->setFocus(Qt::TabFocusReason);
            QTRY_VERIFY(enabled(form, "ADD", form->MNUEDITADD));
            QCOMPARE(form->childAt(target->mapTo(form, at)), target);
            QTest::mouseClick(target, Qt::LeftButton, {}, at);
            QTRY_VERIFY(target->hasFocus());
            QVERIFY(!enabled(form, "ADD ALL", form->MNUEDITADDALL));
        };
        clickOn(form->PICHEADER, QPoint(form->PICHEADER->width() - 5, 5));
        clickOn(form->PICBAR1, form->PICBAR1->rect().center());
        clickOn(form->PICBAR2, form->PICBAR2->rect().center());
        clickOn(form->PICMAIN, QPoint(form->PICMAIN->width() - 5, form->PICMAIN->height() / 2));
        // The panel shows a thin edge at the left of its list.
        clickOn(form->PICFND, QPoint(0, form->PICFND->height() / 2));

        form->LVWFOUND->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(enabled(form, "ADD", form->MNUEDITADD));
        QWidget* button = form->TBARMAIN->widgetForAction(form->TBARMAIN->Buttons("ADD"));
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(form->LSTSELECTED->ListItems().Count(), 1);
        QVERIFY(form->LVWFOUND->hasFocus());
        QVERIFY(enabled(form, "ADD", form->MNUEDITADD));
    }

    void runStartsTheShowFromMenuAndToolbar()
    {
        TempStore temp;
        frmMain* form = startWithFocusIn(true, 1);
        form->MNUFILERUN->trigger();
        QVERIFY(Forms::isLoaded<frmScreen>());
        QVERIFY(form->isHidden());
        Forms::unload<frmScreen>();
        QVERIFY(!form->isHidden());
        form->TBARMAIN->Buttons("RUN")->trigger();
        QVERIFY(Forms::isLoaded<frmScreen>());
    }
};

QTEST_MAIN(tst_frmMain_commands)
#include "tst_frmMain_commands.moc"
