#include "platform/core/Error.h"
#include "platform/core/Registry.h"
#include "platform/core/RegistryDump.h"

#include "TempStore.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sqlite3.h>

#include <unistd.h>

using namespace platform;

namespace {

const QString Items = QStringLiteral("SOFTWARE\\ZUV Software Development\\Vistarro\\fPICTURES\\Items");

RegistryValue text(const char* utf8)
{
    return RegistryValue{REG_SZ, QByteArray(utf8)};
}

// A connection of its own on the store file, standing for a second program.
class OtherProgram {
public:
    explicit OtherProgram(const QString& path) { sqlite3_open(QFile::encodeName(path).constData(), &db_); }
    ~OtherProgram() { sqlite3_close_v2(db_); }

    bool exec(const char* sql) { return sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) == SQLITE_OK; }
    // The first column of the first row.
    QString value(const char* sql)
    {
        QString result;
        sqlite3_exec(
            db_, sql,
            [](void* out, int, char** row, char**) {
                *static_cast<QString*>(out) = QString::fromUtf8(row[0]);
                return 1;
            },
            &result, nullptr);
        return result;
    }

private:
    sqlite3* db_ = nullptr;
};

} // namespace

class tst_Registry : public QObject {
    Q_OBJECT

private slots:
    void namesCompareWithoutCase_data();
    void namesCompareWithoutCase();
    void writeCreatesEveryKeyAbove();
    void otherProgramReadsWhileThisOneWrites();
    void readsTogetherSeeOneStateButNoWriteWaits();
    void unusableStoreIsLeftAlone_data();
    void unusableStoreIsLeftAlone();
    void machineRoot();
    void dumpFormat();
};

void tst_Registry::namesCompareWithoutCase_data()
{
    QTest::addColumn<QString>("writtenKey");
    QTest::addColumn<QString>("writtenName");
    QTest::addColumn<QString>("readKey");
    QTest::addColumn<QString>("readName");
    QTest::addColumn<bool>("same");
    const auto row = [](const char* name, const QString& writtenKey, const QString& writtenName,
                        const QString& readKey, const QString& readName, bool same) {
        QTest::newRow(name) << writtenKey << writtenName << readKey << readName << same;
    };
    row("key path, stray backslashes", "\\SOFTWARE\\GLOBAL\\frmPPrev\\Items", "Zoom",
        "software\\\\GLOBAL\\frmpprev\\Items\\", "ZOOM", true);
    row("umlaut", "SOFTWARE\\ÄRGER", "ÖL", "software\\ärger", "öl", true);
    row("final sigma", "SOFTWARE\\ΣΊΣΥΦΟΣ", "x", "software\\σίσυφος", "X", true);
    row("capital sharp s", "SOFTWARE", "STRAẞE", "software", "straße", true);
    row("name is no prefix", Items, "Items", Items, "Item", false);
    row("key is no prefix", "SOFTWARE\\A\\B", "x", "SOFTWARE\\A", "x", false);
}

void tst_Registry::namesCompareWithoutCase()
{
    QFETCH(QString, writtenKey);
    QFETCH(QString, writtenName);
    QFETCH(QString, readKey);
    QFETCH(QString, readName);
    QFETCH(bool, same);
    TempStore store;
    Registry& registry = Registry::instance();
    registry.setValue(HKEY_CURRENT_USER, writtenKey, writtenName, text("first"));
    QCOMPARE(bool(registry.queryValue(HKEY_CURRENT_USER, readKey, readName)), same);
    if (!same)
        return;
    // A write under the other spelling replaces the value rather than adding one.
    registry.setValue(HKEY_CURRENT_USER, readKey, readName, text("second"));
    QCOMPARE(registry.queryValue(HKEY_CURRENT_USER, writtenKey, writtenName)->data, QByteArray("second"));
    QCOMPARE(OtherProgram(store.databasePath()).value("SELECT count(*) FROM reg_value"), QStringLiteral("1"));
}

