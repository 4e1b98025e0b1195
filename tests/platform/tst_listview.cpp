#include "platform/core/Error.h"
#include "platform/widgets/ImageList.h"
#include "platform/widgets/ListView.h"

#include <QTest>

using namespace platform;

class tst_ListView : public QObject {
    Q_OBJECT
private slots:
    void rowsKeepTheirValues();
    void removalsAndClearing();
};

void tst_ListView::rowsKeepTheirValues()
{
    ImageList images;
    QPixmap red(16, 16);
    red.fill(Qt::red);
    images.add("FILE", QIcon(red));
    ListView list("Images");
    list.setSmallIcons(&images);
    list.ListItems().AddAll({{"M1", "one.jpg", "FILE"}, {"M2", "two.jpg", ""}});
    list.ListItems().Add(2, "K", "between.jpg", "FILE").setTag(7);

    QCOMPARE(list.ListItems().Count(), 3);
    QCOMPARE(list.ListItems()(2).Text(), QStringLiteral("between.jpg"));
    QCOMPARE(list.ListItems()(2).Key(), QStringLiteral("K"));
    QCOMPARE(list.ListItems()(2).Tag(), 7);
    QCOMPARE(list.ListItems()(3).Tag(), 0);
    QCOMPARE(list.model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Images"));
    // A row with an icon key shows the image; one without shows none at all.
    const QIcon shown = list.model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
    QCOMPARE(shown.pixmap(16).toImage().pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(!list.model()->index(2, 0).data(Qt::DecorationRole).isValid());
    QCOMPARE(list.model()->index(2, 0).data().toString(), QStringLiteral("two.jpg"));
}

void tst_ListView::removalsAndClearing()
{
    ListView list("Images");
    list.ListItems().AddAll({{"M1", "one.jpg", ""}, {"M2", "two.jpg", ""}, {"M3", "three.jpg", ""}});
    list.setCurrentIndex(list.model()->index(2, 0));
    list.ListItems()(1).setSelected(true);
    QVERIFY(list.ListItems()(1).Selected() && list.ListItems()(3).Selected());
    QVERIFY(!list.ListItems()(2).Selected());

    list.ListItems().Remove(1);
    QCOMPARE(list.SelectedItem().Text(), QStringLiteral("three.jpg"));
    QCOMPARE(list.SelectedItem().Index(), 2);
    QVERIFY_THROWS_EXCEPTION(Error, list.ListItems().Remove(3));
    QVERIFY_THROWS_EXCEPTION(Error, list.ListItems()(0));

    list.ListItems().Clear();
    QCOMPARE(list.ListItems().Count(), 0);
    QVERIFY(list.SelectedItem().isNull());
    QVERIFY(!list.selectionModel()->hasSelection());
}

QTEST_MAIN(tst_ListView)
#include "tst_listview.moc"
