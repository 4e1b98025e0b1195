// The picture preview: its box follows the window, the picture stands at natural
// size from the box's top left corner, and a picture that can't be loaded says so.
#include "FormSupport.h"
#include "TempStore.h"

#include "platform/widgets/PictureBox.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/Twips.h"
#include "presentation/PANEL.h"
#include "viewer/frmPPrevPhoto.h"

#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using platform::twips;

class tst_frmPPrevPhoto : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;

    QString picture(int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        image.setPixel(0, 0, qRgb(255, 0, 0));
        const QString path = dir_.filePath(QStringLiteral("p%1x%2.bmp").arg(width).arg(height));
        image.save(path);
        return path;
    }

    frmPPrevPhoto* open(const QString& path)
    {
        frmPPrevPhoto& form = Forms::get<frmPPrevPhoto>();
        form.loadPicture(path);
        form.setWindowState(0);
        form.show();
        QCoreApplication::processEvents();
        return &form;
    }

private slots:
    void cleanup() { testsupport::unloadForms<frmPPrevPhoto>(); }

    void boxFollowsTheWindow()
    {
        TempStore temp;
        frmPPrevPhoto* form = open(picture(2000, 1500));
        form->resize(500, 400);
        QCoreApplication::processEvents();

        QCOMPARE(twips(form->PICPREVIEW).Width(), form->ScaleWidth() - 120);
        QCOMPARE(twips(form->PICPREVIEW).Height(), form->ScaleHeight() - twips(form->PANEL1).Height() - 60);
        QVERIFY(form->PANEL1->dialogresize());
        // Close sits at the right of the panel.
        QCOMPARE(twips(form->BTNCLOSE).Left(), form->ScaleWidth() - 135 - twips(form->BTNCLOSE).Width());
    }

    void pictureStandsAtNaturalSizeFromTheTopLeft_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::newRow("larger than the box") << 2000 << 1500;
        QTest::newRow("smaller than the box") << 40 << 30;
    }

    void pictureStandsAtNaturalSizeFromTheTopLeft()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        TempStore temp;
        frmPPrevPhoto* form = open(picture(width, height));
        form->resize(500, 400);
        QCoreApplication::processEvents();

        const QImage shown = form->PICPREVIEW->grab().toImage();
        const QPoint inside = form->PICPREVIEW->contentsRect().topLeft();
        QCOMPARE(QColor(shown.pixel(inside)), QColor(255, 0, 0));
        // A larger picture fills the box to its far corner; a smaller one has the
        // window colour around it.
        const QColor corner(shown.pixel(form->PICPREVIEW->contentsRect().bottomRight()));
        const bool larger = width > form->PICPREVIEW->contentsRect().width();
        QCOMPARE(corner, larger ? QColor(Qt::darkCyan) : form->PICPREVIEW->palette().color(QPalette::Base));
    }

    void pictureThatCantBeLoadedSaysSo()
    {
        TempStore temp;
        frmPPrevPhoto* form = open(dir_.filePath(QStringLiteral("gone.jpg")));
        QVERIFY(form->PICPREVIEW->Picture().isNull());
        QVERIFY(form->PICPREVIEW->message().contains(QStringLiteral("can't be shown")));
    }

    void escapeClosesAndThePlaceIsKept()
    {
        TempStore temp;
        frmPPrevPhoto* form = open(picture(10, 10));
        form->move(40, 30);
        form->resize(420, 330);
        QCoreApplication::processEvents();
        const QRect placed = form->frameGeometry();
        QTest::keyClick(form, Qt::Key_Escape);
        QVERIFY(!Forms::isLoaded<frmPPrevPhoto>());
        testsupport::flushDeferredDeletes();

        frmPPrevPhoto& again = Forms::get<frmPPrevPhoto>();
        again.show();
        QCoreApplication::processEvents();
        QCOMPARE(again.WindowState(), 0);
        QCOMPARE(again.frameGeometry(), placed);
    }
};

QTEST_MAIN(tst_frmPPrevPhoto)
#include "tst_frmPPrevPhoto.moc"
