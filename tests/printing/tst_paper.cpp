// Papers and orientation on the printer: every paper of the list comes back from
// the printer as the number it was chosen by, the sheet turns with the orientation,
// and numbers that name no paper leave the printer as it was.
#include "platform/Canvas.h"
#include "platform/Error.h"
#include "platform/Printer.h"
#include "printing/Paper.h"

#include <QApplication>
#include <QPrinter>
#include <QTest>

using printing::paperSize;
using printing::setPaperSize;

namespace {

platform::Printer& pdfPrinter()
{
    platform::Printer& printer = platform::currentPrinter();
    printer.selectPrinter(QString::fromLatin1(platform::Printer::PdfPrinterName));
    return printer;
}

QSize sheetPixels(const platform::Printer& printer)
{
    return {printer.GetDeviceCaps(platform::PHYSICALWIDTH), printer.GetDeviceCaps(platform::PHYSICALHEIGHT)};
}

int invalidValue(const std::function<void()>& step)
{
    try {
        step();
    } catch (const platform::Error& error) {
        return error.number();
    }
    return 0;
}

} // namespace

class tst_paper : public QObject {
    Q_OBJECT

private slots:
    void init();
    void everyPaperReadsBack_data();
    void everyPaperReadsBack();
    void papersOutsideTheList_data();
    void papersOutsideTheList();
    void numbersThatNameNoPaper_data();
    void numbersThatNameNoPaper();
    void userDefinedKeepsTheSheet();
    void landscapeTurnsTheSheet();
};

void tst_paper::init()
{
    platform::Printer& printer = pdfPrinter();
    setPaperSize(printer, 1);
    printing::setOrientation(printer, printing::Portrait);
}

void tst_paper::everyPaperReadsBack_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("number");
    const std::pair<const char*, int> list[] = {{"Letter", 1},
                                                {"A4", 9},
                                                {"Legal", 5},
                                                {"B5", 13},
                                                {"Executive", 261},
                                                {"A5", 11},
                                                {"A6 Card", 264},
                                                {"Index Card", 257},
                                                {"Banner Letter", 268},
                                                {"Banner A4", 269},
                                                {"Postcard", 258},
                                                {"Envelope 6 3/4", 267},
                                                {"Envelope #9", 19},
                                                {"Envelope #10", 20},
                                                {"Envelope DL", 27},
                                                {"Envelope C5", 28},
                                                {"Envelope C6", 31},
                                                {"Envelope B5", 259},
                                                {"Envelope 7 3/4", 260},
                                                {"Baronial", 265},
                                                {"Hagaki", 262},
                                                {"User Defined", 256}};
    for (int i = 0; i < int(std::size(list)); ++i)
        QTest::newRow(list[i].first) << i << list[i].second;
}

// The list's order and numbers are those the stored paper of the last OK refers to.
void tst_paper::everyPaperReadsBack()
{
    QFETCH(int, position);
    QFETCH(int, number);
    const printing::Paper& paper = printing::papers().at(size_t(position));
    QCOMPARE(QString::fromLatin1(paper.entry), QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(int(paper.number), number);

    platform::Printer& printer = platform::currentPrinter();
    setPaperSize(printer, paper.number);
    QCOMPARE(int(paperSize(printer)), number);
    if (number != printing::UserDefinedPaper) {
        const QSize expected = paper.size.sizePixels(printer.device().resolution());
        QCOMPARE(sheetPixels(printer), expected);
    }
}

void tst_paper::papersOutsideTheList_data()
{
    QTest::addColumn<QPageSize>("size");
    QTest::addColumn<int>("number");
    // A standard paper keeps its Windows number, which the list doesn't show, and
    // the number chooses that paper again.
    QTest::newRow("A3") << QPageSize(QPageSize::A3) << 8;
    // Letter under the toolkit's own name is still Letter, not Banner Letter.
    QTest::newRow("Letter by size") << QPageSize(QPageSize::Letter) << 1;
    QTest::newRow("size without a number") << QPageSize(QSizeF(5, 7.7), QPageSize::Inch) << 256;
}

void tst_paper::papersOutsideTheList()
{
    QFETCH(QPageSize, size);
    QFETCH(int, number);
    platform::Printer& printer = platform::currentPrinter();
    QVERIFY(printer.device().setPageSize(size));
    const QSize sheet = sheetPixels(printer);
    QCOMPARE(int(paperSize(printer)), number);
    if (number == printing::UserDefinedPaper)
        return;
    setPaperSize(printer, 9);
    setPaperSize(printer, int16_t(number));
    QCOMPARE(sheetPixels(printer), sheet);
}

void tst_paper::numbersThatNameNoPaper_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("nothing stored yet") << 0;
    QTest::newRow("beyond the drivers' numbers") << 999;
    QTest::newRow("negative") << -1;
}

void tst_paper::numbersThatNameNoPaper()
{
    QFETCH(int, number);
    platform::Printer& printer = platform::currentPrinter();
    setPaperSize(printer, 9);
    QCOMPARE(invalidValue([&] { setPaperSize(printer, int16_t(number)); }),
             platform::err::InvalidPropertyValue);
    QCOMPARE(int(paperSize(printer)), 9);
    QCOMPARE(invalidValue([&] { printing::setOrientation(printer, int16_t(number)); }),
             platform::err::InvalidPropertyValue);
    QCOMPARE(int(printing::orientation(printer)), int(printing::Portrait));
}

void tst_paper::userDefinedKeepsTheSheet()
{
    platform::Printer& printer = platform::currentPrinter();
    setPaperSize(printer, 5);
    const QSize legal = sheetPixels(printer);
    setPaperSize(printer, printing::UserDefinedPaper);
    QCOMPARE(int(paperSize(printer)), int(printing::UserDefinedPaper));
    QCOMPARE(sheetPixels(printer), legal);
}

void tst_paper::landscapeTurnsTheSheet()
{
    platform::Printer& printer = platform::currentPrinter();
    setPaperSize(printer, 1);
    const int dpi = printer.device().resolution();
    QCOMPARE(sheetPixels(printer), QSize(dpi * 17 / 2, dpi * 11));
    printing::setOrientation(printer, printing::Landscape);
    QCOMPARE(int(printing::orientation(printer)), int(printing::Landscape));
    QCOMPARE(sheetPixels(printer), QSize(dpi * 11, dpi * 17 / 2));
    // The paper is still the same paper.
    QCOMPARE(int(paperSize(printer)), 1);
}

QTEST_MAIN(tst_paper)
#include "tst_paper.moc"
