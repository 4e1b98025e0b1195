// The main window against a store of its own: what a person does with folders and
// the album, and what the store holds afterwards.
#include "FormSupport.h"
#include "Stored.h"
#include "TempStore.h"
#include "ToolbarPointer.h"

#include "album/MainSettings.h"
#include "album/frmMain.h"
#include "album/frmPopup.h"
#include "library/clsLibrary.h"
#include "platform/core/App.h"
#include "platform/core/FileNames.h"
#include "platform/core/Registry.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/PictureBox.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "settings/AlbumStore.h"
#include "viewer/frmPPrevPhoto.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <fcntl.h>
#include <unistd.h>

namespace {

using testsupport::stored;

void store(const QString& key, const QString& item, const QString& data)
{
    QVERIFY(clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), key, item, data));
}

QString slot(int number)
{
    return stored(AlbumStore::slotsKey(), AlbumStore::slotName(number));
}
QString items()
{
    return stored(AlbumStore::countKey(), AlbumStore::countName());
}

QStringList texts(platform::ListView* list)
{
    QStringList result;
    for (int i = 1; i <= list->ListItems().Count(); ++i)
        result << list->ListItems()(i).Text();
    return result;
}

void touch(const QString& path)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
}

// A folder of pictures and other files, with names of every kind.
QString makeFolder(QTemporaryDir& dir, const QStringList& names)
{
    for (const QString& name : names)
        touch(dir.filePath(name));
    return dir.path();
}

} // namespace

class tst_frmMain : public QObject {
    Q_OBJECT

private:
    frmMain* start()
    {
        frmMain& form = Forms::get<frmMain>();
        return &form;
    }

    frmMain* restart()
    {
        testsupport::unloadForms<frmMain>();
        return start();
    }

    void showAndFocus(frmMain* form, QWidget* control)
    {
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form));
        form->activateWindow();
        control->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(control->hasFocus());
    }

    bool commandEnabled(frmMain* form, const QString& key, QAction* item)
    {
        const bool button = form->TBARMAIN->Buttons(key)->isEnabled();
        if (button != item->isEnabled())
            qWarning() << key << "button and menu item disagree";
        return button && item->isEnabled();
    }

