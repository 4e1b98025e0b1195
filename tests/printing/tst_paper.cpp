// Papers on the printer: every paper of the list comes back from the printer as the
// number it was chosen by, papers outside the list keep a number that chooses them
// again, and numbers that name nothing leave the printer as it was.
#include "platform/core/Error.h"
#include "platform/print/Printer.h"
#include "printing/Paper.h"

#include <QApplication>
#include <QPrinter>
#include <QTest>

using printing::paperSize;
using printing::setPaperSize;

namespace {

platform::Printer& printer()
{
    return platform::currentPrinter();
}

QSize sheetPixels()
{
    return {printer().GetDeviceCaps(platform::PHYSICALWIDTH),
            printer().GetDeviceCaps(platform::PHYSICALHEIGHT)};
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
};

void tst_paper::init()
{
    printer().selectPrinter(QString::fromLatin1(platform::Printer::PdfPrinterName));
    setPaperSize(printer(), 1);
    printing::setOrientation(printer(), printing::Portrait);
}

void tst_paper::everyPaperReadsBack_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("number");
    // Places in the list, which the numbers stored by OK refer to: the first, a
    // number of the printer's own range, Banner Letter after Letter, the last.
    QTest::newRow("Letter") << 0 << 1;
    QTest::newRow("Executive") << 4 << 261;
    QTest::newRow("Banner Letter") << 8 << 268;
    QTest::newRow("Envelope #10") << 13 << 20;
    QTest::newRow("Hagaki") << 20 << 262;
    QTest::newRow("User Defined") << 21 << 256;
}

void tst_paper::everyPaperReadsBack()
{
    QFETCH(int, position);
    QFETCH(int, number);
    QCOMPARE(printing::papers().size(), size_t(22));
    const printing::Paper* row = &printing::papers().at(size_t(position));
    QCOMPARE(QByteArray(row->entry), QByteArray(QTest::currentDataTag()));
    QCOMPARE(int(row->number), number);
    setPaperSize(printer(), row->number);
    QCOMPARE(int(paperSize(printer())), number);
    if (number != printing::UserDefinedPaper)
        QCOMPARE(sheetPixels(), row->size.sizePixels(printer().device().resolution()));
}

void tst_paper::papersOutsideTheList_data()
{
    QTest::addColumn<QPageSize>("size");
    QTest::addColumn<int>("number");
    QTest::newRow("A3 by its Windows number") << QPageSize(QPageSize::A3) << 8;
    // Under the toolkit's own name Letter is still Letter, not Banner Letter.
    QTest::newRow("Letter by size") << QPageSize(QPageSize::Letter) << 1;
    // User Defined, and chosen again it keeps the sheet as it is.
    QTest::newRow("size without a number") << QPageSize(QSizeF(5, 7.7), QPageSize::Inch) << 256;
}

void tst_paper::papersOutsideTheList()
{
    QFETCH(QPageSize, size);
    QFETCH(int, number);
    QVERIFY(printer().device().setPageSize(size));
    const QSize sheet = sheetPixels();
    QCOMPARE(int(paperSize(printer())), number);
    if (number != printing::UserDefinedPaper)
        setPaperSize(printer(), 9);
    setPaperSize(printer(), int16_t(number));
    QCOMPARE(sheetPixels(), sheet);
    // The "0" that an OK without a paper stores names none, and leaves the paper.
    QVERIFY_THROWS_EXCEPTION(platform::Error, setPaperSize(printer(), 0));
    QCOMPARE(sheetPixels(), sheet);
}

QTEST_MAIN(tst_paper)
#include "tst_paper.moc"
