// The drawn images: every key of the main window's list and of the print
// preview's, in its order, at 16 and 32 pixels, each with something drawn on it
// and each unlike the others; the preview's pointer; and the program's icon at
// every size it offers.
#include "resources/Icons.h"

#include <QCursor>
#include <QImage>
#include <QPixmap>
#include <QSet>
#include <QTest>

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

QTEST_MAIN(tst_icons)
#include "tst_icons.moc"
