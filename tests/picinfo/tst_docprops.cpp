// The properties dialog for a text document: which tabs each file type shows, and
// the document's figures, its pages laid out on the file printer with the page
// setup's margins.
#include "TempStore.h"

#include "picinfo/frmProps.h"
#include "platform/Printer.h"
#include "platform/RichTextBox.h"
#include "printing/PageSettings.h"
#include "printing/Paper.h"
#include "settings/clsLibrary.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

namespace {

struct Shown {
    QStringList tabs;
    bool documentVisible = false;
    QStringList figures; // path, pages, lines, characters, words
};

Shown openProperties(const QString& type, const QString& path, platform::RichTextBox* document)
{
    Shown shown;
    QTimer::singleShot(0, [&] {
        frmProps& props = Forms::get<frmProps>();
        for (int i = 0; i < props.TABPROPS->count(); ++i)
            shown.tabs << props.TABPROPS->tabText(i);
        shown.documentVisible = props.FRAMDOCUMENT->isVisible();
        shown.figures = {props.TXTDOCPATH->text(), props.TXTDOCPAGES->text(), props.TXTDOCLINES->text(),
                         props.TXTDOCLEN->text(), props.TXTWORDS->text()};
        props.BTNCLOSE->click();
        Forms::unload<frmProps>();
    });
    clsLibrary::instance().GETPROPERTIES(frmProps::load, path, nullptr, type,
                                         document ? document->Text() : QString(), QString(), document);
    return shown;
}

// Paragraphs enough for several Letter pages.
QString longText()
{
    QStringList paragraphs;
    for (int i = 1; i <= 150; ++i)
        paragraphs << QStringLiteral("Paragraph %1 of a report that runs over several pages.").arg(i);
    return paragraphs.join(QLatin1Char('\n'));
}

int pagesWith(const QString& margin, const QString& key)
{
    platform::RichTextBox document;
    document.setText(longText());
    clsLibrary& library = clsLibrary::instance();
    for (int i = 0; i < 4; ++i)
        library.REGSTRWRITE(clsLibrary::currentUserKey(), key, printing::marginName(i), margin);
    return openProperties(QStringLiteral("DOCUMENT"), QStringLiteral("/tmp/report.rtf"), &document)
        .figures.at(1)
        .toInt();
}

} // namespace

class tst_docprops : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void tabsOfEachType_data();
    void tabsOfEachType();
    void figuresOfAKnownText();
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

void tst_docprops::tabsOfEachType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("tabs");
    QTest::addColumn<bool>("documentFigures");
    QTest::newRow("DOCUMENT") << "DOCUMENT" << QStringList{"General", "Document"} << true;
    QTest::newRow("UNTITLED") << "UNTITLED" << QStringList{"Document"} << true;
    QTest::newRow("TEMPLATE") << "TEMPLATE" << QStringList{"General"} << false;
}

void tst_docprops::tabsOfEachType()
{
    QFETCH(QString, type);
    QFETCH(bool, documentFigures);
    TempStore temp;
    platform::RichTextBox document;
    document.setText(QStringLiteral("A short note."));
    const Shown shown = openProperties(type, QStringLiteral("Untitled"), &document);
    QTEST(shown.tabs, "tabs");
    QCOMPARE(shown.documentVisible, type == QLatin1String("UNTITLED"));
    // The figures are there only where the tab is.
    QCOMPARE(shown.figures.at(4), documentFigures ? QStringLiteral("3") : QStringLiteral("0"));
}

void tst_docprops::figuresOfAKnownText()
{
    TempStore temp;
    // The caller's box needn't be on the screen: its lines are counted as it would
    // wrap them at its width.
    platform::RichTextBox document;
    document.resize(2000, 400);
    // Four paragraphs, one of them empty; a word divided at a line end counts once.
    // The clef is one character of two 16-bit units.
    document.setText(QString::fromUtf8("One two three-\nfour five\n\nsix \xF0\x9D\x84\x9E"));
    const Shown shown =
        openProperties(QStringLiteral("DOCUMENT"), QStringLiteral("/tmp/notes.rtf"), &document);
    QCOMPARE(shown.figures,
             (QStringList{"/tmp/notes.rtf", "1", "4", QString::number(document.Text().size() - 1), "6"}));
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
    QFETCH(int, comparedWithInch);
    int inch = 0;
    {
        TempStore temp;
        inch = pagesWith(QStringLiteral("1"), printing::marginsKey());
    }
    QVERIFY(inch > 1);
    TempStore temp;
    const QString key = programKey ? clsLibrary::programKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items")
                                   : printing::marginsKey();
    const int pages = pagesWith(margin, key);
    QCOMPARE(pages < inch ? -1 : pages > inch ? 1 : 0, comparedWithInch);
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    tst_docprops test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_docprops.moc"
