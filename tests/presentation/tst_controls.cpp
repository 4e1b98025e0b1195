#include "presentation/PANEL.h"
#include "presentation/SPIN.h"
#include "presentation/TXTSEP.h"
#include "presentation/VBAR.h"

#include "platform/widgets/Screen.h"

#include <QSignalSpy>
#include <QSizeGrip>
#include <QStyleOptionSpinBox>
#include <QTest>

using zuv::PANEL;
using zuv::SPIN;
using zuv::TXTSEP;
using zuv::VBAR;

namespace {

// Where the arrows of a spin box are, as its style draws them.
class ProbedSpin : public SPIN {
public:
    QPoint arrow(QStyle::SubControl which) const
    {
        QStyleOptionSpinBox option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_SpinBox, &option, which, this).center();
    }
};

enum class Edit { Type, UpKey, DownArrow, Code, SameTextByCode, Letters };

} // namespace

class tst_controls : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void spinChangeAfterEveryEdit_data();
    void spinChangeAfterEveryEdit();
    void spinSteps_data();
    void spinSteps();
    void panelKeepsToTheBottom();
    void vbarDrawsItsCaptionAndEdges();
    void separatorRuleShowsAtEveryHeight_data();
    void separatorRuleShowsAtEveryHeight();
};

void tst_controls::initTestCase()
{
    if (platform::Screen::TwipsPerPixelX() != 15 || platform::Screen::TwipsPerPixelY() != 15)
        QSKIP("the pixel sizes are worked out for 15 twips to the pixel (96 DPI)");
}

void tst_controls::spinChangeAfterEveryEdit_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("changes");

    QTest::newRow("typed") << Edit::Type << "1.05" << 1;
    QTest::newRow("Up key") << Edit::UpKey << "1.1" << 1;
    QTest::newRow("down arrow") << Edit::DownArrow << "0.9" << 1;
    QTest::newRow("set by code") << Edit::Code << "2.5" << 1;
    QTest::newRow("the same text by code is no change") << Edit::SameTextByCode << "1.0" << 0;
    QTest::newRow("letters aren't taken") << Edit::Letters << "1.0" << 0;
}

// The page setup redraws its miniature on every change of a margin, whichever
// way the margin changed.
void tst_controls::spinChangeAfterEveryEdit()
{
    QFETCH(Edit, edit);
    QFETCH(QString, text);
    QFETCH(int, changes);
    ProbedSpin spin;
    spin.resize(80, 24);
    spin.setText(QStringLiteral("1.0"));
    spin.show();
    QVERIFY(QTest::qWaitForWindowExposed(&spin));
    QSignalSpy change(&spin, &SPIN::Change);

    switch (edit) {
    case Edit::Type:
        QTest::keyClick(&spin, Qt::Key_End);
        QTest::keyClicks(&spin, QStringLiteral("5"));
        break;
    case Edit::UpKey: QTest::keyClick(&spin, Qt::Key_Up); break;
    case Edit::DownArrow:
        QTest::mouseClick(&spin, Qt::LeftButton, {}, spin.arrow(QStyle::SC_SpinBoxDown));
        break;
    case Edit::Code: spin.setText(QStringLiteral("2.5")); break;
    case Edit::SameTextByCode: spin.setText(QStringLiteral("1.0")); break;
    case Edit::Letters:
        QTest::keyClick(&spin, Qt::Key_End);
        QTest::keyClicks(&spin, QStringLiteral("in"));
        break;
    }

    QCOMPARE(spin.text(), text);
    QCOMPARE(change.count(), changes);
}

void tst_controls::spinSteps_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("increment");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the text's own decimals stay") << "1.25" << 0.1 << Qt::Key_Up << "1.35";
    QTest::newRow("read as far as it is a number") << "2.5cm" << 0.1 << Qt::Key_Up << "2.6";
    QTest::newRow("stops at Max") << "9.95" << 0.1 << Qt::Key_Up << "10.00";
    QTest::newRow("at Min, no step") << "0.0" << 0.1 << Qt::Key_Down << "0.0";
    QTest::newRow("below Min, up comes to Min") << "-3" << 1.0 << Qt::Key_Up << "0";
}

