// The about box: what it says once loaded, that Enter and Esc close the modal box,
// and that a click on the logo opens the maker's site and leaves the box open.
#include "TempStore.h"

#include "about/frmAbout.h"
#include "config.h"
#include "library/clsLibrary.h"
#include "platform/core/Shell.h"
#include "platform/widgets/Screen.h"

#include <QLabel>
#include <QTest>
#include <QTimer>

class tst_frmAbout : public QObject {
    Q_OBJECT

private slots:
    void textsAtLoad();
    void keysCloseTheModalBox_data();
    void keysCloseTheModalBox();
    void logoOpensTheWebSite();
};

void tst_frmAbout::textsAtLoad()
{
    TempStore temp;
    clsLibrary& library = clsLibrary::instance();
    // Written in another case of the key path, as another program may have.
    QVERIFY(library.REGSTRWRITE(clsLibrary::currentUserKey(),
                                QStringLiteral("Software\\Microsoft\\Windows\\CurrentVersion"),
                                QStringLiteral("RegisteredOrganization"), QStringLiteral("Vistarro Club")));

    frmAbout& about = Forms::get<frmAbout>();
    QCOMPARE(about.LBLVERSNO->text(), QStringLiteral(VISTARRO_VERSION).section(QLatin1Char('.'), 0, 1));
    QCOMPARE(about.LBLREGNAME->text(), library.GETCOMPANYNAME());
    QCOMPARE(about.LBLREGCO->text(), QStringLiteral("Vistarro Club"));
    QCOMPARE(about.IMGLOGO->pixmap().deviceIndependentSize().toSize(), QSize(170, 81));
    // The inner size is fixed in twips, whatever the fonts make of the content.
    QCOMPARE(about.ScaleWidth(), 7530.0F);
    QCOMPARE(about.ScaleHeight(), 4185.0F);
    Forms::unload<frmAbout>();
}

void tst_frmAbout::keysCloseTheModalBox_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Esc, the cancel button") << int(Qt::Key_Escape);
    QTest::newRow("Enter, the default button") << int(Qt::Key_Return);
}

// Shown modally, as the Help menu shows it: the key has to end the modal loop, or
// this test never returns from Show.
void tst_frmAbout::keysCloseTheModalBox()
{
    QFETCH(int, key);
    TempStore temp;
    bool active = false;
    bool closedByKey = false;
    QTimer::singleShot(0, this, [&] {
        frmAbout& about = Forms::get<frmAbout>();
        active = QTest::qWaitForWindowActive(&about);
        QTest::keyClick(about.LBLVERSNO, static_cast<Qt::Key>(key));
        closedByKey = !Forms::isLoaded<frmAbout>();
        // Never leave the modal loop waiting on a person.
        Forms::unload<frmAbout>();
    });
    Forms::get<frmAbout>().Show(1);
    QVERIFY(active);
    QVERIFY(closedByKey);
}

void tst_frmAbout::logoOpensTheWebSite()
{
    TempStore temp;
    QStringList opened;
    platform::Shell::setUrlOpenerForTests([&](const QString& url) {
        opened << url;
        return true;
    });
    frmAbout& about = Forms::get<frmAbout>();
    about.show();
    QVERIFY(QTest::qWaitForWindowExposed(&about));

    QTest::mouseClick(about.IMGLOGO, Qt::RightButton);
    QTest::mouseClick(about.LBLPROGRAMNAME, Qt::LeftButton);
    QCOMPARE(opened, QStringList());
    QTest::mouseClick(about.IMGLOGO, Qt::LeftButton);
    QCOMPARE(opened, QStringList{QStringLiteral(VISTARRO_WEB_ADDRESS)});
    QVERIFY(about.isVisible());

    platform::Shell::setUrlOpenerForTests({});
    Forms::unload<frmAbout>();
}

QTEST_MAIN(tst_frmAbout)
#include "tst_frmAbout.moc"
