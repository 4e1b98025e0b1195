// vistarro-store: shows what Vistarro remembers.
//
//   vistarro-store dump [KEY]
//
// prints every key at or below KEY (all keys when left out) of the current user's
// settings store, with its values. The store is opened read-only, so this is safe
// while Vistarro is running.

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
                                 "Prints the keys at or below KEY (all keys when left out) of the current "
                                 "user's\nVistarro settings store, with their values.\n"));
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0))
        return usage(stdout, 0);
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
