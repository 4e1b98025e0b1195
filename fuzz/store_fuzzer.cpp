// The settings store under arbitrary sequences of reads and writes of arbitrary
// names and values, each checked against a model of the store's rules kept in
// memory:
//   - key paths and value names compare by their Unicode case-folded forms, and a
//     key path's empty components (stray backslashes) don't count;
//   - a write creates its key and every key above it, and a value keeps the
//     spelling of its name from its first write;
//   - a text read gives the default for an absent value, a value of another type
//     and a text of more than 254 characters; a blank text reads as blank;
//   - only HKEY_CURRENT_USER takes writes; HKEY_LOCAL_MACHINE reads its owner;
//   - what was written is there for the next read, also after the store reopens.
// Each input starts from a store that doesn't exist yet. A mismatch aborts.
#include "MemoryFile.h"

#include "library/clsLibrary.h"
#include "platform/core/Registry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>

using platform::Registry;
using platform::RegistryValue;

namespace {

const QString CurrentUser = clsLibrary::currentUserKey();
const QString LocalMachine = clsLibrary::localMachineKey();
const QString MachineKey = QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion");
QString owner; // the machine's registered owner, as the store reads it

// Pieces that names are made of: letters whose case folding is simple, full
// (one character to two) or depends on the position, separators, a character
// outside the Basic Multilingual Plane and one of the escaped bytes of a file name.
const char16_t* const Pieces[] = {
    u"a", u"A", u"Items", u"ITEMS",   u"1",  u"01",   u" ",          u"ß",      u"ss",        u"SS",
    u"ẞ", u"Σ", u"σ",     u"ς",       u"İ",  u"i̇",    u"ﬀ",          u"ff",     u"ǅ",         u"ǆ",
    u"Ǆ", u"é", u"É",     u"e\u0301", u"\\", u"\\\\", u"\U0001F600", u"\uF7E9", u"fPICTURES",
};

// Root handles as text, and the root each names (0 for none).
struct RootText {
    const char* text;
    uint32_t root;
};
const RootText Roots[] = {
    {"-2147483647", platform::HKEY_CURRENT_USER},
    {"-2147483646", platform::HKEY_LOCAL_MACHINE},
    {"-2147483645", 0}, // a root this store doesn't have
    {"0", 0},
    {"2147483649", 0}, // beyond 32 bits: not a number
    {"HKCU", 0},
};

QString makeText(FuzzedDataProvider& in, int maxPieces)
{
    QString text;
    const int count = in.ConsumeIntegralInRange(0, maxPieces);
    for (int i = 0; i < count && in.remaining_bytes() > 0; ++i) {
        const int which = in.ConsumeIntegralInRange<int>(0, int(std::size(Pieces)));
        if (which < int(std::size(Pieces))) {
            text += QString::fromUtf16(Pieces[which]);
        } else {
            // Any character of the Basic Multilingual Plane but a lone surrogate.
            const char16_t c = in.ConsumeIntegral<char16_t>();
            if (!QChar::isSurrogate(c))
                text += QChar(c);
        }
    }
    return text;
}

// A text of around the read limit: one piece repeated to 250..260 characters.
QString makeLongText(FuzzedDataProvider& in)
{
    const QString piece = makeText(in, 1);
    const uint32_t characters = in.ConsumeIntegralInRange(250u, 260u);
    const QList<uint> unit = piece.isEmpty() ? QList<uint>{'x'} : piece.toUcs4();
    QList<uint> all;
    while (uint32_t(all.size()) < characters)
        all << unit.at(all.size() % unit.size());
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(all.constData()), all.size());
}

qsizetype characters(const QString& text)
{
    return text.toUcs4().size();
}

// The model: every key that exists, and every value by its folded key and name.
struct Value {
    QString name; // as first written
    int type = platform::REG_SZ;
    QByteArray data;
};

QStringList foldedComponents(const QString& keyPath)
{
    QStringList parts = keyPath.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (QString& part : parts)
        part = part.toCaseFolded();
    return parts;
}

QString foldedKey(const QString& keyPath)
{
    return foldedComponents(keyPath).join(QLatin1Char('\\'));
}

