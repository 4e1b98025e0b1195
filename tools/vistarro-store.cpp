// vistarro-store: shows and sets what Vistarro remembers.
//
//   vistarro-store dump [KEY]
//
// prints every key at or below KEY (all keys when left out) of the current user's
// settings store, with its values. The store is opened read-only, so this is safe
// while Vistarro is running.
//
//   vistarro-store set KEY NAME VALUE [KEY NAME VALUE...]
//
// writes text values through the program's own store code, which makes the store
// and its keys when missing; the end-to-end checks seed a store with it.

#include "platform/core/Error.h"
#include "platform/core/Registry.h"
#include "platform/core/RegistryDump.h"

#include <QString>

#include <cstdio>
#include <cstring>

namespace {

void print(FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
}

int usage(FILE* stream, int status)
{
    print(stream, QStringLiteral("Usage: vistarro-store dump [KEY]\n"
                                 "       vistarro-store set KEY NAME VALUE [KEY NAME VALUE...]\n"
                                 "Prints the keys at or below KEY (all keys when left out) of the current "
                                 "user's\nVistarro settings store, with their values, or sets text values "
                                 "in it.\n"));
    return status;
}

int set(int count, char** triples)
{
    platform::Registry& store = platform::Registry::instance();
    try {
        for (int at = 0; at + 2 < count; at += 3) {
            const QByteArray text = QString::fromLocal8Bit(triples[at + 2]).toUtf8();
            store.setValue(platform::HKEY_CURRENT_USER, QString::fromLocal8Bit(triples[at]),
                           QString::fromLocal8Bit(triples[at + 1]),
                           platform::RegistryValue{platform::REG_SZ, text});
        }
    } catch (const platform::Error& error) {
        print(stderr, QStringLiteral("vistarro-store: ") + error.description() + QLatin1Char('\n'));
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0))
        return usage(stdout, 0);
    if (argc >= 5 && (argc - 2) % 3 == 0 && std::strcmp(argv[1], "set") == 0)
        return set(argc - 2, argv + 2);
    if (argc < 2 || argc > 3 || std::strcmp(argv[1], "dump") != 0)
        return usage(stderr, 2);

    const QString keyPath = argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString();
    const platform::StoreDump dump = platform::dumpStore(platform::Registry::databasePath(), keyPath);
    if (dump.status != platform::StoreDump::Ok) {
        print(stderr, QStringLiteral("vistarro-store: ") + dump.error + QLatin1Char('\n'));
        return 1;
    }
    print(stdout, dump.text);
    return 0;
}