// Also through a new connection, so the write reached the file.
void tst_Registry::writeCreatesEveryKeyAbove()
{
    TempStore store;
    Registry& registry = Registry::instance();
    registry.setValue(HKEY_CURRENT_USER, Items, QStringLiteral("Items"), text("2"));
    registry.reopen();
    for (QString path = Items; !path.isEmpty(); path = path.section(QLatin1Char('\\'), 0, -2))
        QVERIFY2(registry.keyExists(HKEY_CURRENT_USER, path), qPrintable(path));
    QVERIFY(!registry.keyExists(HKEY_CURRENT_USER, Items + QStringLiteral("\\Deeper")));
}

// In write-ahead-log mode a second program in the middle of a read neither
// blocks a write nor misses it afterwards.
void tst_Registry::otherProgramReadsWhileThisOneWrites()
{
    TempStore store;
    Registry& registry = Registry::instance();
    registry.setValue(HKEY_CURRENT_USER, Items, QStringLiteral("Items"), text("1"));
    OtherProgram other(store.databasePath());
    QCOMPARE(other.value("PRAGMA journal_mode"), QStringLiteral("wal"));
    QVERIFY(other.exec("BEGIN"));
    QCOMPARE(other.value("SELECT data FROM reg_value"), QStringLiteral("1"));
    registry.setValue(HKEY_CURRENT_USER, Items, QStringLiteral("Items"), text("2"));
    QVERIFY(other.exec("COMMIT"));
    QCOMPARE(other.value("SELECT data FROM reg_value"), QStringLiteral("2"));
}

// Reads that share a transaction see the store as it was at the first of them,
// while another program writes it. A write among them is a transaction of its
// own: it is in the file at once, and the reads after it see it.
void tst_Registry::readsTogetherSeeOneStateButNoWriteWaits()
{
    TempStore store;
    Registry& registry = Registry::instance();
    const QString name = QStringLiteral("Items");
    const auto stored = [&] { return registry.queryValue(HKEY_CURRENT_USER, Items, name)->data; };
    registry.setValue(HKEY_CURRENT_USER, Items, name, text("1"));
    OtherProgram other(store.databasePath());
    {
        const Registry::ReadTogether together;
        QCOMPARE(stored(), QByteArray("1"));
        QVERIFY(other.exec("UPDATE reg_value SET data = CAST('2' AS BLOB)"));
        QCOMPARE(stored(), QByteArray("1"));

        registry.setValue(HKEY_CURRENT_USER, Items, name, text("3"));
        QCOMPARE(other.value("SELECT data FROM reg_value"), QStringLiteral("3"));
        QCOMPARE(stored(), QByteArray("3"));
        QVERIFY(other.exec("UPDATE reg_value SET data = CAST('4' AS BLOB)"));
    }
    QCOMPARE(stored(), QByteArray("4"));
}

void tst_Registry::unusableStoreIsLeftAlone_data()
{
    QTest::addColumn<QString>("file"); // below the config folder
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("sql"); // run on the file before the test

    const QString database = QStringLiteral("ZUV Software Development/settings.sqlite");
    QByteArray header("SQLite format 3");
    header.append('\0');
    QTest::newRow("text file") << database << QByteArray("[Settings]\nItems=2\n") << QByteArray();
    QTest::newRow("header, garbage after") << database << header + QByteArray(4080, 'Z') << QByteArray();
    QTest::newRow("newer format") << database << QByteArray() << QByteArray("PRAGMA user_version = 99");
    QTest::newRow("file instead of folder") << "ZUV Software Development" << QByteArray("x") << QByteArray();
    QTest::newRow("read-only config folder") << QString() << QByteArray() << QByteArray();
}