class Model {
public:
    void write(const QString& keyPath, const QString& name, int type, const QByteArray& data)
    {
        const QStringList parts = foldedComponents(keyPath);
        for (qsizetype n = 1; n <= parts.size(); ++n)
            keys_.insert(parts.first(n).join(QLatin1Char('\\')));
        QHash<QString, Value>& values = values_[parts.join(QLatin1Char('\\'))];
        const QString folded = name.toCaseFolded();
        auto found = values.find(folded);
        if (found == values.end())
            found = values.insert(folded, Value{name, type, data});
        found->type = type;
        found->data = data;
    }

    const Value* find(const QString& keyPath, const QString& name) const
    {
        const auto key = values_.constFind(foldedKey(keyPath));
        if (key == values_.cend())
            return nullptr;
        const auto value = key->constFind(name.toCaseFolded());
        return value == key->cend() ? nullptr : &*value;
    }

    bool keyExists(const QString& keyPath) const
    {
        const QString folded = foldedKey(keyPath);
        return folded.isEmpty() || keys_.contains(folded);
    }

    QStringList names(const QString& keyPath) const
    {
        QStringList result;
        for (const Value& value : values_.value(foldedKey(keyPath)))
            result << value.name;
        result.sort();
        return result;
    }

    const QSet<QString>& keys() const { return keys_; }
    const QHash<QString, QHash<QString, Value>>& values() const { return values_; }

private:
    QSet<QString> keys_;
    QHash<QString, QHash<QString, Value>> values_;
};

// A key path or value name: mostly one used before in another spelling, so that
// reads find what writes wrote; else a new one.
class Names {
public:
    explicit Names(QStringList known) : used_(std::move(known)) {}

    QString pick(FuzzedDataProvider& in, int maxPieces)
    {
        if (!used_.isEmpty() && in.ConsumeBool()) {
            QString name = used_.at(in.ConsumeIntegralInRange<qsizetype>(0, used_.size() - 1));
            switch (in.ConsumeIntegralInRange(0, 3)) {
            case 0: return name.toUpper();
            case 1: return name.toLower();
            case 2: return name.toCaseFolded();
            default: return QLatin1Char('\\') + name + QStringLiteral("\\\\");
            }
        }
        QString name = makeText(in, maxPieces);
        used_ << name;
        return name;
    }

private:
    QStringList used_;
};

QString describe(const QString& text)
{
    return QString::fromLatin1(text.toUtf8().toPercentEncoding(" \\"));
}

QByteArray dword(int32_t number)
{
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = char((uint32_t(number) >> (8 * i)) & 0xff);
    return bytes;
}

