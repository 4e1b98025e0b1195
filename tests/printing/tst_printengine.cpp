// The print engine printing to PDF: page counts, page ranges, margins and the
// header and footer on paper, checked in the written file with poppler's tools.
#include "TempStore.h"

#include "library/clsLibrary.h"
#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/print/CommonDialog.h"
#include "platform/print/PictureSurface.h"
#include "platform/print/Printer.h"
#include "platform/print/RichTextBox.h"
#include "printing/clsPrinting.h"
#include "printing/frmPPrev.h"

#include <QApplication>
#include <QPageLayout>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>

using platform::CommonDialog;
using platform::RichTextBox;

namespace {

// The form of a program that prints: a print dialog and a document.
class Caller : public Form {
public:
    Caller() : Form(QStringLiteral("frmCaller"))
    {
        CMD1 = new CommonDialog(QStringLiteral("CMD1"), this);
        document = new RichTextBox(this);
    }
    CommonDialog* CMD1;
    RichTextBox* document;
};

// Letter, 8.5 × 11 inches: 12240 × 15840 twips. With margins of 1 inch the body
// is 12960 twips high, which lines of 240 twips (16 pixels of 1/96 inch) fill
// exactly 54 times.
constexpr int LinePixels = 16;
constexpr int LinesOnLetterPage = 54;

// "Line 1" to "Line COUNT", one paragraph each, every line exactly 240 twips high.
void fillLines(RichTextBox& box, int count)
{
    box.clear();
    QTextCursor cursor(box.document());
    QTextBlockFormat format;
    format.setLineHeight(LinePixels, QTextBlockFormat::FixedHeight);
    format.setTopMargin(0);
    format.setBottomMargin(0);
    for (int line = 1; line <= count; ++line) {
        if (line > 1)
            cursor.insertBlock();
        cursor.setBlockFormat(format);
        cursor.insertText(QStringLiteral("Line %1").arg(line));
    }
}

QString runTool(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(30000) || process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

int pdfPages(const QString& pdf)
{
    const QRegularExpression pages(QStringLiteral("^Pages:\\s+(\\d+)"), QRegularExpression::MultilineOption);
    const auto match = pages.match(runTool(QStringLiteral("pdfinfo"), {pdf}));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

// The text of one page (from 1) of a PDF.
QString pdfPageText(const QString& pdf, int page)
{
    return runTool(QStringLiteral("pdftotext"),
                   {QStringLiteral("-f"), QString::number(page), QStringLiteral("-l"), QString::number(page),
                    QStringLiteral("-layout"), pdf, QStringLiteral("-")});
}

// The left and top edge, in points, of the first word WORD on page 1.
QPointF wordPosition(const QString& pdf, const QString& word)
{
    const QString html = runTool(QStringLiteral("pdftotext"),
                                 {QStringLiteral("-bbox"), QStringLiteral("-f"), QStringLiteral("1"),
                                  QStringLiteral("-l"), QStringLiteral("1"), pdf, QStringLiteral("-")});
    const QRegularExpression box(QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>%1</word>")
                                     .arg(QRegularExpression::escape(word)));
    const auto match = box.match(html);
    return match.hasMatch() ? QPointF(match.captured(1).toDouble(), match.captured(2).toDouble())
                            : QPointF(-1, -1);
}

void storeMargins(double inches)
{
    for (int number = 0; number < 4; ++number)
        clsLibrary::instance().REGSTRWRITE(
            clsLibrary::currentUserKey(),
            clsLibrary::companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items"),
            QStringLiteral("Page Margin %1").arg(number), QString::number(inches));
}

} // namespace

class tst_PrintEngine : public QObject {
    Q_OBJECT

private slots:
    // A page bitmap that finds no memory (here: wider than an image may be)
    // fails as out of memory and keeps the page it had, rather than becoming a
    // surface that shows nothing.
    void aPageTooLargeKeepsThePage()
    {
        platform::PictureSurface page;
        page.setWidth(1440);
        page.setHeight(1440);
        page.Cls();
        const QImage before = page.Image();
        QVERIFY(!before.isNull());
        try {
            page.setWidth(1.44e10f);
            QFAIL("a page of 10 million inches was made");
        } catch (const platform::Error& error) {
            QCOMPARE(error.number(), platform::err::OutOfMemory);
        }
        QCOMPARE(page.Width(), 1440.0f);
        QCOMPARE(page.Image(), before);
    }

    void init();
    void cleanup();

    void pageCount_data();
    void pageCount();
    void emptyDocumentPrintsHeaderAndFooter();
    void marginsOnPaperAreWholeInches();
    void selectionIsTheWholeJob();
    void pageRangeIsNumberedFromOne();
    void cancelledDialogPrintsNothing();
    void pictureTallerThanThePageStandsAlone();
    void longTableBreaksBetweenRows();
    void everyWordOnceInTheText_data();
    void everyWordOnceInTheText();
    void drawRectangleMeasuresFromThePrintableArea();

private:
    void printAll(RichTextBox* box);

    std::unique_ptr<TempStore> store_;
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Caller> caller_;
    QString pdf_;
};

void tst_PrintEngine::init()
{
    store_ = std::make_unique<TempStore>();
    folder_ = std::make_unique<QTemporaryDir>();
    pdf_ = folder_->filePath(QStringLiteral("job.pdf"));
    platform::Printer& printer = platform::currentPrinter();
    printer.selectPrinter(QString::fromLatin1(platform::Printer::PdfPrinterName));
    printer.setOutputFileName(pdf_);
    printer.device().setPageLayout(
        QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    caller_ = std::make_unique<Caller>();
}

void tst_PrintEngine::cleanup()
{
    caller_.reset();
    Forms::unload<frmPPrev>();
    store_.reset();
}

void tst_PrintEngine::printAll(RichTextBox* box)
{
    clsPrinting::instance().PRINTDOCUMENT(caller_.get(), box, true);
}

void tst_PrintEngine::pageCount_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("pages");
    QTest::newRow("empty") << 0 << 1;
    // The last line ends exactly on the bottom margin: no second page.
    QTest::newRow("exactly one page") << LinesOnLetterPage << 1;
    QTest::newRow("one line more") << LinesOnLetterPage + 1 << 2;
    QTest::newRow("five pages") << LinesOnLetterPage * 5 << 5;
}

void tst_PrintEngine::pageCount()
{
    QFETCH(int, lines);
    QFETCH(int, pages);
    fillLines(*caller_->document, lines);
    clsPrinting& printing = clsPrinting::instance();
    printing.INITIALIZEPATH(caller_.get(), caller_->document);
    printing.GETMARGINS();
    QCOMPARE(printing.PAGECOUNT(caller_.get(), 0, 1, 1, 1, 1), pages);
    if (lines > 0) {
        // The print dialog offers exactly those pages.
        QCOMPARE(caller_->CMD1->Max, pages);
        QCOMPARE(caller_->CMD1->ToPage, pages);
    }

    printAll(caller_->document);
    QCOMPARE(pdfPages(pdf_), pages);
    if (lines > 0) {
        QVERIFY(pdfPageText(pdf_, 1).contains(QStringLiteral("Line 1\n")));
        QVERIFY(pdfPageText(pdf_, pages).contains(QStringLiteral("Line %1\n").arg(lines)));
    }
}

void tst_PrintEngine::emptyDocumentPrintsHeaderAndFooter()
{
    // No settings stored at all: every element with its default text.
    printAll(caller_->document);
    QCOMPARE(pdfPages(pdf_), 1);
    const QString page = pdfPageText(pdf_, 1);
    QVERIFY2(page.contains(QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"))), qPrintable(page));
    QVERIFY(page.contains(QRegularExpression(QStringLiteral("\\d{1,2}:\\d\\d:\\d\\d"))));
    QVERIFY(page.contains(platform::App::Title() + QStringLiteral(" Report.")));
    QVERIFY2(page.contains(QRegularExpression(QStringLiteral("\\s1\\s+Untitled"))), qPrintable(page));
}

void tst_PrintEngine::marginsOnPaperAreWholeInches()
{
    // 1.5 inches: the body stands on 2-inch margins (halves go to the even
    // number), the header on the fraction, its text 700 twips above 2160.
    storeMargins(1.5);
    fillLines(*caller_->document, 3);
    printAll(caller_->document);
    const QPointF body = wordPosition(pdf_, QStringLiteral("Line"));
    QVERIFY2(qAbs(body.x() - 144.0) < 1.0, qPrintable(QString::number(body.x())));
    QVERIFY2(body.y() > 143.0 && body.y() < 150.0, qPrintable(QString::number(body.y())));
    const QPointF date = wordPosition(pdf_, QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
    QVERIFY2(qAbs(date.x() - (2160 + 200) / 20.0) < 1.0, qPrintable(QString::number(date.x())));
    QVERIFY2(date.y() > (2160 - 700) / 20.0 - 1 && date.y() < (2160 - 700) / 20.0 + 6,
             qPrintable(QString::number(date.y())));
}

void tst_PrintEngine::selectionIsTheWholeJob()
{
    fillLines(*caller_->document, LinesOnLetterPage * 3);
    RichTextBox& box = *caller_->document;
    const QTextBlock first = box.document()->findBlockByNumber(LinesOnLetterPage * 2);
    box.setSelStart(first.position());
    box.setSelLength(box.document()->findBlockByNumber(LinesOnLetterPage * 2 + 2).position() -
                     first.position());
    printAll(&box);
    QCOMPARE(caller_->CMD1->Flags, 0x100111);
    QCOMPARE(pdfPages(pdf_), 1);
    const QString page = pdfPageText(pdf_, 1);
    QVERIFY(page.contains(QStringLiteral("Line %1\n").arg(LinesOnLetterPage * 2 + 1)));
    QVERIFY(!page.contains(QStringLiteral("Line 1\n")));
}

void tst_PrintEngine::pageRangeIsNumberedFromOne()
{
    fillLines(*caller_->document, LinesOnLetterPage * 5);
    CommonDialog::setNextAnswer([](CommonDialog& dialog) {
        dialog.FromPage = 2;
        dialog.ToPage = 2;
        return true;
    });
    clsPrinting::instance().PRINTDOCUMENT(caller_.get(), caller_->document, false);
    QCOMPARE(pdfPages(pdf_), 1);
    const QString page = pdfPageText(pdf_, 1);
    QVERIFY(page.contains(QStringLiteral("Line %1\n").arg(LinesOnLetterPage * 2)));
    QVERIFY(!page.contains(QStringLiteral("Line %1\n").arg(LinesOnLetterPage * 2 + 1)));
    QVERIFY2(page.contains(QRegularExpression(QStringLiteral("\\s1\\s+Untitled"))), qPrintable(page));
    // The range printed is what RTF3 holds; the preview still pages the whole.
    const QString printed = Forms::get<frmPPrev>().RTF3->Text();
    QVERIFY(printed.startsWith(QStringLiteral("Line %1\n").arg(LinesOnLetterPage + 1)));
    QCOMPARE(printed.split(QLatin1Char('\n'), Qt::SkipEmptyParts).size(), LinesOnLetterPage);
    QCOMPARE(TEXTLEN, int(Forms::get<frmPPrev>().RTF2->Text().size()));
}

void tst_PrintEngine::cancelledDialogPrintsNothing()
{
    fillLines(*caller_->document, 10);
    const int shown = CommonDialog::shownCount();
    CommonDialog::setNextAnswer([](CommonDialog&) { return false; });
    clsPrinting::instance().PRINTDOCUMENT(caller_.get(), caller_->document, false);
    QCOMPARE(CommonDialog::shownCount(), shown + 1);
    // The dialog was to open centred on the screen.
    QVERIFY(CommonDialog::lastCentred());
    QVERIFY(!QFile::exists(pdf_));
    QVERIFY(!platform::currentPrinter().documentOpen());
}

void tst_PrintEngine::pictureTallerThanThePageStandsAlone()
{
    // A picture taller than the page between two lines: it gets a page of its
    // own, cut at the bottom, and the count still ends. The picture is found
    // beside the document, where its relative name points.
    RichTextBox& box = *caller_->document;
    QImage tall(100, 3000, QImage::Format_RGB32);
    tall.fill(Qt::darkBlue);
    QVERIFY(tall.save(folder_->filePath(QStringLiteral("tall.png"))));
    box.setHtml(QStringLiteral("<p>Before</p><p><img src=\"tall.png\"></p><p>After</p>"));
    box.document()->setBaseUrl(QUrl::fromLocalFile(folder_->filePath(QStringLiteral("doc.html"))));
    printAll(&box);
    QCOMPARE(pdfPages(pdf_), 3);
    QVERIFY(pdfPageText(pdf_, 1).contains(QStringLiteral("Before")));
    QVERIFY(pdfPageText(pdf_, 3).contains(QStringLiteral("After")));
}

void tst_PrintEngine::longTableBreaksBetweenRows()
{
    // A table longer than a page goes on over several pages, every row once.
    QString html = QStringLiteral("<table border=\"1\">");
    for (int row = 1; row <= 150; ++row)
        html += QStringLiteral("<tr><td>Row%1</td><td>Cell%1</td></tr>").arg(row);
    caller_->document->setHtml(html + QStringLiteral("</table>"));
    printAll(caller_->document);
    const int pages = pdfPages(pdf_);
    QVERIFY(pages > 1);
    QString all;
    for (int page = 1; page <= pages; ++page)
        all += pdfPageText(pdf_, page);
    for (int row = 1; row <= 150; ++row)
        QCOMPARE(all.count(QRegularExpression(QStringLiteral("\\bRow%1\\b").arg(row))), 1);
}

void tst_PrintEngine::everyWordOnceInTheText_data()
{
    // Words unique in the document ("w12x3"), so each can be counted in the text
    // layer of the PDF, which a search or a copy of the printed file reads.
    QTest::addColumn<bool>("html");
    QTest::addColumn<QString>("text");
    QString plain;
    for (int line = 1; line <= 200; ++line)
        plain += QStringLiteral("w%1x1 w%1x2 w%1x3\n").arg(line);
    QTest::newRow("plain text of four pages") << false << plain;

    QString html;
    for (int paragraph = 1; paragraph <= 30; ++paragraph) {
        html += QStringLiteral("<p>");
        // Long enough to wrap over several lines.
        for (int word = 1; word <= 40; ++word)
            html += QStringLiteral("p%1x%2 ").arg(paragraph).arg(word);
        html += QStringLiteral("</p>");
        if (paragraph == 15) {
            html += QStringLiteral("<table border=\"1\">");
            for (int row = 1; row <= 40; ++row)
                html += QStringLiteral("<tr><td>t%1x1</td><td>t%1x2 t%1x3</td></tr>").arg(row);
            html += QStringLiteral("</table>");
        }
    }
    QTest::newRow("paragraphs and a table") << true << html;
}

// Each page draws its own lines only: a line of the page before, clipped out of
// sight, would still be in the file's text and be found twice.
void tst_PrintEngine::everyWordOnceInTheText()
{
    QFETCH(bool, html);
    QFETCH(QString, text);
    if (html)
        caller_->document->setHtml(text);
    else
        caller_->document->setPlainText(text);
    printAll(caller_->document);
    QVERIFY(pdfPages(pdf_) > 2);
    const QString printed = runTool(QStringLiteral("pdftotext"), {pdf_, QStringLiteral("-")});
    const QRegularExpression whitespace(QStringLiteral("\\s+"));
    QMap<QString, int> counts;
    for (const QString& word : printed.split(whitespace, Qt::SkipEmptyParts))
        ++counts[word];
    const QStringList words = caller_->document->toPlainText().split(whitespace, Qt::SkipEmptyParts);
    QVERIFY(words.size() > 500);
    for (const QString& word : words)
        QVERIFY2(counts.value(word) == 1,
                 qPrintable(QStringLiteral("%1 found %2 times").arg(word).arg(counts.value(word))));
}

void tst_PrintEngine::drawRectangleMeasuresFromThePrintableArea()
{
    // An unprintable edge of 360 twips (18 points) on each side moves the body's
    // rectangle up and left by that much.
    platform::currentPrinter().device().setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Point);
    fillLines(*caller_->document, 1);
    clsPrinting& printing = clsPrinting::instance();
    printing.INITIALIZEPATH(caller_.get(), caller_->document);
    printing.PAGECOUNT(caller_.get(), 0, 1, 1, 1, 1);
    const platform::RECT& rect = printing.drawRect();
    QCOMPARE(QRect(QPoint(rect.left, rect.top), QPoint(rect.right, rect.bottom)),
             QRect(QPoint(1080, 1080), QPoint(10440, 14040)));
    QCOMPARE(printing.pageRect().right, 12240 - 720);
}

QTEST_MAIN(tst_PrintEngine)
#include "tst_printengine.moc"