private slots:
    void cleanup() { testsupport::unloadForms<frmMain>(); }

    void firstStartOnAnEmptyStore()
    {
        TempStore temp;
        frmMain* form = start();

        // The tree opens at the program's folder; the change of folder that the
        // start runs is the only thing written.
        QCOMPARE(form->FTVBROWSE->selectedfolder(), platform::App::Path());
        QCOMPARE(stored(album::preferencesKey(), QStringLiteral("Files Location")),
                 platform::App::Path() + "/");
        QCOMPARE(items(), QStringLiteral("<absent>"));
        QCOMPARE(stored(album::viewKey(), QStringLiteral("Standard Toolbar")), QStringLiteral("<absent>"));

        QCOMPARE(form->SBMAIN->panelText(3), QStringLiteral("0 pictures selected"));
        QVERIFY(form->MNUVIEWSTANDARDBAR->isChecked() && form->MNUVIEWSTATUSBAR->isChecked());
        QVERIFY(!commandEnabled(form, "ADD ALL", form->MNUEDITADDALL));
        QVERIFY(!commandEnabled(form, "REMOVE ALL", form->MNUEDITREMOVEALL));
        QVERIFY(!commandEnabled(form, "RUN", form->MNUFILERUN));
    }

    void folderChangeFillsTheFoundList()
    {
        TempStore temp;
        QTemporaryDir dir;
        makeFolder(dir, {"b.jpg", "A.GIF", "c.bmp", "d.png", "notes.txt", ".hidden.jpg", "trip.2001.JpG",
                         "img10.jpg", "img2.jpg"});
        QVERIFY(QDir(dir.path()).mkdir("sub.jpg"));
        frmMain* form = start();

        form->FTVBROWSE->setSelectedfolder(dir.path());
        QCOMPARE(texts(form->LVWFOUND),
                 QStringList({"A.GIF", "b.jpg", "c.bmp", "img2.jpg", "img10.jpg", "trip.2001.JpG"}));
        QCOMPARE(form->LVWFOUND->ListItems()(3).Key(), QStringLiteral("M3"));
        QCOMPARE(form->SBMAIN->panelText(2), QStringLiteral("6 pictures found"));
        QCOMPARE(form->LBLDESC->text(), "Vistarro - (" + dir.path() + ")");

        // A folder made after its parent was read can be chosen, and takes its place.
        form->FTVBROWSE->setSelectedfolder(dir.filePath("sub.jpg"));
        QVERIFY(QDir(dir.path()).mkdir("later"));
        form->FTVBROWSE->setSelectedfolder(dir.filePath("later"));
        QCOMPARE(form->FTVBROWSE->currentIndex().row(), 0);
        QCOMPARE(form->FTVBROWSE->currentIndex().sibling(1, 0).data().toString(), QStringLiteral("sub.jpg"));
        form->FTVBROWSE->setSelectedfolder(dir.path());

        // The folder comes back at the next start.
        form = restart();
        QCOMPARE(form->FTVBROWSE->selectedfolder(), dir.path());
        QCOMPARE(form->LVWFOUND->ListItems().Count(), 6);
    }

    void folderThatCantBeListedKeepsTheOldList()
    {
        TempStore temp;
        QTemporaryDir dir, doomed;
        makeFolder(dir, {"a.jpg"});
        frmMain* form = start();
        form->FTVBROWSE->setSelectedfolder(dir.path());
        form->FTVBROWSE->setSelectedfolder(doomed.path());
        QCOMPARE(form->LVWFOUND->ListItems().Count(), 0);
        form->FTVBROWSE->setSelectedfolder(dir.path());

        // The folder vanishes between the tree's listing and the pick.
        const QString gone = doomed.path();
        doomed.remove();
        form->FTVBROWSE->setCurrentIndex(QModelIndex());
        QMetaObject::invokeMethod(form->FTVBROWSE, "folderChanged", Q_ARG(QString, gone));

        QCOMPARE(texts(form->LVWFOUND), QStringList({"a.jpg"}));
        QCOMPARE(form->FLBFOUND.Path(), dir.path());
        QCOMPARE(form->LBLDESC->text(), "Vistarro - (" + gone + ")");
        QCOMPARE(stored(album::preferencesKey(), QStringLiteral("Files Location")), gone + "/");
    }

    // A stored folder that the tree can't choose leaves the tree as it stands,
    // and the focus alone chooses nothing: heading, list and store stay.
    void storedFolderTheTreeRefusesIsKept_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("removed") << QStringLiteral("gone/");
        QTest::newRow("blank") << QString();
        QTest::newRow("under a dot folder") << QStringLiteral(".hidden/pictures/");
    }

    void storedFolderTheTreeRefusesIsKept()
    {
        QFETCH(QString, folder);
        TempStore temp;
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath(".hidden/pictures"));
        const QString value = folder.isEmpty() ? folder : dir.filePath(folder);
        store(album::preferencesKey(), QStringLiteral("Files Location"), value);

        frmMain* form = start();
        showAndFocus(form, form->FTVBROWSE);
        QCOMPARE(form->FTVBROWSE->selectedfolder(), QString());
        QCOMPARE(form->LBLDESC->text(), QStringLiteral("Vistarro"));
        QCOMPARE(form->LVWFOUND->ListItems().Count(), 0);
        QCOMPARE(stored(album::preferencesKey(), QStringLiteral("Files Location")), value);

        // The person's choice is a change of folder as always.
        QTest::keyClick(form->FTVBROWSE, Qt::Key_Down);
        QVERIFY(!form->FTVBROWSE->selectedfolder().isEmpty());
        QCOMPARE(stored(album::preferencesKey(), QStringLiteral("Files Location")),
                 form->FTVBROWSE->selectedfolder() + "/");
    }

    // The folder chosen at start stands in full view, above the horizontal
    // scroll bar that a long name brings, also once the window has settled.
    void folderChosenAtStartIsInFullView()
    {
        TempStore temp;
        QTemporaryDir dir;
        for (int i = 0; i < 40; ++i)
            QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("f%1").arg(i, 2, 10, QLatin1Char('0'))));
        const QString chosen = dir.filePath("z" + QString(120, 'x'));
        QVERIFY(QDir().mkdir(chosen));
        store(album::preferencesKey(), QStringLiteral("Files Location"), chosen + "/");

        frmMain* form = start();
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form));
        platform::FolderTree* tree = form->FTVBROWSE;
        QCOMPARE(tree->selectedfolder(), chosen);
        // The window manager frames the window and takes the frame off its size.
        form->resize(form->width(), form->height() - 25);
        QTRY_VERIFY(tree->horizontalScrollBar()->isVisible());
        const QRect row = tree->visualRect(tree->currentIndex());
        QVERIFY2(row.top() >= 0 && row.bottom() < tree->viewport()->height(),
                 qPrintable(QStringLiteral("row %1..%2 in a view %3 high")
                                .arg(row.top())
                                .arg(row.bottom())
                                .arg(tree->viewport()->height())));
    }

    void addMarkedAndAllIntoTheStoredForm()
    {
        TempStore temp;
        QTemporaryDir dir;
        makeFolder(dir, {"a.jpg", "b.gif", "c.bmp"});
        frmMain* form = start();
        form->FTVBROWSE->setSelectedfolder(dir.path());

        // Marked in reverse order, added in the order of the found list, by Insert.
        showAndFocus(form, form->LVWFOUND);
        QVERIFY(commandEnabled(form, "ADD", form->MNUEDITADD));
        form->LVWFOUND->ListItems()(3).setSelected(true);
        form->LVWFOUND->ListItems()(1).setSelected(true);
        QTest::keyClick(form->LVWFOUND, Qt::Key_Insert);

        QCOMPARE(items(), QStringLiteral("2"));
        QCOMPARE(slot(1), dir.filePath("a.jpg"));
        QCOMPARE(slot(2), dir.filePath("c.bmp"));
        QCOMPARE(texts(form->LSTSELECTED), QStringList({dir.filePath("a.jpg"), dir.filePath("c.bmp")}));
        QVERIFY(commandEnabled(form, "RUN", form->MNUFILERUN));

        // A second add-all doubles the album.
        form->TBARMAIN->Buttons("ADD ALL")->trigger();
        QCOMPARE(items(), QStringLiteral("5"));
        QCOMPARE(slot(5), dir.filePath("c.bmp"));

        // Leaving the found list turns the add pair off; Insert in the tree does nothing.
        form->FTVBROWSE->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(!form->MNUEDITADD->isEnabled());
        QTest::keyClick(form->FTVBROWSE, Qt::Key_Insert);
        QCOMPARE(form->LSTSELECTED->ListItems().Count(), 5);

        // The album comes back in its order.
        const QStringList before = texts(form->LSTSELECTED);
        form = restart();
        QCOMPARE(texts(form->LSTSELECTED), before);
    }

    void removeLeavesAHoleThatNeverComesBack()
    {
        TempStore temp;
        QTemporaryDir dir;
        makeFolder(dir, {"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
        frmMain* form = start();
        form->FTVBROWSE->setSelectedfolder(dir.path());
        form->ADDALL();

        showAndFocus(form, form->LSTSELECTED);
        form->LSTSELECTED->setCurrentIndex(form->LSTSELECTED->model()->index(1, 0));
        QTest::keyClick(form->LSTSELECTED, Qt::Key_Delete, Qt::ControlModifier);

        QCOMPARE(texts(form->LSTSELECTED),
                 QStringList({dir.filePath("a.jpg"), dir.filePath("c.jpg"), dir.filePath("d.jpg")}));
        QCOMPARE(items(), QStringLiteral("4"));
        QCOMPARE(slot(2), QString());
        QCOMPARE(slot(3), dir.filePath("c.jpg"));

        // After a restart the list has no gap, and removing from it still blanks
        // the picture's own slot.
        form = restart();
        QCOMPARE(texts(form->LSTSELECTED),
                 QStringList({dir.filePath("a.jpg"), dir.filePath("c.jpg"), dir.filePath("d.jpg")}));
        form->LSTSELECTED->setCurrentIndex(form->LSTSELECTED->model()->index(1, 0));
        form->CLEAR();
        QCOMPARE(slot(3), QString());
        QCOMPARE(slot(4), dir.filePath("d.jpg"));

        // An add goes behind the last picture and never over one.
        form->LVWFOUND->ListItems()(2).setSelected(true);
        form->ADD();
        QCOMPARE(items(), QStringLiteral("5"));
        QCOMPARE(slot(5), dir.filePath("b.jpg"));
        form = restart();
        QCOMPARE(texts(form->LSTSELECTED),
                 QStringList({dir.filePath("a.jpg"), dir.filePath("d.jpg"), dir.filePath("b.jpg")}));

        // Removing the last pictures one by one, the next add takes the blank
        // slots at the end again.
        while (form->LSTSELECTED->ListItems().Count() > 0) {
            form->LSTSELECTED->setCurrentIndex(form->LSTSELECTED->model()->index(0, 0));
            form->CLEAR();
        }
        form->LVWFOUND->ListItems()(2).setSelected(true);
        form->ADD();
        QCOMPARE(items(), QStringLiteral("1"));
        QCOMPARE(slot(1), dir.filePath("b.jpg"));
    }

    void storedAlbumWithHolesAndBadCount_data()
    {
        QTest::addColumn<QString>("count");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("blankedUpTo"); // Remove All blanks slots 1 to this one
        QTest::newRow("holes and slots above the count")
            << "4" << QStringList({"/p/one.jpg", "/p/four.jpg"}) << 4;
        // Slots 6 and 7 were never written; they are blanked all the same.
        QTest::newRow("count above the highest slot")
            << "7" << QStringList({"/p/one.jpg", "/p/four.jpg", "/p/five.jpg"}) << 7;
        // Beyond what an album can hold only the slots that exist are blanked.
        QTest::newRow("huge count") << "2000000000"
                                    << QStringList({"/p/one.jpg", "/p/four.jpg", "/p/five.jpg"}) << 5;
        QTest::newRow("count that isn't a number") << "many" << QStringList() << 0;
        QTest::newRow("negative count") << "-3" << QStringList() << 0;
    }

    void storedAlbumWithHolesAndBadCount()
    {
        QFETCH(QString, count);
        QFETCH(QStringList, expected);
        TempStore temp;
        const QStringList before = {"/p/one.jpg",  "",         "<absent>", "/p/four.jpg",
                                    "/p/five.jpg", "<absent>", "<absent>", "<absent>"};
        store(AlbumStore::countKey(), AlbumStore::countName(), count);
        for (int number = 1; number <= before.size(); ++number)
            if (before[number - 1] != QLatin1String("<absent>"))
                store(AlbumStore::slotsKey(), AlbumStore::slotName(number), before[number - 1]);

        frmMain* form = start();
        QCOMPARE(texts(form->LSTSELECTED), expected);
        QCOMPARE(form->MNUFILERUN->isEnabled(), !expected.isEmpty());
        QCOMPARE(form->SBMAIN->panelText(3), QString::number(expected.size()) + " pictures selected");
        // The store isn't rewritten at start.
        QCOMPARE(items(), count);

        QFETCH(int, blankedUpTo);
        form->CLEARALL();
        QCOMPARE(items(), QStringLiteral("0"));
        for (int number = 1; number <= before.size(); ++number)
            QCOMPARE(slot(number), number <= blankedUpTo ? QString("") : before[number - 1]);
    }

    void longPathsAndNamesThatArentUtf8()
    {
        TempStore temp;
        QTemporaryDir dir;
        // A path of 255 characters and one of 254.
        const int room = 254 - static_cast<int>(dir.path().size()) - 1;
        const QString fits = dir.filePath(QString(room - 4, 'f') + ".jpg");
        const QString tooLong = dir.filePath(QString(room - 3, 'g') + ".jpg");
        QCOMPARE(fits.size(), 254);
        touch(fits);
        touch(tooLong);
        // Latin-1 bytes, not UTF-8.
        const QByteArray rawName = dir.path().toUtf8() + "/caf\xe9.jpg";
        const int fd = ::open(rawName.constData(), O_CREAT | O_WRONLY, 0644);
        QVERIFY(fd >= 0);
        ::close(fd);

        frmMain* form = start();
        form->FTVBROWSE->setSelectedfolder(dir.path());
        QCOMPARE(form->LVWFOUND->ListItems().Count(), 3);
        form->ADDALL();
        QCOMPARE(form->LSTSELECTED->ListItems().Count(), 3);

        form = restart();
        const QStringList album = texts(form->LSTSELECTED);
        QVERIFY(album.contains(fits));
        QVERIFY(!album.contains(tooLong));
        QCOMPARE(album.size(), 2);
        // The stored name still reaches the very same file.
        const QString cafe = album.at(album.indexOf(fits) == 0 ? 1 : 0);
        QCOMPARE(platform::encodeFileName(cafe), rawName);
        QVERIFY(platform::fileExists(cafe));
        ::unlink(rawName.constData()); // QTemporaryDir can't remove a name that isn't UTF-8
    }

    void storeThatCantBeWrittenLeavesTheProgramWorking()
    {
        TempStore temp;
        QTemporaryDir dir;
        makeFolder(dir, {"a.jpg"});
        // The config home is a file, so the store's folder can't be made.
        touch(temp.configHome() + "/blocked");
        qputenv("XDG_CONFIG_HOME", (temp.configHome() + "/blocked").toUtf8());
        platform::Registry::instance().reopen();

        frmMain* form = start();
        form->FTVBROWSE->setSelectedfolder(dir.path());
        form->ADDALL();
        QCOMPARE(texts(form->LSTSELECTED), QStringList({dir.filePath("a.jpg")}));
        QVERIFY(form->MNUFILERUN->isEnabled());
    }

    void enterPreviewsTheCurrentPicture()
    {
        TempStore temp;
        QTemporaryDir dir;
        QImage(30, 20, QImage::Format_RGB32).save(dir.filePath("a.bmp"));
        frmMain* form = start();
        form->FTVBROWSE->setSelectedfolder(dir.path());
        showAndFocus(form, form->LVWFOUND);
        form->LVWFOUND->setCurrentIndex(form->LVWFOUND->model()->index(0, 0));

        QSize previewed;
        QTimer::singleShot(0, this, [&] {
            previewed = Forms::get<frmPPrevPhoto>().PICPREVIEW->Picture().size();
            Forms::unload<frmPPrevPhoto>();
        });
        QTest::keyClick(form->LVWFOUND, Qt::Key_Return);
        QCOMPARE(previewed, QSize(30, 20));
        QTRY_VERIFY(form->LVWFOUND->hasFocus());
    }

    void contextMenusComeUpOnlyForAListWithItems()
    {
        TempStore temp;
        QTemporaryDir dir;
        makeFolder(dir, {"a.jpg", "b.jpg"});
        frmMain* form = start();
        form->FTVBROWSE->setSelectedfolder(dir.path());
        frmPopup& popup = Forms::get<frmPopup>();

        // The context menu key in the empty album: no menu.
        showAndFocus(form, form->LSTSELECTED);
        QTest::keyClick(form->LSTSELECTED, Qt::Key_Menu);
        QVERIFY(!popup.MNUSELECTEDTOP->isVisible());

        form->ADDALL();
        QTest::mouseClick(form->LSTSELECTED->viewport(), Qt::RightButton);
        QTRY_VERIFY(popup.MNUSELECTEDTOP->isVisible());
        popup.MNUSELECTEDTOP->close();

        // Remove from the menu runs the enable check too: the last one gone
        // turns the remove pair and Run off.
        for (int i = 0; i < 2; ++i) {
            form->LSTSELECTED->setCurrentIndex(form->LSTSELECTED->model()->index(0, 0));
            popup.MNUSELECTEDCLEAR->trigger();
        }
        QVERIFY(!commandEnabled(form, "REMOVE", form->MNUEDITREMOVE));
        QVERIFY(!form->MNUFILERUN->isEnabled());
    }

    void menusShowTheirImagesAndDescribeTheirItems()
    {
        TempStore temp;
        frmMain* form = start();
        QVERIFY(!form->MNUEDITADD->icon().isNull());

        // The pointer on a menu item puts its description in panel 1, with the
        // word of this window; on a popup menu's item, in the main window too.
        emit form->MNUEDITTOP->hovered(form->MNUEDITADD);
        QCOMPARE(form->SBMAIN->panelText(1), QStringLiteral("Add to current album."));
        frmPopup& popup = Forms::get<frmPopup>();
        QVERIFY(popup.MNUSELECTEDTOP->defaultAction() == popup.MNUSELECTEDPREVIEW);
        emit popup.MNUSELECTEDTOP->hovered(popup.MNUSELECTEDCLEAR);
        QCOMPARE(form->SBMAIN->panelText(1), QStringLiteral("Remove from current album."));
    }

    // The window's controls take its designed font; the menus keep the desktop's.
    void controlsTakeTheWindowsFont()
    {
        TempStore temp;
        frmMain* form = start();
        for (QWidget* control : std::initializer_list<QWidget*>{form->LVWFOUND, form->LSTSELECTED,
                                                                form->FTVBROWSE, form->SBMAIN}) {
            QCOMPARE(control->font().family(), QStringLiteral("Tahoma"));
            QCOMPARE(control->font().pointSizeF(), 8.25);
        }
        QCOMPARE(form->LBLDESC->font().pointSizeF(), 11.25);
        QVERIFY(form->menuBar()->font() != form->LVWFOUND->font());
    }

    // A button's description stays while the pointer is anywhere on the bar, also
    // on the rows and columns that the designed fixed rectangle left out.
    void toolbarDescriptionStaysOverTheWholeBar()
    {
        TempStore temp;
        frmMain* form = start();
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form));
        checkDescriptionsCoverTheBar(form->TBARMAIN, form->TMR1,
                                     [form] { return form->SBMAIN->panelText(1); });
    }

    void toggledBarsAreStoredTogether()
    {
        TempStore temp;
        frmMain* form = start();
        form->MNUVIEWSTATUSBAR->trigger();
        QVERIFY(form->SBMAIN->isHidden());
        QCOMPARE(stored(album::viewKey(), "Standard Toolbar"), QStringLiteral("True"));
        QCOMPARE(stored(album::viewKey(), "Status Bar"), QStringLiteral("False"));
        form = restart();
        QVERIFY(form->SBMAIN->isHidden() && !form->MNUVIEWSTATUSBAR->isChecked());
    }
};

QTEST_MAIN(tst_frmMain)
#include "tst_frmMain.moc"
