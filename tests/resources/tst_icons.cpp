// The drawn images: every key of the main window's list and of the print
// preview's, in its order, at 16 and 32 pixels, each with something drawn on it
// and each unlike the others; the preview's pointer; and the program's icon at
// every size it offers, and the same picture in the desktop's icon files.
#include "config.h"
#include "resources/Icons.h"

#include <QCursor>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QSet>
#include <QSvgRenderer>
#include <QTest>

#include <cstdlib>

using ListMaker = platform::ImageList (*)();
Q_DECLARE_METATYPE(ListMaker)

namespace {

const QStringList MainKeys = {
    QStringLiteral("RUN"),    QStringLiteral("ADD"),        QStringLiteral("ADD ALL"),
    QStringLiteral("REMOVE"), QStringLiteral("REMOVE ALL"), QStringLiteral("PREVIEW"),
    QStringLiteral("FILE"),   QStringLiteral("ZUV ONLINE"), QStringLiteral("ABOUT"),
};

const QStringList PreviewKeys = {
    QStringLiteral("PRINT"),      QStringLiteral("ZOOM IN"),       QStringLiteral("ZOOM OUT"),
    QStringLiteral("FIRST PAGE"), QStringLiteral("PREVIOUS PAGE"), QStringLiteral("NEXT PAGE"),
    QStringLiteral("LAST PAGE"),  QStringLiteral("ABOUT"),
};

QImage imageAt(const QIcon& icon, int size)
{
    return icon.pixmap(QSize(size, size)).toImage().convertToFormat(QImage::Format_ARGB32);
}

// Drawn: a fair share of the square is covered, in more than one colour.
bool isDrawn(const QImage& image)
{
    int covered = 0;
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) > 128) {
                ++covered;
                colours.insert(pixel);
            }
        }
    }
    return covered >= image.width() * image.height() / 8 && colours.size() > 1;
}

} // namespace

class tst_icons : public QObject {
    Q_OBJECT

private slots:
    void listsInOrder_data();
    void listsInOrder();
    void listsDrawnAtBothSizes_data();
    void listsDrawnAtBothSizes();
    void magnifierPointer();
    void windowIconAtEverySize();
    void desktopIconIsTheWindowIcon();
};

void tst_icons::listsInOrder_data()
{
    QTest::addColumn<ListMaker>("makeList");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("main window") << ListMaker(resources::mainImages) << MainKeys;
    QTest::newRow("print preview") << ListMaker(resources::previewImages) << PreviewKeys;
}

void tst_icons::listsInOrder()
{
    QFETCH(ListMaker, makeList);
    QFETCH(QStringList, keys);
    const platform::ImageList images = makeList();
    for (int i = 0; i < keys.size(); ++i)
        QCOMPARE(images.indexOf(keys.at(i)), i + 1);
    QVERIFY(images.image(int(keys.size()) + 1).isNull());
}

void tst_icons::listsDrawnAtBothSizes_data()
{
    QTest::addColumn<ListMaker>("makeList");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("size");
    for (int size : {16, 32}) {
        QTest::addRow("main window, %d", size) << ListMaker(resources::mainImages) << MainKeys << size;
        QTest::addRow("print preview, %d", size)
            << ListMaker(resources::previewImages) << PreviewKeys << size;
    }
}

void tst_icons::listsDrawnAtBothSizes()
{
    QFETCH(ListMaker, makeList);
    QFETCH(QStringList, keys);
    QFETCH(int, size);
    const platform::ImageList images = makeList();
    QList<QImage> drawn;
    for (const QString& key : keys) {
        const QIcon icon = images.image(key);
        QVERIFY2(icon.availableSizes().contains(QSize(size, size)), qPrintable(key));
        const QImage image = imageAt(icon, size);
        QCOMPARE(image.size(), QSize(size, size));
        QVERIFY2(isDrawn(image), qPrintable(key));
        for (int i = 0; i < drawn.size(); ++i)
            QVERIFY2(drawn.at(i) != image, qPrintable(keys.at(i) + QStringLiteral(" looks like ") + key));
        drawn.append(image);
    }
}

// The hot spot is the middle of the lens: the glass is drawn there and a
// little way round it in every direction.
void tst_icons::magnifierPointer()
{
    const QCursor pointer = resources::magnifierCursor();
    QCOMPARE(pointer.hotSpot(), QPoint(9, 8));
    const QImage image = pointer.pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(image.size(), QSize(32, 32));
    for (const QPoint& offset : {QPoint(0, 0), QPoint(-4, 0), QPoint(4, 0), QPoint(0, -4), QPoint(0, 4)})
        QVERIFY2(qAlpha(image.pixel(QPoint(9, 8) + offset)) > 128, qPrintable(QString::number(offset.x())));
    QVERIFY(isDrawn(image));
}

void tst_icons::windowIconAtEverySize()
{
    const QIcon icon = resources::windowIcon();
    for (int size : {16, 32, 48, 64, 128}) {
        QVERIFY(icon.availableSizes().contains(QSize(size, size)));
        QVERIFY2(isDrawn(imageAt(icon, size)), qPrintable(QString::number(size)));
    }
}

// The icon files that the desktop shows in its menus (made by the build) are the
// picture that the windows carry: the PNGs pixel for pixel, the SVG as close as
// two renderers of the same shapes come (a shape that the SVG writer drops, such
// as a clip, would show here).
void tst_icons::desktopIconIsTheWindowIcon()
{
    const QString folder = QStringLiteral(VISTARRO_DESKTOP_ICONS);
    const QString name = QStringLiteral(VISTARRO_APP_ID);
    const QIcon icon = resources::windowIcon();
    for (int size : {16, 32, 48, 64, 128}) {
        const QImage file(QStringLiteral("%1/%2x%2/apps/%3.png").arg(folder).arg(size).arg(name));
        QVERIFY2(!file.isNull(), qPrintable(QString::number(size)));
        QCOMPARE(file.convertToFormat(QImage::Format_ARGB32), imageAt(icon, size));
    }

    QSvgRenderer svg(QStringLiteral("%1/scalable/apps/%2.svg").arg(folder, name));
    QVERIFY(svg.isValid());
    const int size = 128;
    QImage rendered(size, size, QImage::Format_ARGB32);
    rendered.fill(Qt::transparent);
    QPainter painter(&rendered);
    svg.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    const QImage drawn = imageAt(icon, size);
    qint64 difference = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const QRgb a = rendered.pixel(x, y);
            const QRgb b = drawn.pixel(x, y);
            difference += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                          std::abs(qBlue(a) - qBlue(b)) + std::abs(qAlpha(a) - qAlpha(b));
        }
    }
    // Below one level in 256 per channel on average: the edges' smoothing differs.
    QVERIFY2(difference < qint64(size) * size * 4, qPrintable(QString::number(difference)));
}

QTEST_MAIN(tst_icons)
#include "tst_icons.moc"