// A store that can't be used reads as absent and refuses writes, and every byte
// of the file in its place stays as it was.
void tst_Registry::unusableStoreIsLeftAlone()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, sql);
    TempStore store;
    const QString path = store.configHome() + QLatin1Char('/') + file;
    if (file.isEmpty()) {
        if (geteuid() == 0)
            QSKIP("file permissions don't bind root");
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner));
    } else {
        QVERIFY(QDir().mkpath(path.section(QLatin1Char('/'), 0, -2)));
        QFile planted(path);
        QVERIFY(planted.open(QIODevice::WriteOnly) && planted.write(content) == content.size());
    }
    if (!sql.isEmpty())
        QVERIFY(OtherProgram(path).exec(sql.constData()));
    QFile planted(path);
    const QByteArray before = planted.open(QIODevice::ReadOnly) ? planted.readAll() : QByteArray();

    Registry& registry = Registry::instance();
    QVERIFY(!registry.queryValue(HKEY_CURRENT_USER, Items, QStringLiteral("Items")));
    QVERIFY_THROWS_EXCEPTION(Error,
                             registry.setValue(HKEY_CURRENT_USER, Items, QStringLiteral("Items"), text("2")));
    registry.reopen();
    planted.seek(0);
    QCOMPARE(planted.readAll(), before);
    QFile::setPermissions(store.configHome(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void tst_Registry::machineRoot()
{
    TempStore store;
    Registry& registry = Registry::instance();
    const auto owner = registry.queryValue(HKEY_LOCAL_MACHINE,
                                           QStringLiteral("software\\Microsoft\\WINDOWS\\CurrentVersion"),
                                           "registeredowner");
    QVERIFY(owner && owner->type == REG_SZ && !owner->data.isEmpty());
    QVERIFY(!registry.queryValue(HKEY_LOCAL_MACHINE, Items, QStringLiteral("Items")));
    QVERIFY_THROWS_EXCEPTION(
        Error, registry.setValue(HKEY_LOCAL_MACHINE, Items, QStringLiteral("Items"), text("2")));
    QVERIFY(QDir(store.configHome()).isEmpty());
}

// Keys component by component, then names without regard to case; a name keeps
// its first spelling; each type in its own form.
void tst_Registry::dumpFormat()
{
    TempStore store;
    QCOMPARE(dumpStore(store.databasePath()).status, StoreDump::Missing);
    Registry& registry = Registry::instance();
    const auto set = [&](const char* key, const char* name, const RegistryValue& value) {
        registry.setValue(HKEY_CURRENT_USER, QString::fromUtf8(key), QString::fromUtf8(name), value);
    };
    set("A\\me", "status Bar", text("True"));
    set("A\\me", "Status Bar", text("Fal\"se\\\n"));
    set("A\\me", "Ärger", text("Ö"));
    set("A\\me", "Answer", RegistryValue{REG_DWORD, QByteArray("\x2a\x00\x00\x00", 4)});
    set("A\\frmMain", "Buttons", RegistryValue{REG_BINARY, QByteArray("\x64\x00\x65", 3)});
    set("A B", "", text(""));

    const StoreDump all = dumpStore(store.databasePath());
    QCOMPARE(all.status, StoreDump::Ok);
    QCOMPARE(all.text, QStringLiteral("[HKEY_CURRENT_USER\\A]\n\n"
                                      "[HKEY_CURRENT_USER\\A\\frmMain]\n"
                                      "\"Buttons\"=REG_BINARY:64,00,65\n\n"
                                      "[HKEY_CURRENT_USER\\A\\me]\n"
                                      "\"Answer\"=dword:0000002a (42)\n"
                                      "\"status Bar\"=REG_SZ:\"Fal\\\"se\\\\\\x0a\"\n"
                                      "\"Ärger\"=REG_SZ:\"Ö\"\n\n"
                                      "[HKEY_CURRENT_USER\\A B]\n"
                                      "@=REG_SZ:\"\"\n"));
    QCOMPARE(dumpStore(store.databasePath(), QStringLiteral("hkey_current_user\\a\\ME")).text,
             all.text.section(QLatin1Char('\n'), 5, 8) + QLatin1Char('\n'));
    QCOMPARE(dumpStore(store.databasePath(), QStringLiteral("A\\m")).status, StoreDump::KeyNotFound);
}

QTEST_GUILESS_MAIN(tst_Registry)
#include "tst_registry.moc"
