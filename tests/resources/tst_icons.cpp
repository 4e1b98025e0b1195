// The drawn images: every key of the main window's list, in its order, at 16 and
// 32 pixels, each with something drawn on it and each unlike the others; and the
// program's icon at every size it offers.
#include "resources/Icons.h"

#include <QImage>
#include <QPixmap>
#include <QSet>
#include <QTest>

namespace {

const QStringList Keys = {
    QStringLiteral("RUN"),    QStringLiteral("ADD"),        QStringLiteral("ADD ALL"),
    QStringLiteral("REMOVE"), QStringLiteral("REMOVE ALL"), QStringLiteral("PREVIEW"),
    QStringLiteral("FILE"),   QStringLiteral("ZUV ONLINE"), QStringLiteral("ABOUT"),
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
    void mainImagesInOrder();
    void mainImagesDrawnAtBothSizes_data();
    void mainImagesDrawnAtBothSizes();
    void windowIconAtEverySize();
};

void tst_icons::mainImagesInOrder()
{
    const platform::ImageList images = resources::mainImages();
    for (int i = 0; i < Keys.size(); ++i)
        QCOMPARE(images.indexOf(Keys.at(i)), i + 1);
    QVERIFY(images.image(int(Keys.size()) + 1).isNull());
}

void tst_icons::mainImagesDrawnAtBothSizes_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("16") << 16;
    QTest::newRow("32") << 32;
}

void tst_icons::mainImagesDrawnAtBothSizes()
{
    QFETCH(int, size);
    const platform::ImageList images = resources::mainImages();
    QList<QImage> drawn;
    for (const QString& key : Keys) {
        const QIcon icon = images.image(key);
        QVERIFY2(icon.availableSizes().contains(QSize(size, size)), qPrintable(key));
        const QImage image = imageAt(icon, size);
        QCOMPARE(image.size(), QSize(size, size));
        QVERIFY2(isDrawn(image), qPrintable(key));
        for (int i = 0; i < drawn.size(); ++i)
            QVERIFY2(drawn.at(i) != image, qPrintable(Keys.at(i) + QStringLiteral(" looks like ") + key));
        drawn.append(image);
    }
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
