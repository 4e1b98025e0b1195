#include "platform/core/Conversions.h"
#include "platform/core/Error.h"

#include <QLocale>
#include <QTest>
#include <QTime>

#include <cfloat>

using namespace platform;

class tst_Conversions : public QObject {
    Q_OBJECT
private slots:
    void strict_data();
    void strict();
    void lenientVal_data();
    void lenientVal();
    void floatTexts_data();
    void floatTexts();
    void longTimeHasNoZone_data();
    void longTimeHasNoZone();
};

void tst_Conversions::strict_data()
{
    QTest::addColumn<QString>("conversion");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("error");
    const auto row = [](const char* name, const char* conversion, const char* text, double expected,
                        int error) {
        QTest::newRow(name) << QString(conversion) << QString(text) << expected << error;
    };
    row("blanks and sign", "CInt", " \t+42 ", 42.0, 0);
    row("half to even down", "CInt", "2.5", 2.0, 0);
    row("half to even up", "CInt", "3.5", 4.0, 0);
    row("exponent", "CInt", "1e3", 1000.0, 0);
    row("hex 16-bit two's complement", "CInt", "&HFFFF", -1.0, 0);
    row("half above highest rounds out", "CInt", "32767.5", 0.0, err::Overflow);
    row("empty", "CInt", "", 0.0, err::TypeMismatch);
    row("trailing garbage", "CInt", "12abc", 0.0, err::TypeMismatch);
    row("exponent without digits", "CInt", "1e", 0.0, err::TypeMismatch);
    row("Long above highest", "CLng", "2147483648", 0.0, err::Overflow);
    row("hex 32-bit two's complement", "CLng", "&HFFFFFFFF", -1.0, 0);
    row("hex beyond 32 bits", "CLng", "&H100000000", 0.0, err::Overflow);
    row("largest float", "CSng", "3.4028234e38", double(FLT_MAX), 0);
    row("above float", "CSng", "3.5e38", 0.0, err::Overflow);
    row("beyond double", "CDbl", "1e400", 0.0, err::Overflow);
    row("bool word any case", "CBool", " tRUE ", 1.0, 0);
    row("bool fraction", "CBool", "0.1", 1.0, 0);
    row("bool yes", "CBool", "yes", 0.0, err::TypeMismatch);
}

void tst_Conversions::strict()
{
    QFETCH(QString, conversion);
    QFETCH(QString, text);
    QFETCH(double, expected);
    QFETCH(int, error);
    double result = 0;
    int thrown = 0;
    try {
        if (conversion == "CInt")
            result = toInt16(text);
        else if (conversion == "CLng")
            result = toInt32(text);
        else if (conversion == "CSng")
            result = toFloat(text);
        else if (conversion == "CDbl")
            result = toDouble(text);
        else
            result = toBool(text);
    } catch (const Error& e) {
        thrown = e.number();
    }
    QCOMPARE(thrown, error);
    QCOMPARE(result, expected);
}

void tst_Conversions::lenientVal_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("number then letters") << "12abc" << 12.0;
    QTest::newRow("blanks inside") << " 1 2 3" << 123.0;
    QTest::newRow("hex") << "&H1F" << 31.0;
    QTest::newRow("exponent then garbage") << "-3.5e2x" << -350.0;
    QTest::newRow("exponent mark then word") << "7easy" << 7.0;
    QTest::newRow("huge stays finite") << "1e999" << DBL_MAX;
}

void tst_Conversions::lenientVal()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    QCOMPARE(val(text), expected);
}

void tst_Conversions::floatTexts_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << 3585.0f << "3585";
    QTest::newRow("seven digits") << 1234.567f << "1234.567";
    QTest::newRow("eight digit whole") << 12345678.0f << "1.234568E+07";
    QTest::newRow("small") << 0.00001f << "1E-05";
}

void tst_Conversions::floatTexts()
{
    QFETCH(float, value);
    QFETCH(QString, text);
    QCOMPARE(floatText(value), text);
}

void tst_Conversions::longTimeHasNoZone_data()
{
    // The toolkit's long formats name the zone in several ways: at the end, in
    // brackets, after a comma, beside quoted words.
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("C") << "C"
                       << "20:09:52";
    QTest::newRow("en_US") << "en_US"
                           << "8:09:52 PM";
    QTest::newRow("ca_ES, in brackets") << "ca_ES"
                                        << "20:09:52";
    QTest::newRow("be_BY, after a comma") << "be_BY"
                                          << "20:09:52";
    QTest::newRow("bg_BG, quoted unit") << "bg_BG"
                                        << "20:09:52 ч.";
    QTest::newRow("nds_DE, quoted word first") << "nds_DE"
                                               << "Klock 20.09:52";
}

void tst_Conversions::longTimeHasNoZone()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QCOMPARE(longTimeText(QLocale(locale), QTime(20, 9, 52)), text);
}

QTEST_GUILESS_MAIN(tst_Conversions)
#include "tst_conversions.moc"
