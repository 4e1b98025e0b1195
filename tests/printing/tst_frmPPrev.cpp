// The print preview as a caller opens it: every zoom step by its menu item with
// its mark, buttons and image size, also after a resize; stepping in and out at
// the ends; the paging commands and their enable states; a one-page and an empty
// document; a page past the end; the settings it keeps, and that only a shown
// preview keeps them; the arrow keys at the ends of the scroll bars; a sheet too
// large for 16 bits; printing from the window.
#include "FormSupport.h"
#include "Stored.h"
#include "TempStore.h"
#include "ToolbarPointer.h"

#include "library/clsLibrary.h"
#include "platform/print/CommonDialog.h"
#include "platform/print/Printer.h"
#include "platform/print/RichTextBox.h"
#include "platform/widgets/ComboBox.h"
#include "platform/widgets/ImageControl.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "printing/clsPrinting.h"
#include "printing/frmPPrev.h"

#include <QAction>
#include <QFileInfo>
#include <QFrame>
#include <QPageSize>
#include <QPrinter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

using platform::twips;

namespace {

// A window of a caller: a rich text box and the print dialog CMD1.
class Caller : public Form {
public:
    Caller() : Form(QStringLiteral("frmCaller"))
    {
        RTF1 = new platform::RichTextBox(this);
        CMD1 = new platform::CommonDialog(QStringLiteral("CMD1"), this);
    }
    platform::RichTextBox* RTF1;
    platform::CommonDialog* CMD1;
};

QString lines(int count)
{
    QStringList text;
    for (int i = 1; i <= count; ++i)
        text << QStringLiteral("Line %1 of the document").arg(i);
    return text.join(QLatin1Char('\n'));
}

QString stored(const QString& item)
{
    return testsupport::stored(frmPPrev::settingsKey(), item, QStringLiteral("(none)"));
}

void store(const QString& item, const QString& value)
{
    clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), frmPPrev::settingsKey(), item, value);
}

int page(const frmPPrev& form)
{
    return form.CBOPGNO->Text().toInt();
}

// The four paging commands agree between menu and toolbar; back is First and
// Previous, forward Next and Last.
bool backEnabled(const frmPPrev& form)
{
    const bool on = form.MNUVIEWFIRST->isEnabled();
    return on == form.MNUVIEWPREVIOUS->isEnabled() &&
                   on == form.TBARMAIN->Buttons(QStringLiteral("FIRST PAGE"))->isEnabled() &&
                   on == form.TBARMAIN->Buttons(QStringLiteral("PREVIOUS PAGE"))->isEnabled()
               ? on
               : (qWarning("back commands disagree"), !on);
}

bool forwardEnabled(const frmPPrev& form)
{
    const bool on = form.MNUVIEWNEXT->isEnabled();
    return on == form.MNUVIEWLAST->isEnabled() &&
                   on == form.TBARMAIN->Buttons(QStringLiteral("NEXT PAGE"))->isEnabled() &&
                   on == form.TBARMAIN->Buttons(QStringLiteral("LAST PAGE"))->isEnabled()
               ? on
               : (qWarning("forward commands disagree"), !on);
}

// Compares two twips lengths to the pixel they stand on.
bool samePixel(float a, float b)
{
    return qAbs(a - b) <= platform::Screen::TwipsPerPixelX();
}

} // namespace

class tst_frmPPrev : public QObject {
    Q_OBJECT

    QTemporaryDir output_;
    std::unique_ptr<TempStore> store_;
    Caller* caller_ = nullptr;

    // Opens the preview of TEXT, runs WHILEOPEN in it and closes it by its menu.
    void preview(const QString& text, const std::function<void(frmPPrev&)>& whileOpen)
    {
        caller_->RTF1->setText(text);
        QTimer::singleShot(0, this, [&] {
            frmPPrev& form = Forms::get<frmPPrev>();
            [&] {
                QVERIFY(QTest::qWaitForWindowExposed(&form));
                whileOpen(form);
            }();
            if (Forms::isLoaded<frmPPrev>())
                form.MNUFILEEXIT->trigger();
        });
        clsPrinting::instance().PRINTPREVIEW(caller_, caller_->RTF1, 0);
        QVERIFY(!Forms::isLoaded<frmPPrev>());
    }

private slots:
    void initTestCase()
    {
        platform::currentPrinter().selectPrinter(QString::fromLatin1(platform::Printer::PdfPrinterName));
        platform::currentPrinter().setOutputFileName(output_.filePath(QStringLiteral("job.pdf")));
        platform::currentPrinter().device().setPageSize(QPageSize(QPageSize::Letter));
    }

