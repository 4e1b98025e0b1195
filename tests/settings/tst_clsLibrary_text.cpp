#include "library/clsLibrary.h"
#include "platform/core/Error.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <functional>

namespace {

clsLibrary& lib()
{
    return clsLibrary::instance();
}

// The error number that a call throws, 0 when it returns.
int errorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const platform::Error& error) {
        return error.number();
    }
    return 0;
}

const QString LongText = QString(32768, 'x');                 // one character too many for a 16-bit walk
const QString Camera = QString::fromUtf8("\xF0\x9F\x93\xB7"); // one character in two UTF-16 units

} // namespace

class tst_clsLibrary_text : public QObject {
    Q_OBJECT
private slots:
    void numberFormats_data();
    void numberFormats();
    void textFilters_data();
    void textFilters();
    void piece_data();
    void piece();
    void wordCount_data();
    void wordCount();
    void hexadecimal_data();
    void hexadecimal();
    void currencyLock_data();
    void currencyLock();
    void comboInit();
};

void tst_clsLibrary_text::numberFormats_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("justify");  // TEXTJUSTIFY
    QTest::addColumn<QString>("currency"); // TEXTJUSTIFYCURRENCY
    QTest::addColumn<QString>("fmt");      // CURRENCYFMT
    const auto row = [](const char* name, const char* input, const char* justify, const char* currency,
                        const char* fmt) {
        QTest::newRow(name) << QString(input) << QString(justify) << QString(currency) << QString(fmt);
    };
    row("whole", "1", "1.0", "1.00", "1.00");
    // Halves away from zero on the digits as typed, also where the binary value lies
    // just below the half (2.675, 0.35).
    row("half", "0.25", "0.3", "0.25", "0.25");
    row("binary below half", "2.675", "2.7", "2.68", "2.68");
    row("carry", "9.995", "10.0", "10.00", "10.00");
    row("no negative zero", "-0.001", "0.0", "0.00", "0.00");
    row("blanks, exponent", " 1.5E2 ", "150.0", "150.00", "150.00");
    row("not a number", "abc", "abc", "abc", "abc");
    row("comma mark", "1,5", "1,5", "1,5", "1,5");
    row("empty", "", "", "", "");
    row("beyond a double", "1e999", "", "", "1e999"); // the format step fails
}

void tst_clsLibrary_text::numberFormats()
{
    QFETCH(QString, input);
    QFETCH(QString, justify);
    QFETCH(QString, currency);
    QFETCH(QString, fmt);
    QCOMPARE(lib().TEXTJUSTIFY(input), justify);
    QCOMPARE(lib().TEXTJUSTIFYCURRENCY(input), currency);
    QCOMPARE(lib().CURRENCYFMT(input), fmt);
}

void tst_clsLibrary_text::textFilters_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("expected"); // "<overflow>" for the 16-bit walk's error
    const auto row = [](const char* name, const char* operation, const QString& first, const QString& second,
                        const QString& expected) {
        QTest::newRow(name) << QString(operation) << first << second << expected;
    };
    const QString a31(31, 'a');
    row("caption 32", "GETCAPTION", "&" + a31, "", a31);
    row("caption 33", "GETCAPTION", "&" + a31 + "b&c", "", a31 + "...");
    row("caption surrogates", "GETCAPTION", a31 + Camera + "z", "", a31 + Camera + "...");
    row("charcheck other case", "CHARCHECK", "abc", "B", "true");
    row("charcheck present", "CHARCHECK", "abc", "b", "false");
    row("charcheck surrogates", "CHARCHECK", "x" + Camera, Camera, "false");
    row("address capitals", "HTMLFORMATCHECK", "HTTP://vistarro.example", "", "HTTP://vistarro.example");
    row("address www", "HTMLFORMATCHECK", "www.vistarro.example", "", "http://www.vistarro.example");
    row("address empty", "HTMLFORMATCHECK", "", "", "");
    row("token found", "TOKENLEFT", "a=b=c", "=", "a");
    row("token absent", "TOKENLEFT", "ab", "=", "");
    row("token too long", "TOKENLEFT", LongText, "=", "<overflow>");
}

void tst_clsLibrary_text::textFilters()
{
    QFETCH(QString, operation);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QString, expected);
    QString result;
    const int error = errorOf([&] {
        if (operation == "GETCAPTION")
            result = lib().GETCAPTION(first);
        else if (operation == "CHARCHECK")
            result = lib().CHARCHECK(first, second) ? "true" : "false";
        else if (operation == "HTMLFORMATCHECK")
            result = lib().HTMLFORMATCHECK(first);
        else
            result = lib().TOKENLEFT(first, second);
    });
    if (expected == "<overflow>")
        QCOMPARE(error, platform::err::Overflow);
    else
        QCOMPARE(result, expected);
}

