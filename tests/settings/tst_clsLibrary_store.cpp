#include "library/clsLibrary.h"

#include "platform/core/Registry.h"

#include "TempStore.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <utility>

using platform::Registry;

namespace {

const QString Prefs = QStringLiteral("SOFTWARE\\ZUV Software Development\\Vistarro\\fPREFERENCES\\Items");
const QString Name = QStringLiteral("Files Location");

QString hkcu()
{
    return clsLibrary::currentUserKey();
}

} // namespace

class tst_clsLibraryStore : public QObject {
    Q_OBJECT

private slots:
    void emptyStoreGivesDefaultsAndStaysEmpty();
    void readLimit_data();
    void readLimit();
    void blankWriteIsAValue();
    void otherTypeReadsDefault();
    void writeIsSeenByNextRead();
    void rootText_data();
    void rootText();
    void damagedStoreNeverThrows();
    void numberAndBytesWrites();
};

void tst_clsLibraryStore::emptyStoreGivesDefaultsAndStaysEmpty()
{
    TempStore store;
    clsLibrary& library = clsLibrary::instance();
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, QStringLiteral("Splitter Bar Left"), QStringLiteral("3585")),
             QStringLiteral("3585"));
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, Name), QString());
    QVERIFY(QDir(store.configHome()).isEmpty());
}

void tst_clsLibraryStore::readLimit_data()
{
    QTest::addColumn<QString>("character");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("whole");
    const QString astral = QString::fromUcs4(U"\U0001F4F7"); // two UTF-16 units, four bytes
    for (const auto& [name, character] :
         {std::pair{"ASCII", QStringLiteral("x")}, std::pair{"two-byte", QStringLiteral("ä")},
          std::pair{"astral", astral}}) {
        QTest::addRow("%s, 254", name) << character << 254 << true;
        QTest::addRow("%s, 255", name) << character << 255 << false;
    }
}

// Up to 254 characters read back whole; a longer text reads as the default,
// never cut.
void tst_clsLibraryStore::readLimit()
{
    QFETCH(QString, character);
    QFETCH(int, count);
    QFETCH(bool, whole);
    TempStore store;
    clsLibrary& library = clsLibrary::instance();
    const QString text = character.repeated(count);
    QVERIFY(library.REGSTRWRITE(hkcu(), Prefs, Name, text));
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, Name, QStringLiteral("default")),
             whole ? text : QStringLiteral("default"));
}

void tst_clsLibraryStore::blankWriteIsAValue()
{
    TempStore store;
    clsLibrary& library = clsLibrary::instance();
    QVERIFY(library.REGSTRWRITE(hkcu(), Prefs, QStringLiteral("1"), QString()));
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, QStringLiteral("1"), QStringLiteral("1")), QString());
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, QStringLiteral("2"), QStringLiteral("1")),
             QStringLiteral("1"));
}

void tst_clsLibraryStore::otherTypeReadsDefault()
{
    TempStore store;
    clsLibrary& library = clsLibrary::instance();
    library.REGDWORDREAD(int32_t(platform::HKEY_CURRENT_USER), Prefs, QStringLiteral("Items"), 7);
    QVERIFY(library.REGBINARYREAD(hkcu(), Prefs, QStringLiteral("Zoom"), QByteArray("7")));
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, QStringLiteral("Items"), QStringLiteral("0")),
             QStringLiteral("0"));
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, QStringLiteral("Zoom"), QStringLiteral("0")),
             QStringLiteral("0"));
}

// One write creates the whole key path; the very next read, under any
// spelling of the names, sees it.
void tst_clsLibraryStore::writeIsSeenByNextRead()
{
    TempStore store;
    clsLibrary& library = clsLibrary::instance();
    QVERIFY(library.REGSTRWRITE(hkcu(), Prefs, QStringLiteral("Splitter Bar top"), QStringLiteral("2340")));
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs.toUpper(), QStringLiteral("Splitter Bar Top")),
             QStringLiteral("2340"));
}

void tst_clsLibraryStore::rootText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("writes");
    QTest::newRow("current user") << QStringLiteral("-2147483647") << true;
    QTest::newRow("local machine") << QStringLiteral("-2147483646") << false;
    QTest::newRow("not a number") << QStringLiteral("HKEY_CURRENT_USER") << false;
}

void tst_clsLibraryStore::rootText()
{
    QFETCH(QString, key);
    QFETCH(bool, writes);
    TempStore store;
    clsLibrary& library = clsLibrary::instance();
    QCOMPARE(library.REGSTRWRITE(key, Prefs, QStringLiteral("Zoom"), QStringLiteral("75 %")), writes);
    QCOMPARE(library.REGSTRREAD(key, Prefs, QStringLiteral("Zoom"), QStringLiteral("50 %")),
             writes ? QStringLiteral("75 %") : QStringLiteral("50 %"));
}

// A file that isn't a database where the store belongs: writes give false,
// reads the default, and nothing throws.
void tst_clsLibraryStore::damagedStoreNeverThrows()
{
    TempStore store;
    QVERIFY(QDir().mkpath(store.databasePath().section(QLatin1Char('/'), 0, -2)));
    QFile file(store.databasePath());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("Files Location=/home\n") > 0);
    file.close();

    clsLibrary& library = clsLibrary::instance();
    QVERIFY(!library.REGSTRWRITE(hkcu(), Prefs, Name, QStringLiteral("/tmp/")));
    QCOMPARE(library.REGSTRREAD(hkcu(), Prefs, Name, QStringLiteral("/opt/")), QStringLiteral("/opt/"));
    QCOMPARE(library.REGDWORDREAD(int32_t(platform::HKEY_CURRENT_USER), Prefs, Name, 1), QString());
    QVERIFY(!library.REGBINARYREAD(hkcu(), Prefs, Name, QByteArray("1")));
    library.REGBINARYWRITE();
}

void tst_clsLibraryStore::numberAndBytesWrites()
{
    TempStore store;
    clsLibrary& library = clsLibrary::instance();
    Registry& registry = Registry::instance();
    QCOMPARE(library.REGDWORDREAD(int32_t(platform::HKEY_CURRENT_USER), Prefs, QStringLiteral("n"), -2),
             QString());
    const auto number = registry.queryValue(platform::HKEY_CURRENT_USER, Prefs, QStringLiteral("n"));
    QVERIFY(number && number->type == platform::REG_DWORD);
    QCOMPARE(number->data, QByteArray("\xfe\xff\xff\xff", 4));

    library.REGBINARYWRITE();
    const auto buttons = registry.queryValue(
        platform::HKEY_CURRENT_USER,
        QStringLiteral("SOFTWARE\\ZUV Software Development\\Vistarro\\frmMain\\Toolbar\\Standard"),
        "Buttons");
    QVERIFY(buttons && buttons->type == platform::REG_BINARY);
    QCOMPARE(buttons->data, QByteArray("\x64\x00\x00\x00\x65", 5));
}

QTEST_GUILESS_MAIN(tst_clsLibraryStore)
#include "tst_clsLibrary_store.moc"
