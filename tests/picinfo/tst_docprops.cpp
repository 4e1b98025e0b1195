// The properties dialog for a text document: the tabs of each file type, and the
// document's figures, its pages laid out on the file printer with the page setup's
// margins.
#include "TempStore.h"

#include "library/clsLibrary.h"
#include "picinfo/frmProps.h"
#include "platform/print/Printer.h"
#include "platform/print/RichTextBox.h"
#include "platform/widgets/Form.h"
#include "printing/PageSettings.h"
#include "printing/Paper.h"
#include "printing/frmPPrev.h"

#include <QApplication>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

namespace {

// The tabs, whether the Document tab is on view, and its path, pages, lines,
// characters and words, as the open dialog shows them.
QStringList openProperties(const QString& type, const QString& path, platform::RichTextBox& document)
{
    QStringList shown;
    QTimer::singleShot(0, [&] {
        frmProps& props = Forms::get<frmProps>();
        for (int i = 0; i < props.TABPROPS->count(); ++i)
            shown << props.TABPROPS->tabText(i);
        shown << (props.FRAMDOCUMENT->isVisible() ? "on view" : "hidden");
        for (const QLineEdit* box :
             {props.TXTDOCPATH, props.TXTDOCPAGES, props.TXTDOCLINES, props.TXTDOCLEN, props.TXTWORDS})
            shown << box->text();
        Forms::unload<frmProps>();
    });
    clsLibrary::instance().GETPROPERTIES(frmProps::load, path, nullptr, type, document.Text(), QString(),
                                         &document);
    return shown;
}

// The pages of a long report with all four margins stored as MARGIN under KEY.
int pagesWith(const QString& margin, const QString& key)
{
    QStringList paragraphs;
    for (int i = 1; i <= 150; ++i)
        paragraphs << QStringLiteral("Paragraph %1 of a report that runs over several pages.").arg(i);
    platform::RichTextBox document;
    document.setText(paragraphs.join(QLatin1Char('\n')));
    for (int i = 0; i < 4; ++i)
        clsLibrary::instance().REGSTRWRITE(clsLibrary::currentUserKey(), key, printing::marginName(i),
                                           margin);
    return openProperties(QStringLiteral("DOCUMENT"), QStringLiteral("report.rtf"), document).at(4).toInt();
}

} // namespace

class tst_docprops : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void figuresOfEachType_data();
    void figuresOfEachType();
    void pagesFollowTheStoredMargins_data();
    void pagesFollowTheStoredMargins();
};

void tst_docprops::initTestCase()
{
    platform::Printer& printer = platform::currentPrinter();
    printer.selectPrinter(QString::fromLatin1(platform::Printer::PdfPrinterName));
    printing::setPaperSize(printer, 1);
    printing::setOrientation(printer, printing::Portrait);
}

// The page count lays the document out in the print preview's form, which it
// loads hidden; the test unloads it as the preview's window would.
void tst_docprops::cleanup()
{
    Forms::unload<frmPPrev>();
}

void tst_docprops::figuresOfEachType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("shown");
    // Four paragraphs, one of them empty; a word divided at a line end counts once;
    // the clef is one character of two 16-bit units. The box was never on the
    // screen and still counts its lines.
    QTest::newRow("DOCUMENT") << "DOCUMENT" << QStringList{"General", "Document", "hidden", "notes.rtf",
                                                           "1",       "4",        "31",     "6"};
    QTest::newRow("UNTITLED") << "UNTITLED"
                              << QStringList{"Document", "on view", "notes.rtf", "1", "4", "31", "6"};
    QTest::newRow("TEMPLATE") << "TEMPLATE" << QStringList{"General", "hidden", "0", "0", "0", "0", "0"};
}

void tst_docprops::figuresOfEachType()
{
    QFETCH(QString, type);
    TempStore temp;
    platform::RichTextBox document;
    document.resize(2000, 400);
    document.setText(QString::fromUtf8("One two three-\nfour five\n\nsix \xF0\x9D\x84\x9E"));
    QTEST(openProperties(type, QStringLiteral("notes.rtf"), document), "shown");
}

void tst_docprops::pagesFollowTheStoredMargins_data()
{
    QTest::addColumn<QString>("margin");
    QTest::addColumn<bool>("programKey");
    QTest::addColumn<int>("comparedWithInch"); // -1 fewer pages, 0 the same, 1 more
    // Margins count in whole inches, halves to the even neighbour.
    QTest::newRow("1.4 is an inch") << "1.4" << false << 0;
    QTest::newRow("0.5 is no margin") << "0.5" << false << -1;
    QTest::newRow("3 inches") << "3" << false << 1;
    // The margins are shared by the maker's programs, not this program's own.
    QTest::newRow("under the program's key") << "3" << true << 0;
}

void tst_docprops::pagesFollowTheStoredMargins()
{
    QFETCH(QString, margin);
    QFETCH(bool, programKey);
    int inch = 0;
    {
        TempStore temp;
        inch = pagesWith(QStringLiteral("1"), printing::previewKey());
    }
    QVERIFY(inch > 1);
    TempStore temp;
    const int pages =
        pagesWith(margin, programKey ? clsLibrary::programKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items")
                                     : printing::previewKey());
    QTEST(pages < inch ? -1 : pages > inch ? 1 : 0, "comparedWithInch");
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    tst_docprops test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_docprops.moc"
