#include "platform/widgets/ImageList.h"
#include "platform/widgets/ListView.h"

#include <QSignalSpy>
#include <QTest>

using namespace platform;

class tst_ListView : public QObject {
    Q_OBJECT
private slots:
    void rowsKeepTheirValues();
    void shownChangesReachTheView();
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
    QCOMPARE(list.ListItems()(3).Index(), 3);
    // A row with an icon key shows the image; one without shows none at all.
    QCOMPARE(list.topLevelItem(0)->icon(0).pixmap(16).toImage().pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(!list.model()->index(2, 0).data(Qt::DecorationRole).isValid());
    // Roles the list doesn't use are kept as a plain item keeps them.
    list.topLevelItem(0)->setToolTip(0, "tip");
    QCOMPARE(list.topLevelItem(0)->toolTip(0), QStringLiteral("tip"));
}

void tst_ListView::shownChangesReachTheView()
{
    ListView list("Images");
    list.ListItems().Add("M1", "one.jpg", "");
    QSignalSpy changed(list.model(), &QAbstractItemModel::dataChanged);
    list.topLevelItem(0)->setText(0, "renamed.jpg");
    QCOMPARE(changed.count(), 1);
    QCOMPARE(list.model()->index(0, 0).data().toString(), QStringLiteral("renamed.jpg"));
    list.topLevelItem(0)->setText(0, "renamed.jpg"); // unchanged: no signal
    QCOMPARE(changed.count(), 1);
}

QTEST_MAIN(tst_ListView)
#include "tst_listview.moc"
