// The page setup on the file printer: the miniature's arithmetic for the papers
// and margins a user meets, what OK stores and Cancel doesn't, when OK can be
// pressed, the header and footer switches, and what is kept for the next opening.
#include "FormSupport.h"
#include "Stored.h"
#include "TempStore.h"

#include "library/clsLibrary.h"
#include "platform/print/Printer.h"
#include "platform/widgets/Twips.h"
#include "presentation/SPIN.h"
#include "printing/PageSettings.h"
#include "printing/Paper.h"
#include "printing/frmPSetup.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <array>

namespace {

platform::Printer& printer()
{
    return platform::currentPrinter();
}

frmPSetup& loadSetup()
{
    return Forms::get<frmPSetup>();
}

void choosePaper(frmPSetup& setup, const QString& entry)
{
    const int index = setup.CBOPAPER->findText(entry);
    QVERIFY(index >= 0);
    setup.CBOPAPER->setCurrentIndex(index);
}

void setMargins(frmPSetup& setup, const QStringList& margins)
{
    const std::array boxes = {setup.UDNLEFT, setup.UDNRIGHT, setup.UDNTOP, setup.UDNBOTTOM};
    for (size_t i = 0; i < boxes.size(); ++i)
        boxes[i]->setText(margins.at(qsizetype(i)));
}

QRectF placeOf(QWidget* control)
{
    const platform::Twips at = platform::twips(control);
    return {at.Left(), at.Top(), at.Width(), at.Height()};
}

// Twips are kept as 32-bit floats: a hundredth of a twip is close enough.
bool near(const QRectF& actual, const QRectF& expected)
{
    const auto close = [](double a, double b) { return qAbs(a - b) < 0.01; };
    return close(actual.left(), expected.left()) && close(actual.top(), expected.top()) &&
           close(actual.width(), expected.width()) && close(actual.height(), expected.height());
}

using testsupport::stored;

} // namespace

class tst_frmPSetup : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void miniature_data();
    void miniature();
    void okStoresWhatTheDialogShows();
    void cancelStoresNothing();
    void defaultsRedrawOnce();
    void whatEnablesOk_data();
    void whatEnablesOk();
    void partSwitches();
    void nextOpeningKeepsTheLastOk();
    void paperOutsideTheList();
    void headerFooterService();
    void everyControlHasRoomOnItsTab();
};

void tst_frmPSetup::init()
{
    PSETUPORIENT.clear();
    PSETUPPAPER.clear();
    PSETUPPRINTER.clear();
    printer().selectPrinter(QString::fromLatin1(platform::Printer::PdfPrinterName));
    printing::setPaperSize(printer(), 1);
    printing::setOrientation(printer(), printing::Portrait);
}

void tst_frmPSetup::cleanup()
{
    testsupport::unloadForms<frmPSetup>();
}