void tst_clsLibrary_text::piece_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("error");
    const auto row = [](const char* name, const QString& text, int number, double expected, int error) {
        QTest::newRow(name) << text << number << expected << error;
    };
    row("second", "1;2;3", 2, 2.0, 0);
    row("past the end", "1;2;3", 4, 0.0, 0);
    row("no separator", "12", 1, 12.0, 0);
    row("last read leniently", "1;2.5 cm", 2, 2.5, 0);
    row("last not a number", "1;cm", 2, 0.0, 0);
    row("inner not a number", "1;cm;3", 2, 0.0, platform::err::TypeMismatch);
    row("inner empty", "1;;3", 2, 0.0, platform::err::TypeMismatch);
    row("too long", LongText, 1, 0.0, platform::err::Overflow);
}

void tst_clsLibrary_text::piece()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(double, expected);
    QFETCH(int, error);
    double result = 0.0;
    QCOMPARE(errorOf([&] { result = lib().PIECE(text, ";", int16_t(number)); }), error);
    QCOMPARE(result, expected);
}

void tst_clsLibrary_text::wordCount_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("words");
    QTest::newRow("divided word") << "sym-\r\nbol" << 1;
    QTest::newRow("line ends") << "one\r\ntwo\nthree" << 3;
    QTest::newRow("blanks only") << "   \r\n  " << 0;
    QTest::newRow("empty") << "" << 0;
}

void tst_clsLibrary_text::wordCount()
{
    QFETCH(QString, text);
    QFETCH(int, words);
    QCOMPARE(lib().WORDCOUNT(text), words);
}

void tst_clsLibrary_text::hexadecimal_data()
{
    QTest::addColumn<bool>("toHex"); // GETHEXVAL, else HEX2STR
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("padded, in order") << true << 0x0A0B0C << "#0C0B0A";
    QTest::newRow("high byte ignored") << true << int(0x80000005) << "#050000";
    QTest::newRow("ff") << false << 255 << "ff";
    QTest::newRow("16-bit signed") << false << -1 << "FFFF";
    QTest::newRow("beyond 16 bits") << false << 0 << "10000";
    QTest::newRow("not hex") << false << 0 << "xyz";
}

void tst_clsLibrary_text::hexadecimal()
{
    QFETCH(bool, toHex);
    QFETCH(int, number);
    QFETCH(QString, text);
    if (toHex)
        QCOMPARE(lib().GETHEXVAL(number), text);
    else
        QCOMPARE(lib().HEX2STR(text), QString::number(number));
}

void tst_clsLibrary_text::currencyLock_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("selected"); // characters selected from the start; -1: cursor at the end
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("passed");
    QTest::newRow("digit") << "1.5" << -1 << int('7') << int('7');
    QTest::newRow("letter") << "1.5" << -1 << int('a') << 0;
    QTest::newRow("second stop") << "1.5" << -1 << 46 << 0;
    QTest::newRow("stop over all") << "1.5" << 3 << 46 << 46;
    QTest::newRow("stop over part") << "1.5" << 2 << 46 << 0;
    QTest::newRow("first stop") << "15" << -1 << 46 << 46;
}

void tst_clsLibrary_text::currencyLock()
{
    QFETCH(QString, text);
    QFETCH(int, selected);
    QFETCH(int, key);
    QFETCH(int, passed);
    QLineEdit field(text);
    if (selected >= 0)
        field.setSelection(0, selected);
    QCOMPARE(lib().TXTCURRENCYLOCK(&field, int16_t(key)), int16_t(passed));
    // The selection stays for the key to replace, the cursor where it was.
    QCOMPARE(field.selectionLength(), qMax(selected, 0));
    QCOMPARE(field.cursorPosition(), selected >= 0 ? selected : int(text.size()));
}

void tst_clsLibrary_text::comboInit()
{
    auto* registered = new QComboBox;
    QComboBox plain;
    lib().COMBOINIT("0", "15", registered, true);
    lib().COMBOINIT("0", "8", &plain, false);
    QCOMPARE(registered->maxVisibleItems(), 15);
    QCOMPARE(plain.maxVisibleItems(), 8);
    // The registration outlives its combo box without harm.
    delete registered;
    lib().COMBOINIT("0", "0", &plain, true);
    QCOMPARE(plain.maxVisibleItems(), 1);
}

QTEST_MAIN(tst_clsLibrary_text)
#include "tst_clsLibrary_text.moc"
