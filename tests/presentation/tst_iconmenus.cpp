// Icon menu bindings and the toolbar's pointer test.
#include "library/clsLibrary.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/ImageList.h"
#include "presentation/ICOMNU.h"

#include <QAction>
#include <QCursor>
#include <QMenuBar>
#include <QTest>

namespace {

class ImageForm : public Form {
public:
    ImageForm() : Form(QStringLiteral("ImageForm"))
    {
        images.add(QStringLiteral("RUN"), QIcon(QPixmap(16, 16)));
        images.add(QStringLiteral("ADD"), QIcon(QPixmap(16, 16)));
        QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
        run = file->addAction(QStringLiteral("&Run"));
        run->setObjectName(QStringLiteral("MNURUN"));
        menus = new zuv::ICOMNU(this);
        menus->Attach(this, true);
    }
    const platform::ImageList* imageList() const override { return &images; }

    platform::ImageList images;
    QAction* run = nullptr;
    zuv::ICOMNU* menus = nullptr;
};

} // namespace

class tst_iconmenus : public QObject {
    Q_OBJECT

private slots:
    void bindingsIndexTheImageList()
    {
        ImageForm form;
        clsLibrary& lib = clsLibrary::instance();
        // The first image of the list is 0; no image is -1; an unknown key
        // leaves the item as it was.
        lib.ICOMNUSETUP(&form, &form, QStringLiteral("MNURUN"), QStringLiteral("RUN"));
        QCOMPARE(form.menus->ItemIcon(QStringLiteral("MNURUN")), 0);
        lib.ICOMNUSETUP(&form, &form, QStringLiteral("MNURUN"), QStringLiteral("ADD"));
        QCOMPARE(form.menus->ItemIcon(QStringLiteral("MNURUN")), 1);
        lib.ICOMNUSETUP(&form, &form, QStringLiteral("MNURUN"), QStringLiteral("NO SUCH"));
        QCOMPARE(form.menus->ItemIcon(QStringLiteral("MNURUN")), 1);
        lib.ICOMNUSETUP(&form, &form, QStringLiteral("MNURUN"));
        QCOMPARE(form.menus->ItemIcon(QStringLiteral("MNURUN")), -1);
    }

    void pointerTestCountsItsEdgesInside_data()
    {
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<int>("outside");
        QTest::newRow("left edge") << QPoint(1, 50) << 0;
        QTest::newRow("left of it") << QPoint(0, 50) << 1;
        QTest::newRow("right edge") << QPoint(410, 50) << 0;
        QTest::newRow("right of it") << QPoint(411, 50) << 1;
        QTest::newRow("top edge") << QPoint(200, 45) << 0;
        QTest::newRow("above it") << QPoint(200, 44) << 1;
        QTest::newRow("bottom edge") << QPoint(200, 65) << 0;
        QTest::newRow("below it") << QPoint(200, 66) << 1;
    }

    void pointerTestCountsItsEdgesInside()
    {
        QFETCH(QPoint, pointer);
        QFETCH(int, outside);
        ImageForm form;
        form.show();
        form.move(100, 40);
        QCoreApplication::processEvents();
        const QPoint corner = form.frameGeometry().topLeft();
        QCursor::setPos(corner + pointer);
        QCOMPARE(int(clsLibrary::instance().MOUSEMOVE(&form, 1, 410, 45, 65)), outside);
        QCOMPARE(int(clsLibrary::instance().MOUSEMOVEMDI(&form, 1, 410, 45, 65)), outside);
    }
};

QTEST_MAIN(tst_iconmenus)
#include "tst_iconmenus.moc"