void tst_frmPSetup::miniature_data()
{
    QTest::addColumn<QString>("paper");
    QTest::addColumn<bool>("landscape");
    QTest::addColumn<QStringList>("margins"); // left, right, top, bottom
    QTest::addColumn<QRectF>("sheet");
    QTest::addColumn<QRectF>("area");
    QTest::addColumn<QString>("width");
    QTest::addColumn<QString>("height");

    // Letter portrait is 9 by 12 in whole inches (8.5 + 0.5 rounds up, 11.0 + 0.5
    // to the even 12): the long side 2635 twips, the short one 2635 / 12 * 9.
    const QRectF portrait(329.5, 100, 1976, 2635);
    const QRectF landscape(100, 329.5, 2635, 1976);
    const QStringList inch = {"1", "1", "1", "1"};
    // An inch is a ninth of the sheet across and a twelfth down.
    const QRectF portraitArea(1976.0 / 9 - 15, 2635.0 / 12 - 15, 1976 - 2 * 1976.0 / 9,
                              2635 - 2 * 2635.0 / 12);
    const QRectF landscapeArea(2635.0 / 12 - 15, 1976.0 / 9 - 15, 2635 - 2 * 2635.0 / 12,
                               1976 - 2 * 1976.0 / 9);
    QTest::newRow("Letter portrait") << "Letter" << false << inch << portrait << portraitArea
                                     << "Width: 8.50\""
                                     << "Height: 11.00\"";
    QTest::newRow("Letter landscape")
        << "Letter" << true << inch << landscape << landscapeArea << "Width: 11.00\""
        << "Height: 8.50\"";
    // A4 rounds to the same proportions as Letter. Its sheet is 595 by 842 points,
    // as the printer's page description has it: 8.26 by 11.69 inches.
    QTest::newRow("A4 portrait") << "A4" << false << inch << portrait << portraitArea << "Width: 8.26\""
                                 << "Height: 11.69\"";
    QTest::newRow("A4 landscape") << "A4" << true << inch << landscape << landscapeArea << "Width: 11.69\""
                                  << "Height: 8.26\"";
    // Legal's 14.0 inches give 14, a half rounding to the even neighbour.
    QTest::newRow("Legal portrait") << "Legal" << false << inch << QRectF(470.5, 100, 1694, 2635)
                                    << QRectF(1694.0 / 9 - 15, 2635.0 / 14 - 15, 1694 - 2 * 1694.0 / 9,
                                              2635 - 2 * 2635.0 / 14)
                                    << "Width: 8.50\""
                                    << "Height: 14.00\"";
    // A margin text counts as far as it reads as a number.
    QTest::newRow("margins of 0 or no number") << "Letter" << false << QStringList{"0", "abc", "", "0.0"}
                                               << portrait << QRectF(-15, -15, 1976, 2635) << "Width: 8.50\""
                                               << "Height: 11.00\"";
    // No room across: the area has no width and stays where the last drawing with
    // room put it, the left margin of 5 inches beside a right one of 1.
    QTest::newRow("margins wider than the sheet")
        << "Letter" << false << QStringList{"5", "4.5", "1", "1"} << portrait
        << QRectF(1976.0 * 5 / 9 - 15, portraitArea.top(), 0, portraitArea.height()) << "Width: 8.50\""
        << "Height: 11.00\"";
}

void tst_frmPSetup::miniature()
{
    QFETCH(QString, paper);
    QFETCH(bool, landscape);
    QFETCH(QStringList, margins);
    QFETCH(QRectF, sheet);
    QFETCH(QRectF, area);

    TempStore temp;
    frmPSetup& setup = loadSetup();
    choosePaper(setup, paper);
    (landscape ? setup.OPTORIENTLAND : setup.OPTORIENTPORT)->click();
    setMargins(setup, margins);

    QVERIFY2(near(placeOf(setup.PICPAPER), sheet), qPrintable(QDebug::toString(placeOf(setup.PICPAPER))));
    QVERIFY2(near(placeOf(setup.SHPAREA), area), qPrintable(QDebug::toString(placeOf(setup.SHPAREA))));
    QVERIFY(near(placeOf(setup.PICSHADOW), sheet.translated(60, 60)));
    QTEST(setup.LBLWIDTH->text(), "width");
    QTEST(setup.LBLHEIGHT->text(), "height");
    // Any margin can be stored.
    QVERIFY(setup.BTNOK->isEnabled());
    // The engine goes on measuring the printer in twips.
    QCOMPARE(printer().ScaleMode(), int(platform::ScaleTwips));
}

void tst_frmPSetup::okStoresWhatTheDialogShows()
{
    TempStore temp;
    frmPSetup& setup = loadSetup();
    choosePaper(setup, QStringLiteral("A5"));
    setup.OPTORIENTLAND->click();
    setup.UDNLEFT->setText(QStringLiteral("1.5"));
    setup.UDNBOTTOM->setText(QStringLiteral("0.25"));
    setup.TXTHEADTITLE->setText(QStringLiteral("Quarterly"));
    setup.CHKFOOTPGNO->click();
    // A part switched off keeps its boxes' values, and OK stores them.
    setup.CHKHEADER->click();
    setup.BTNOK->click();

    QVERIFY(!Forms::isLoaded<frmPSetup>());
    const QString owner = clsLibrary::instance().GETCOMPANYNAME();
    const std::pair<QString, QStringList> expected[] = {
        {printing::marginsKey(),
         {"Page Margin 0=1.5", "Page Margin 1=1.0", "Page Margin 2=1.0", "Page Margin 3=0.25"}},
        {printing::headerKey(),
         {"Checked=0", "chkTitle=1", "chkHLine=1", "chkDate=1", "chkTime=1", "txtTitle=Quarterly"}},
        {printing::footerKey(),
         {"Checked=1", "chkPgNo=0", "chkFLine=1", "chkField1=1", "chkField2=1", "txtField2=Untitled",
          "txtField1=" + owner}}};
    for (const auto& [key, values] : expected) {
        for (const QString& value : values)
            QCOMPARE(stored(key, value.section(QLatin1Char('='), 0, 0)), value.section(QLatin1Char('='), 1));
    }
    QCOMPARE(PSETUPPAPER, QStringLiteral("11"));
    QCOMPARE(PSETUPORIENT, QStringLiteral("2"));
    QCOMPARE(PSETUPPRINTER, QString::fromLatin1(platform::Printer::PdfPrinterName));
    QCOMPARE(int(printing::paperSize(printer())), 11);
    QCOMPARE(int(printing::orientation(printer())), int(printing::Landscape));
}