void tst_controls::spinSteps()
{
    QFETCH(QString, text);
    QFETCH(double, increment);
    QFETCH(Qt::Key, key);
    QFETCH(QString, expected);
    SPIN spin;
    spin.setMax(10);
    spin.setIncrement(increment);
    spin.setText(text);

    QTest::keyClick(&spin, key);

    QCOMPARE(spin.text(), expected);
}

// The panel spans its container at the bottom, whatever the container's size
// and its own height (645 twips is 43 pixels); its size grip, in its bottom
// right corner, is there while dialogresize is on.
void tst_controls::panelKeepsToTheBottom()
{
    QWidget dialog;
    dialog.resize(400, 300);
    auto* panel = new PANEL(&dialog);
    const auto* grip = panel->findChild<QSizeGrip*>();
    panel->setDialogresize(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(panel->geometry(), QRect(0, 257, 400, 43));
    QVERIFY(grip->isVisible());

    dialog.resize(500, 200);
    panel->resize(panel->width(), 60);
    QCOMPARE(panel->geometry(), QRect(0, 140, 500, 60));
    QCOMPARE(grip->geometry().bottomRight(), panel->rect().bottomRight());

    panel->setDialogresize(false);
    QVERIFY(!grip->isVisible());
}

// The caption in the fore colour, each edge in its own colour.
void tst_controls::vbarDrawsItsCaptionAndEdges()
{
    VBAR bar(QStringLiteral(" Folders"));
    bar.resize(100, 18);
    const QColor fore(0, 0, 255), light(255, 0, 255), shadow(0, 255, 0), dark(255, 0, 0);
    bar.setColor(VBAR::Color::ForeColor, fore);
    bar.setColor(VBAR::Color::LeftLightShadowColor, light);
    bar.setColor(VBAR::Color::RightShadowColor, shadow);
    bar.setColor(VBAR::Color::BottomDarkShadowColor, dark);

    const QImage image = bar.grab().toImage();

    QCOMPARE(image.pixelColor(0, 9), light);
    QCOMPARE(image.pixelColor(98, 9), shadow);
    QCOMPARE(image.pixelColor(50, 17), dark);
    bool captionDrawn = false;
    for (int x = 2; x < 60; ++x)
        for (int y = 2; y < 16; ++y)
            captionDrawn = captionDrawn || image.pixelColor(x, y) == fore;
    QVERIFY(captionDrawn);
}

void tst_controls::separatorRuleShowsAtEveryHeight_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("height"); // 0: the size hint's
    QTest::newRow("size hint, as a layout gives it") << QString() << 0;
    QTest::newRow("odd height") << QString() << 15;
    QTest::newRow("with a caption") << QStringLiteral("Print Settings") << 0;
}

// A shadow row over a light row, both across the rule's whole width behind the
// caption. At its size hint of two rows the shadow was drawn above the control.
void tst_controls::separatorRuleShowsAtEveryHeight()
{
    QFETCH(QString, caption);
    QFETCH(int, height);
    TXTSEP rule(caption);
    QPalette colours = rule.palette();
    const QColor dark(255, 0, 0), light(0, 0, 255);
    colours.setColor(QPalette::Dark, dark);
    colours.setColor(QPalette::Light, light);
    rule.setPalette(colours);
    rule.resize(200, height > 0 ? height : rule.sizeHint().height());

    const QImage image = rule.grab().toImage();
    const auto wholeRow = [&](int y, const QColor& colour) {
        for (int x = 150; x < image.width(); ++x)
            if (image.pixelColor(x, y) != colour)
                return false;
        return true;
    };
    int shadowRow = -1;
    for (int y = 0; y + 1 < image.height() && shadowRow < 0; ++y)
        if (wholeRow(y, dark))
            shadowRow = y;
    QVERIFY(shadowRow >= 0);
    QVERIFY(wholeRow(shadowRow + 1, light));
}

QTEST_MAIN(tst_controls)
#include "tst_controls.moc"
