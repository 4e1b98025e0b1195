// The main window's panes follow the splitters and the window's size by the
// layout arithmetic in twips, and come back where the user left them.
#include "FormSupport.h"
#include "Stored.h"
#include "TempStore.h"

#include "album/frmMain.h"
#include "library/clsLibrary.h"
#include "platform/widgets/FolderTree.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Twips.h"

#include <QAction>
#include <QMouseEvent>
#include <QTest>

using platform::twips;

namespace {

float tpx()
{
    return platform::Screen::TwipsPerPixelX();
}
float tpy()
{
    return platform::Screen::TwipsPerPixelY();
}

// Presses the left button on a splitter, moves by the given pixels and lets go,
// as a person drags it.
void drag(QWidget* bar, QPoint by)
{
    const QPointF start(bar->width() / 2.0, bar->height() / 2.0);
    const auto send = [&](QEvent::Type type, QPointF local, Qt::MouseButtons buttons) {
        QMouseEvent event(type, local, bar->mapToGlobal(local), Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &event);
    };
    send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    send(QEvent::MouseMove, start + by, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, start + by, Qt::NoButton);
}

// Sets the client area to a size in twips.
void resizeClient(frmMain* form, float width, float height)
{
    const QSize frame = form->size() - form->clientArea()->size();
    form->resize(qRound(width / tpx()) + frame.width(), qRound(height / tpy()) + frame.height());
    QCoreApplication::processEvents();
}

QString stored(const QString& item)
{
    return testsupport::stored(frmMain::preferencesKey(), item);
}

} // namespace

class tst_frmMain_layout : public QObject {
    Q_OBJECT

    frmMain* restart()
    {
        testsupport::unloadForms<frmMain>();
        frmMain* form = &Forms::get<frmMain>();
        form->show();
        QCoreApplication::processEvents();
        return form;
    }

private slots:
    void cleanup() { testsupport::unloadForms<frmMain>(); }

    void designSizeArithmetic()
    {
        TempStore temp;
        frmMain* form = restart();
        resizeClient(form, 9675, 6375);
        QCOMPARE(form->ScaleWidth(), 9675.0f);

        // The design's splitters; PICBOX takes what the bands and the status bar leave.
        QCOMPARE(twips(form->PICBAR2).Left(), 3585.0f);
        QCOMPARE(twips(form->PICBOX).Height(), 6375.0f - 930 - 300);
        QCOMPARE(twips(form->LSTSELECTED).Width(), 9675.0f - 3650 - 15);
        QCOMPARE(twips(form->LSTSELECTED).Top(), 2340.0f + 50 + 285);
        QCOMPARE(twips(form->LSTSELECTED).Height(), twips(form->PICBOX).Height() - 2675 - 15);
    }

    void splittersStopAtTheirLimits_data()
    {
        QTest::addColumn<bool>("vertical");
        QTest::addColumn<int>("byPixels");
        QTest::addColumn<QString>("expected");
        QTest::newRow("tree splitter far left") << true << -1000 << "1000";
        QTest::newRow("tree splitter far right") << true << 1000 << "width-1000";
        QTest::newRow("list splitter far down") << false << 1000 << "height-status-1000";
    }

    void splittersStopAtTheirLimits()
    {
        QFETCH(bool, vertical);
        QFETCH(int, byPixels);
        QFETCH(QString, expected);
        TempStore temp;
        frmMain* form = restart();
        resizeClient(form, 9675, 6375);

        float limit = 1000;
        if (expected == "width-1000")
            limit = form->ScaleWidth() - 1000;
        else if (expected == "height-status-1000")
            limit = form->ScaleHeight() - twips(form->SBMAIN).Height() - 1000;
        if (vertical) {
            drag(form->PICBAR2, QPoint(byPixels, 0));
            QCOMPARE(twips(form->PICBAR2).Left(), limit);
            QCOMPARE(twips(form->LSTSELECTED).Left(), limit + 65);
        } else {
            drag(form->PICBAR1, QPoint(0, byPixels));
            QCOMPARE(twips(form->PICBAR1).Top(), limit);
            QCOMPARE(twips(form->PICSELCT).Top(), limit + 50);
        }
    }

    void storedSplittersAreCorrectedAndKept()
    {
        TempStore temp;
        frmMain* form = restart();
        resizeClient(form, 9675, 6375);
        drag(form->PICBAR1, QPoint(0, 10));
        const float top = twips(form->PICBAR1).Top();
        Forms::unload<frmMain>();
        QCOMPARE(stored("Splitter Bar Top"), QString::number(top));

        // A stored left beyond the window is corrected at the first layout.
        clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), frmMain::preferencesKey(),
                                           "Splitter Bar Left", "20000");
        form = restart();
        resizeClient(form, 9675, 6375);
        QCOMPARE(twips(form->PICBAR2).Left(), 8675.0f);
        QCOMPARE(twips(form->PICBAR1).Top(), top);

        // In a window narrower than 2000 the right-hand limit wins.
        resizeClient(form, 1800, 6375);
        QCOMPARE(twips(form->PICBAR2).Left(), form->ScaleWidth() - 1000);
        QVERIFY(twips(form->PICBAR2).Left() < 1000);
    }

    void barsToggledLayTheWindowOutAnew()
    {
        TempStore temp;
        frmMain* form = restart();
        resizeClient(form, 9675, 6375);
        const float boxHeight = twips(form->PICBOX).Height();

        form->MNUVIEWSTANDARDBAR->trigger();
        QCOMPARE(twips(form->PICBOX).Top(), 465.0f);
        QCOMPARE(twips(form->PICBOX).Height(), boxHeight + 465);
        form->MNUVIEWSTATUSBAR->trigger();
        QCOMPARE(twips(form->PICBOX).Height(), boxHeight + 465 + 300);
        // The panes still end at the bottom of the box.
        QCOMPARE(twips(form->PICSELCT).Top() + twips(form->PICSELCT).Height(), twips(form->PICBOX).Height());
    }

    void tinyAndMinimizedWindowsDontBreakTheLayout()
    {
        TempStore temp;
        frmMain* form = restart();
        resizeClient(form, 9675, 6375);
        resizeClient(form, 300, 300);
        // The splitter is pushed left of the window; the sizes that would be
        // negative are skipped.
        QCOMPARE(twips(form->PICBAR2).Left(), form->ScaleWidth() - 1000);
        QVERIFY(form->LSTSELECTED->width() >= 0 && form->PICBOX->height() >= 0);
        form->showMinimized();
        QCoreApplication::processEvents();
        form->showNormal();
        resizeClient(form, 9675, 6375);
        QCOMPARE(twips(form->LSTSELECTED).Width(), 9675.0f - twips(form->LSTSELECTED).Left() - 15);
    }
};

QTEST_MAIN(tst_frmMain_layout)
#include "tst_frmMain_layout.moc"