// The printer keeps what was chosen until the next opening; the store stays as it
// was: here, not even created.
void tst_frmPSetup::cancelStoresNothing()
{
    TempStore temp;
    frmPSetup& setup = loadSetup();
    choosePaper(setup, QStringLiteral("Legal"));
    setup.OPTORIENTLAND->click();
    setup.BTNDEFAULTS->click();
    setup.BTNDEFAULTSHF->click();
    setup.CHKFOOTER->click();
    setup.BTNCANCEL->click();

    QVERIFY(!Forms::isLoaded<frmPSetup>());
    QVERIFY(!QFile::exists(temp.databasePath()));
    QVERIFY(PSETUPPAPER.isEmpty());
    QCOMPARE(PSETUPORIENT, QStringLiteral("1"));
    QCOMPARE(int(printing::paperSize(printer())), 5);
    QCOMPARE(int(printing::orientation(printer())), int(printing::Landscape));
}

void tst_frmPSetup::defaultsRedrawOnce()
{
    TempStore temp;
    frmPSetup& setup = loadSetup();
    setMargins(setup, {"2", "0", "3.5", "0.5"});
    QSignalSpy drawn(&setup, &frmPSetup::pageDrawn);
    setup.BTNDEFAULTS->click();

    QCOMPARE(drawn.count(), 1);
    for (const zuv::SPIN* margin : {setup.UDNLEFT, setup.UDNRIGHT, setup.UDNTOP, setup.UDNBOTTOM})
        QCOMPARE(margin->text(), QStringLiteral("1.0"));
}

void tst_frmPSetup::whatEnablesOk_data()
{
    QTest::addColumn<std::function<void(frmPSetup&)>>("change");
    QTest::addColumn<bool>("enabled");
    using Change = std::function<void(frmPSetup&)>;
    QTest::newRow("the other tab") << Change([](frmPSetup& s) { s.TABSTRIP1->setCurrentIndex(1); }) << false;
    QTest::newRow("second footer field")
        << Change([](frmPSetup& s) { s.TXTFOOTFIELD2->setText("x"); }) << false;
    QTest::newRow("title") << Change([](frmPSetup& s) { s.TXTHEADTITLE->setText("Draft"); }) << true;
    QTest::newRow("printer") << Change([](frmPSetup& s) {
        s.CBOPRINTERS->activated(s.CBOPRINTERS->findText(platform::Printer::PdfPrinterName));
    }) << true;
}

void tst_frmPSetup::whatEnablesOk()
{
    QFETCH(std::function<void(frmPSetup&)>, change);
    TempStore temp;
    frmPSetup& setup = loadSetup();
    QVERIFY(!setup.BTNOK->isEnabled());
    change(setup);
    QTEST(setup.BTNOK->isEnabled(), "enabled");
}

// A part stored off is disabled and its picture greyed from the start, its boxes
// keeping their values; the other part is left alone, and switching on gives all
// back.
void tst_frmPSetup::partSwitches()
{
    TempStore temp;
    const QString footer = printing::footerKey();
    for (const char* name : {"Checked", "chkField2", "chkFLine"})
        clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), footer, name, QStringLiteral("0"));
    frmPSetup& setup = loadSetup();
    const QColor face = QApplication::palette(setup.PICFOOT).color(QPalette::Button);
    const QList<QWidget*> ruled = {setup.CHKFOOTFIELD1, setup.CHKFOOTFIELD2, setup.CHKFOOTPGNO,
                                   setup.CHKFOOTLINE,   setup.TXTFOOTFIELD1, setup.TXTFOOTFIELD2};
    for (const QWidget* control : ruled)
        QVERIFY(!control->isEnabled());
    QVERIFY(!setup.CHKFOOTFIELD2->isChecked() && setup.CHKFOOTFIELD1->isChecked());
    QVERIFY(!setup.LNFOOTLINE->isVisibleTo(setup.PICFOOT) && setup.TXTFOOTPGNO->isVisibleTo(setup.PICFOOT));
    QCOMPARE(setup.PICFOOT->palette().color(QPalette::Window), face);
    QVERIFY(setup.CHKHEADTITLE->isEnabled() && setup.TXTHEADTITLE->isEnabled());

    setup.CHKFOOTER->click();
    for (const QWidget* control : ruled)
        QVERIFY(control->isEnabled());
    QVERIFY(setup.PICFOOT->palette().color(QPalette::Window) != face);
}

