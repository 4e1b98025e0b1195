#include "platform/core/FileNames.h"

#include <QRandomGenerator>
#include <QTest>

using namespace platform;

namespace {

QString escaped(QString text, std::initializer_list<unsigned char> bytes)
{
    for (unsigned char b : bytes)
        text += QChar(char16_t(0xF700 + b));
    return text;
}

} // namespace

class tst_FileNames : public QObject {
    Q_OBJECT
private slots:
    void decoding_data();
    void decoding();
    void randomBytesRoundTrip();
};

void tst_FileNames::decoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("two-byte") << QByteArray("caf\xC3\xA9") << QString::fromUtf8("café");
    QTest::newRow("four-byte") << QByteArray("\xF0\x9F\x98\x80") << QString::fromUcs4(U"\U0001F600");
    QTest::newRow("latin-1 byte") << QByteArray("caf\xE9.jpg") << escaped("caf", {0xE9}) + ".jpg";
    QTest::newRow("truncated then ascii") << QByteArray("\xE2\x82x") << escaped("", {0xE2, 0x82}) + "x";
    QTest::newRow("overlong") << QByteArray("\xE0\x80\xAF") << escaped("", {0xE0, 0x80, 0xAF});
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << escaped("", {0xED, 0xA0, 0x80});
    QTest::newRow("above U+10FFFF") << QByteArray("\xF4\x90\x80\x80")
                                    << escaped("", {0xF4, 0x90, 0x80, 0x80});
    // A name that already holds a character of the escape range has its bytes escaped.
    QTest::newRow("U+F780 in name") << QByteArray("\xEF\x9E\x80") << escaped("", {0xEF, 0x9E, 0x80});
    QTest::newRow("U+F77F is not an escape") << QByteArray("\xEF\x9D\xBF") << QString(QChar(0xF77F));
}

void tst_FileNames::decoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(decodeFileName(bytes), text);
    QCOMPARE(encodeFileName(text), bytes);
}

void tst_FileNames::randomBytesRoundTrip()
{
    // Bytes drawn often from the UTF-8 lead and continuation ranges, so that valid,
    // broken and escape-range sequences all occur.
    QRandomGenerator random(20240611);
    static const unsigned char interesting[] = {'a',  0x80, 0x9E, 0x9F, 0xBF, 0xC0, 0xC3,
                                                0xE0, 0xED, 0xEF, 0xF0, 0xF4, 0xFF};
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes;
        const int length = int(random.bounded(12));
        for (int i = 0; i < length; ++i) {
            bytes += random.bounded(2) ? char(interesting[random.bounded(int(sizeof interesting))])
                                       : char(random.bounded(256));
        }
        QCOMPARE(encodeFileName(decodeFileName(bytes)), bytes);
    }
}

QTEST_GUILESS_MAIN(tst_FileNames)
#include "tst_filenames.moc"