    void init()
    {
        store_ = std::make_unique<TempStore>();
        // Pages drawn twice must come out alike: no time of day in the header.
        clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(),
                                           clsLibrary::programKey() +
                                               QStringLiteral("\\frmPPrev\\Items\\Header"),
                                           QStringLiteral("chkTime"), QStringLiteral("0"));
        caller_ = new Caller();
    }

    void cleanup()
    {
        Forms::unload<frmPPrev>();
        delete caller_;
        testsupport::flushDeferredDeletes();
        store_.reset();
        platform::currentPrinter().device().setPageSize(QPageSize(QPageSize::Letter));
    }

    void zoomSteps_data()
    {
        QTest::addColumn<QString>("step");
        QTest::addColumn<int>("percentage");
        QTest::addColumn<bool>("zoomIn");
        QTest::addColumn<bool>("zoomOut");
        QTest::newRow("200 %") << "200 %" << 200 << false << true;
        QTest::newRow("150 %") << "150 %" << 150 << true << true;
        QTest::newRow("100 %") << "100 %" << 100 << true << true;
        QTest::newRow("75 %") << "75 %" << 75 << true << true;
        QTest::newRow("50 %") << "50 %" << 50 << true << true;
        QTest::newRow("25 %") << "25 %" << 25 << true << false;
        QTest::newRow("Page Width") << "Page Width" << 0 << false << false;
        QTest::newRow("Whole Page") << "Whole Page" << 0 << false << false;
    }

    // Each step by its menu item: the list shows it, only its item is marked, the
    // zoom buttons lead where there is a step to go, and the image has the step's
    // size, which a resize keeps for a percentage and fits anew for the others.
    void zoomSteps()
    {
        QFETCH(QString, step);
        QFETCH(int, percentage);
        QFETCH(bool, zoomIn);
        QFETCH(bool, zoomOut);
        preview(lines(120), [&](frmPPrev& form) {
            const qsizetype index = frmPPrev::zoomSteps().indexOf(step);
            form.zoomItems().at(index)->trigger();
            QCOMPARE(form.CBOPGZOOM->Text(), step);
            for (qsizetype i = 0; i < form.zoomItems().size(); ++i)
                QCOMPARE(form.zoomItems().at(i)->isChecked(), i == index);
            QCOMPARE(form.TBARMAIN->Buttons(QStringLiteral("ZOOM IN"))->isEnabled(), zoomIn);
            QCOMPARE(form.TBARMAIN->Buttons(QStringLiteral("ZOOM OUT"))->isEnabled(), zoomOut);

            for (int resize = 0; resize < 2; ++resize) {
                const auto image = twips(form.IMGPREVIEW);
                const auto window = twips(form.PICWINDOW);
                const float scrollBar = twips(form.SCRVBAR).Width();
                if (percentage > 0) {
                    QVERIFY(samePixel(image.Width(), form.PICSTDPAGE.Width() * percentage / 100));
                    QVERIFY(samePixel(image.Height(), form.PICSTDPAGE.Height() * percentage / 100));
                } else if (step == QLatin1String("Page Width")) {
                    QVERIFY(samePixel(image.Width(), window.Width() - scrollBar - 180));
                    QCOMPARE(image.Left(), 45.0f);
                } else {
                    QVERIFY(samePixel(image.Height(), window.Height() - twips(form.SCRHBAR).Height() - 180));
                    QCOMPARE(image.Top(), 45.0f);
                }
                form.resize(form.size() + QSize(150, 90));
            }
        });
    }

    void zoomInAndOut_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<bool>("byMouse");
        QTest::addColumn<QString>("afterIn");
        QTest::addColumn<QString>("afterOut");
        QTest::newRow("25 %") << "25 %" << false << "50 %"
                              << "25 %";
        QTest::newRow("50 %") << "50 %" << false << "75 %"
                              << "25 %";
        QTest::newRow("75 %") << "75 %" << false << "100 %"
                              << "50 %";
        QTest::newRow("100 %") << "100 %" << false << "150 %"
                               << "75 %";
        QTest::newRow("150 %") << "150 %" << false << "200 %"
                               << "100 %";
        QTest::newRow("200 %") << "200 %" << false << "200 %"
                               << "150 %";
        QTest::newRow("Page Width") << "Page Width" << false << "Page Width"
                                    << "Page Width";
        QTest::newRow("Whole Page") << "Whole Page" << false << "Whole Page"
                                    << "Whole Page";
        QTest::newRow("mouse, 100 %") << "100 %" << true << "150 %"
                                      << "75 %";
        QTest::newRow("mouse, 200 %") << "200 %" << true << "200 %"
                                      << "150 %";
        QTest::newRow("mouse, Whole Page") << "Whole Page" << true << "Whole Page"
                                           << "Whole Page";
    }

    // ZOOMIN and ZOOMOUT, or a left and a right click on the page, from each step;
    // the ends don't wrap and a fitted step stays.
    void zoomInAndOut()
    {
        QFETCH(QString, start);
        QFETCH(bool, byMouse);
        QFETCH(QString, afterIn);
        QFETCH(QString, afterOut);
        preview(lines(10), [&](frmPPrev& form) {
            const auto step = [&](bool in) {
                form.CBOPGZOOM->setText(start);
                if (byMouse)
                    QTest::mouseClick(form.IMGPREVIEW, in ? Qt::LeftButton : Qt::RightButton, {},
                                      QPoint(5, 5));
                else if (in)
                    clsPrinting::instance().ZOOMIN();
                else
                    clsPrinting::instance().ZOOMOUT();
                return form.CBOPGZOOM->Text();
            };
            QCOMPARE(step(true), afterIn);
            QCOMPARE(step(false), afterOut);
        });
    }

    void paging_data()
    {
        // n next, p previous, s start, e end, each by the Go To menu; N P H E the
        // keys PgDn, PgUp, Home, End on the work area; L the last page chosen in
        // the list. A page below 1 counts from the end: 0 is the last.
        QTest::addColumn<QString>("commands");
        QTest::addColumn<int>("expected");
        QTest::addColumn<bool>("back");
        QTest::addColumn<bool>("forward");
        QTest::newRow("open") << "" << 1 << false << true;
        QTest::newRow("next") << "n" << 2 << true << true;
        QTest::newRow("end") << "e" << 0 << true << false;
        QTest::newRow("end, previous") << "ep" << -1 << true << true;
        QTest::newRow("end, start") << "es" << 1 << false << true;
        QTest::newRow("next at the end") << "en" << 0 << true << false;
        QTest::newRow("previous on page 1") << "p" << 1 << false << true;
        QTest::newRow("keys PgDn PgDn PgUp") << "NNP" << 2 << true << true;
        QTest::newRow("keys End Home") << "EH" << 1 << false << true;
        QTest::newRow("key PgUp on page 1") << "P" << 1 << false << true;
        QTest::newRow("list keeps the states") << "L" << 0 << false << true;
    }

    // The page shown follows the commands, the page is drawn anew (page 1 alike
    // each time, any other unlike it), the status bar tells the number, and the
    // commands are on where they lead somewhere.
    void paging()
    {
        QFETCH(QString, commands);
        QFETCH(int, expected);
        QFETCH(bool, back);
        QFETCH(bool, forward);
        preview(lines(300), [&](frmPPrev& form) {
            const int total = clsPrinting::instance().pageTotal();
            QVERIFY2(total >= 3, qPrintable(QString::number(total)));
            QCOMPARE(form.CBOPGNO->ListCount(), total);
            QCOMPARE(form.SBMAIN->panelText(8), QString::number(total));
            const QImage first = form.IMGPREVIEW->Picture();
            for (QChar command : commands) {
                switch (command.unicode()) {
                case 'n': form.MNUVIEWNEXT->trigger(); break;
                case 'p': form.MNUVIEWPREVIOUS->trigger(); break;
                case 's': form.MNUVIEWFIRST->trigger(); break;
                case 'e': form.MNUVIEWLAST->trigger(); break;
                case 'N': QTest::keyClick(form.PICWINDOW, Qt::Key_PageDown); break;
                case 'P': QTest::keyClick(form.PICWINDOW, Qt::Key_PageUp); break;
                case 'H': QTest::keyClick(form.PICWINDOW, Qt::Key_Home); break;
                case 'E': QTest::keyClick(form.PICWINDOW, Qt::Key_End); break;
                case 'L': form.CBOPGNO->setText(QString::number(total)); break;
                }
            }
            const int shown = expected > 0 ? expected : total + expected;
            QCOMPARE(page(form), shown);
            QCOMPARE(form.SBMAIN->panelText(6), QString::number(shown));
            QCOMPARE(form.IMGPREVIEW->Picture() == first, shown == 1);
            QCOMPARE(backEnabled(form), back);
            QCOMPARE(forwardEnabled(form), forward);
        });
    }

    void toolbarDescriptions_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("description");
        QTest::newRow("print") << "PRINT"
                               << "Print the current document.";
        QTest::newRow("next page") << "NEXT PAGE"
                                   << "Show the next page.";
        QTest::newRow("zoom in") << "ZOOM IN"
                                 << "Zoom in to document.";
        QTest::newRow("first page, off on page 1") << "FIRST PAGE"
                                                   << "Show the first page.";
    }

    // The pointer over a button of the bar, on or off, describes its command in the
    // preview's own status bar.
    void toolbarDescriptions()
    {
        QFETCH(QString, key);
        QFETCH(QString, description);
        preview(lines(200), [&](frmPPrev& form) {
            QWidget* button = form.TBARMAIN->widgetForAction(form.TBARMAIN->Buttons(key));
            QTest::mouseMove(button, button->rect().center() - QPoint(2, 0));
            QTest::mouseMove(button, button->rect().center());
            QTRY_COMPARE(form.SBMAIN->panelText(1), description);
        });
    }

    // The description stays while the pointer is anywhere on the bar, also over
    // the right part of the bar, past the designed fixed rectangle.
    void toolbarDescriptionStaysOverTheWholeBar()
    {
        preview(lines(200), [&](frmPPrev& form) {
            checkDescriptionsCoverTheBar(form.TBARMAIN, form.TMR1,
                                         [&form] { return form.SBMAIN->panelText(1); });
        });
    }

    void onePage_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("one line") << "A single line";
        QTest::newRow("empty") << "";
    }

    // A document of one page has every page command off, and the commands change
    // nothing; an empty one still shows its header and footer.
    void onePage()
    {
        QFETCH(QString, text);
        preview(text, [&](frmPPrev& form) {
            QCOMPARE(clsPrinting::instance().pageTotal(), 1);
            QVERIFY(!backEnabled(form));
            QVERIFY(!forwardEnabled(form));
            const QImage shown = form.IMGPREVIEW->Picture();
            clsPrinting& printing = clsPrinting::instance();
            printing.PAGENEXT();
            printing.PAGEEND();
            printing.PAGEPREVIOUS();
            printing.PAGESTART();
            QCOMPARE(page(form), 1);
            QCOMPARE(form.IMGPREVIEW->Picture(), shown);
            QVERIFY(!backEnabled(form));
            QVERIFY(!forwardEnabled(form));
            // The header's rule runs 300 twips above the body.
            const int ruleY = qRound((1440 - 300) / platform::Screen::TwipsPerPixelY());
            const int middle = shown.width() / 2;
            QVERIFY(qGray(shown.pixel(middle, ruleY)) < 128 || qGray(shown.pixel(middle, ruleY - 1)) < 128 ||
                    qGray(shown.pixel(middle, ruleY + 1)) < 128);
        });
    }

    // Past the end the walk stops at the last page that the layout reaches, how
    // far past it is asked, while the status bar shows the number of the list.
    void pagePastTheEnd()
    {
        preview(lines(300), [&](frmPPrev& form) {
            clsPrinting& printing = clsPrinting::instance();
            const QImage first = form.IMGPREVIEW->Picture();
            printing.PAGESEL(int16_t(printing.pageTotal() + 40), &form.PICSTDPAGE);
            const QImage last = form.IMGPREVIEW->Picture();
            QVERIFY(last != first);
            printing.PAGESEL(int16_t(printing.pageTotal() + 20), &form.PICSTDPAGE);
            QCOMPARE(form.IMGPREVIEW->Picture(), last);
            QCOMPARE(form.SBMAIN->panelText(6), QStringLiteral("1"));
        });
    }

    // The surface is smaller than the paper, so its pages hold less than the
    // printer's: the list still reaches the page that ends the text, whatever its
    // length, and a page past it shows that same last page.
    void listReachesTheEnd()
    {
        for (const int count : {60, 120, 180}) {
            preview(lines(count), [&](frmPPrev& form) {
                clsPrinting& printing = clsPrinting::instance();
                printing.PAGESEL(int16_t(printing.pageTotal()), &form.PICSTDPAGE);
                const QImage last = form.IMGPREVIEW->Picture();
                printing.PAGESEL(int16_t(printing.pageTotal() + 1), &form.PICSTDPAGE);
                QVERIFY2(form.IMGPREVIEW->Picture() == last, qPrintable(QString::number(count)));
            });
        }
    }

    // The print engine loads the preview to count pages; a preview that was never
    // shown writes nothing when it goes, not even its placement.
    void unloadedUnseenSavesNothing()
    {
        clsPrinting& printing = clsPrinting::instance();
        caller_->RTF1->setText(lines(80));
        printing.INITIALIZEPATH(&Forms::get<frmPPrev>(), caller_->RTF1);
        printing.GETMARGINS();
        QVERIFY(printing.PAGECOUNT(&Forms::get<frmPPrev>(), 0, 1, 1, 1, 1) >= 1);
        Forms::unload<frmPPrev>();
        QCOMPARE(stored(QStringLiteral("Zoom")), QStringLiteral("(none)"));
        QCOMPARE(stored(QStringLiteral("Toolbar")), QStringLiteral("(none)"));
        const QString placement = clsLibrary::companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Window");
        QCOMPARE(clsLibrary::instance().REGSTRREAD(clsLibrary::currentUserKey(), placement,
                                                   QStringLiteral("Width"), QStringLiteral("(none)")),
                 QStringLiteral("(none)"));
    }

    // Closing with the toolbar hidden stores it so, with the zoom, and the next
    // preview opens that way; hiding the bar gives its room to the work area.
    void settingsRoundTrip()
    {
        preview(lines(20), [&](frmPPrev& form) {
            const float top = twips(form.PICWINDOW).Top();
            const float height = twips(form.PICWINDOW).Height();
            QCOMPARE(top, twips(form.PICTBAR).Height());
            form.MNUVIEWTOOLBAR->trigger();
            QVERIFY(form.PICTBAR->isHidden());
            QVERIFY(!form.MNUVIEWTOOLBAR->isChecked());
            QCOMPARE(twips(form.PICWINDOW).Top(), 0.0f);
            QVERIFY(samePixel(twips(form.PICWINDOW).Height(), height + top));
            form.MNUZOOM75->trigger();
        });
        QCOMPARE(stored(QStringLiteral("Toolbar")), QStringLiteral("False"));
        QCOMPARE(stored(QStringLiteral("Status Bar")), QStringLiteral("True"));
        QCOMPARE(stored(QStringLiteral("Zoom")), QStringLiteral("75 %"));
        preview(lines(20), [&](frmPPrev& form) {
            QVERIFY(form.PICTBAR->isHidden());
            QVERIFY(!form.MNUVIEWTOOLBAR->isChecked());
            QCOMPARE(form.CBOPGZOOM->Text(), QStringLiteral("75 %"));
            QVERIFY(form.MNUZOOM75->isChecked());
            form.MNUVIEWTOOLBAR->trigger();
        });
        QCOMPARE(stored(QStringLiteral("Toolbar")), QStringLiteral("True"));
    }

    void storedZoomThatIsNoStep_data()
    {
        QTest::addColumn<QString>("zoom");
        QTest::newRow("other percentage") << "33 %";
        QTest::newRow("other case") << "page width";
        QTest::newRow("empty") << "";
    }

    // A stored zoom that isn't one of the steps opens the preview at 50 %.
    void storedZoomThatIsNoStep()
    {
        QFETCH(QString, zoom);
        store(QStringLiteral("Zoom"), zoom);
        preview(lines(20), [&](frmPPrev& form) {
            QCOMPARE(form.CBOPGZOOM->Text(), QStringLiteral("50 %"));
            QVERIFY(form.MNUZOOM50->isChecked());
        });
    }

    void arrowKeys_data()
    {
        // A start below 0 counts back from the bar's maximum.
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("expected");
        QTest::newRow("Left from 500 is refused") << int(Qt::Key_Left) << 500 << 500;
        QTest::newRow("Left from 1500") << int(Qt::Key_Left) << 1500 << 500;
        QTest::newRow("Right from 0") << int(Qt::Key_Right) << 0 << 1000;
        QTest::newRow("Right near the end is refused") << int(Qt::Key_Right) << -500 << -500;
        QTest::newRow("Up from 999 is refused") << int(Qt::Key_Up) << 999 << 999;
        QTest::newRow("Down from 0") << int(Qt::Key_Down) << 0 << 1000;
        QTest::newRow("Down to the very end") << int(Qt::Key_Down) << -1000 << 0;
    }

    // The arrow keys move a scroll bar by 1000 and the page with it; a step past
    // either end is refused rather than stopped at the end.
    void arrowKeys()
    {
        QFETCH(int, key);
        QFETCH(int, start);
        QFETCH(int, expected);
        preview(lines(20), [&](frmPPrev& form) {
            form.MNUZOOM200->trigger();
            const bool across = key == Qt::Key_Left || key == Qt::Key_Right;
            QScrollBar* bar = across ? form.SCRHBAR : form.SCRVBAR;
            QVERIFY(bar->isEnabled());
            const int maximum = bar->maximum();
            bar->setValue(start < 0 ? maximum + start : start);
            QTest::keyClick(form.PICWINDOW, Qt::Key(key));
            const int value = expected <= 0 ? maximum + expected : expected;
            QCOMPARE(bar->value(), value);
            const auto image = twips(form.IMGPREVIEW);
            QVERIFY(samePixel(across ? image.Left() : image.Top(), 45.0f - float(value)));
        });
    }

    void paperSizes_data()
    {
        QTest::addColumn<int>("paper");
        QTest::addColumn<QString>("size");
        QTest::newRow("Letter") << int(QPageSize::Letter) << "8.50 x 11.00 inches";
        QTest::newRow("A1") << int(QPageSize::A1) << "23.39 x 33.11 inches";
    }

    // The paper's size in the status bar; a sheet whose height in printer pixels
    // and whose scroll range at 200 % need more than 16 bits still opens, and its
    // scroll bar reaches the bottom of the page.
    void paperSizes()
    {
        QFETCH(int, paper);
        QFETCH(QString, size);
        platform::currentPrinter().device().setPageSize(QPageSize(QPageSize::PageSizeId(paper)));
        preview(lines(20), [&](frmPPrev& form) {
            QCOMPARE(form.SBMAIN->panelText(3), size);
            form.MNUZOOM200->trigger();
            const float overhang = twips(form.IMGPREVIEW).Height() - twips(form.PICWINDOW).Height() + 415;
            QVERIFY(qAbs(form.SCRVBAR->maximum() - overhang) <= 1);
        });
    }

    // Printing from the toolbar asks nothing and writes the job; from the menu it
    // asks first, and Cancel prints nothing. The window stays on its page.
    void printFromTheWindow()
    {
        const QString job = platform::currentPrinter().OutputFileName();
        QFile::remove(job);
        preview(lines(300), [&](frmPPrev& form) {
            form.MNUVIEWNEXT->trigger();
            const int asked = platform::CommonDialog::shownCount();
            form.TBARMAIN->Buttons(QStringLiteral("PRINT"))->trigger();
            QCOMPARE(platform::CommonDialog::shownCount(), asked);
            QVERIFY(QFileInfo(job).size() > 0);
            QFile::remove(job);
            platform::CommonDialog::setNextAnswer([](platform::CommonDialog&) { return false; });
            form.MNUFILEPRINT->trigger();
            QCOMPARE(platform::CommonDialog::shownCount(), asked + 1);
            QVERIFY(!QFile::exists(job));
            QVERIFY(form.isVisible());
            QCOMPARE(page(form), 2);
        });
    }
};

QTEST_MAIN(tst_frmPPrev)
#include "tst_frmPPrev.moc"