// OK's orientation and paper are given to the printer again at the next opening,
// whatever happened to the printer in between.
void tst_frmPSetup::nextOpeningKeepsTheLastOk()
{
    TempStore temp;
    {
        frmPSetup& setup = loadSetup();
        choosePaper(setup, QStringLiteral("Executive"));
        setup.OPTORIENTLAND->click();
        setup.BTNOK->click();
    }
    cleanup();
    printing::setPaperSize(printer(), 9);
    printing::setOrientation(printer(), printing::Portrait);

    frmPSetup& setup = loadSetup();
    QVERIFY(setup.OPTORIENTLAND->isChecked());
    QCOMPARE(setup.CBOPAPER->currentText(), QStringLiteral("Executive"));
    QCOMPARE(int(printing::paperSize(printer())), 261);
    QCOMPARE(int(printing::orientation(printer())), int(printing::Landscape));
}

// A paper that isn't in the list: nothing is chosen, OK stores "0" as the paper,
// and the printer keeps its sheet now and at the next opening.
void tst_frmPSetup::paperOutsideTheList()
{
    TempStore temp;
    QVERIFY(printer().device().setPageSize(QPageSize(QPageSize::A3)));
    {
        frmPSetup& setup = loadSetup();
        QCOMPARE(setup.CBOPAPER->currentIndex(), -1);
        QCOMPARE(setup.LBLHEIGHT->text(), QStringLiteral("Height: 16.54\""));
        setup.UDNLEFT->setText(QStringLiteral("2"));
        setup.BTNOK->click();
    }
    QCOMPARE(PSETUPPAPER, QStringLiteral("0"));
    QCOMPARE(int(printing::paperSize(printer())), 8);
    // The "0" chooses nothing at the next opening.
    cleanup();
    loadSetup();
    QCOMPARE(int(printing::paperSize(printer())), 8);
}

// The service opens the dialog modally on the second tab, its first tab's frame hidden.
void tst_frmPSetup::headerFooterService()
{
    TempStore temp;
    bool pageShown = true;
    bool headerFooterShown = false;
    bool modal = false;
    QTimer::singleShot(0, [&] {
        frmPSetup& setup = Forms::get<frmPSetup>();
        pageShown = setup.FRAMPAGE->isVisible();
        headerFooterShown = setup.FRAMHEADERFOOTER->isVisible();
        modal = setup.isModal();
        setup.BTNCANCEL->click();
    });
    clsLibrary::instance().PAGESETUPHEADFOOTSHOW();
    QVERIFY(modal && headerFooterShown && !pageShown);
    QVERIFY(!Forms::isLoaded<frmPSetup>());
}

// At the dialog's design size each tab holds its controls side by side: none
// paints over another (the miniature's labels stood over its picture) and none
// reaches out of the tab.
void tst_frmPSetup::everyControlHasRoomOnItsTab()
{
    TempStore temp;
    frmPSetup& setup = loadSetup();
    setup.show();
    QVERIFY(QTest::qWaitForWindowExposed(&setup));
    for (QWidget* tab : {setup.FRAMPAGE, setup.FRAMHEADERFOOTER}) {
        setup.TABSTRIP1->setCurrentIndex(tab == setup.FRAMPAGE ? 0 : 1);
        QTRY_VERIFY(tab->isVisible());
        const QList<QWidget*> controls = tab->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        const auto name = [](const QWidget* control) {
            return control->objectName() + QLatin1Char(' ') +
                   QLatin1String(control->metaObject()->className());
        };
        for (QWidget* control : controls) {
            if (!control->isVisibleTo(tab))
                continue;
            QVERIFY2(tab->rect().contains(control->geometry()), qPrintable(name(control)));
            for (QWidget* other : controls)
                QVERIFY2(other == control || !other->isVisibleTo(tab) ||
                             !other->geometry().intersects(control->geometry()),
                         qPrintable(name(control) + QStringLiteral(" and ") + name(other)));
        }
    }
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    tst_frmPSetup test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frmPSetup.moc"