// The whole model against the store through a new connection.
void checkEverything(const Model& model)
{
    Registry& registry = Registry::instance();
    registry.reopen();
    for (const QString& key : model.keys())
        FUZZ_CHECK(registry.keyExists(platform::HKEY_CURRENT_USER, key), "key %s lost",
                   qPrintable(describe(key)));
    for (auto key = model.values().cbegin(); key != model.values().cend(); ++key) {
        QStringList names = registry.valueNames(platform::HKEY_CURRENT_USER, key.key());
        names.sort();
        FUZZ_CHECK(names == model.names(key.key()), "the names of key %s differ",
                   qPrintable(describe(key.key())));
        for (const Value& value : key.value()) {
            const auto stored = registry.queryValue(platform::HKEY_CURRENT_USER, key.key(), value.name);
            FUZZ_CHECK(stored && stored->type == value.type && stored->data == value.data,
                       "value %s\\%s lost", qPrintable(describe(key.key())),
                       qPrintable(describe(value.name)));
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    new QCoreApplication(*argc, *argv);
    // In memory where there is a file system for it: the store syncs its log at
    // every checkpoint, and a disk would set the pace.
    QByteArray folder = QDir(QStringLiteral("/dev/shm")).exists() ? "/dev/shm" : "/tmp";
    folder += "/vistarro-store-fuzz-XXXXXX";
    if (!mkdtemp(folder.data()))
        std::abort();
    qputenv("XDG_CONFIG_HOME", folder);
    owner = clsLibrary::instance().REGSTRREAD(LocalMachine, MachineKey, QStringLiteral("RegisteredOwner"));
    FUZZ_CHECK(!owner.isEmpty(), "no registered owner");
    std::atexit([] {
        Registry::instance().reopen();
        QDir(QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME"))).removeRecursively();
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Registry& registry = Registry::instance();
    registry.reopen();
    const QString database = Registry::databasePath();
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(database + QLatin1String(suffix));

    FuzzedDataProvider in(data, size);
    clsLibrary& library = clsLibrary::instance();
    Model model;
    Names keys({clsLibrary::programKey() + QStringLiteral("\\fPICTURES\\Selection"), MachineKey});
    Names names({QStringLiteral("Items"), QStringLiteral("RegisteredOwner")});
    while (in.remaining_bytes() > 0) {
        const RootText root = Roots[in.ConsumeIntegralInRange<size_t>(0, std::size(Roots) - 1)];
        const bool currentUser = root.root == platform::HKEY_CURRENT_USER;
        const QString rootText = QString::fromLatin1(root.text);
        const QString key = keys.pick(in, 6);
        const QString name = names.pick(in, 3);
        switch (in.ConsumeIntegralInRange(0, 8)) {
        case 0:
        case 1: {
            const QString text = in.ConsumeBool() ? makeLongText(in) : makeText(in, 8);
            const bool written = library.REGSTRWRITE(rootText, key, name, text);
            FUZZ_CHECK(written == currentUser, "REGSTRWRITE %s", written ? "took a write" : "failed");
            if (written)
                model.write(key, name, platform::REG_SZ, text.toUtf8());
            break;
        }
        case 2:
        case 3: {
            const QString fallback = makeText(in, 2);
            QString expected = fallback;
            if (currentUser) {
                const Value* value = model.find(key, name);
                if (value && value->type == platform::REG_SZ) {
                    const QString text = QString::fromUtf8(value->data);
                    if (characters(text) <= 254)
                        expected = text;
                }
            } else if (root.root == platform::HKEY_LOCAL_MACHINE && foldedKey(key) == foldedKey(MachineKey) &&
                       name.toCaseFolded() == QStringLiteral("registeredowner")) {
                expected = owner;
            }
            const QString read = library.REGSTRREAD(rootText, key, name, fallback);
            FUZZ_CHECK(read == expected, "REGSTRREAD %s\\%s gave \"%s\", not \"%s\"",
                       qPrintable(describe(key)), qPrintable(describe(name)), qPrintable(describe(read)),
                       qPrintable(describe(expected)));
            break;
        }
        case 4: {
            const int32_t number = in.ConsumeIntegral<int32_t>();
            FUZZ_CHECK(library.REGDWORDREAD(int32_t(root.root), key, name, number).isEmpty(), "REGDWORDREAD");
            if (currentUser)
                model.write(key, name, platform::REG_DWORD, dword(number));
            break;
        }
        case 5: {
            const std::string bytes = in.ConsumeRandomLengthString(300);
            const QByteArray array(bytes.data(), qsizetype(bytes.size()));
            FUZZ_CHECK(library.REGBINARYREAD(rootText, key, name, array) == currentUser, "REGBINARYREAD");
            if (currentUser)
                model.write(key, name, platform::REG_BINARY, array);
            break;
        }
        case 6:
            library.REGBINARYWRITE();
            model.write(clsLibrary::programKey() + QStringLiteral("\\frmMain\\Toolbar\\Standard"),
                        QStringLiteral("Buttons"), platform::REG_BINARY, QByteArray("\x64\0\0\0\x65", 5));
            break;
        case 7: {
            FUZZ_CHECK(registry.keyExists(platform::HKEY_CURRENT_USER, key) == model.keyExists(key),
                       "key %s %s", qPrintable(describe(key)), model.keyExists(key) ? "missing" : "appeared");
            QStringList stored = registry.valueNames(platform::HKEY_CURRENT_USER, key);
            stored.sort();
            FUZZ_CHECK(stored == model.names(key), "the names of %s: %s", qPrintable(describe(key)),
                       qPrintable(describe(stored.join(QLatin1Char('|')))));
            break;
        }
        default: registry.reopen(); break;
        }
    }
    checkEverything(model);
    return 0;
}
