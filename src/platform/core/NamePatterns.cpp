#include "platform/core/NamePatterns.h"

#include "platform/core/FileNames.h"

#include <QStringList>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <fnmatch.h>

namespace platform {

namespace {

// Characters that mean more than themselves to fnmatch.
bool isSpecial(char c)
{
    return c == '*' || c == '?' || c == '[' || c == '\\';
}

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

} // namespace

NamePatterns::NamePatterns(const QString& patterns)
{
    for (const QString& part : patterns.split(QLatin1Char(';'))) {
        const QString trimmed = part.trimmed();
        if (trimmed.isEmpty())
            continue;
        Pattern pattern;
        pattern.bytes = trimmed == QLatin1String("*.*") ? QByteArray("*") : encodeFileName(trimmed);
        pattern.star = pattern.bytes.startsWith('*');
        pattern.tail = pattern.star ? pattern.bytes.mid(1) : pattern.bytes;
        pattern.plain = std::none_of(pattern.tail.cbegin(), pattern.tail.cend(),
                                     [](char c) { return isSpecial(c) || !isAscii(c); });
        patterns_.push_back(pattern);
    }
    if (patterns_.empty())
        patterns_.push_back({QByteArray("*"), true, true, QByteArray()});

    // fnmatch folds with towlower in a multibyte locale and with tolower in a
    // single-byte one; a locale may fold an ASCII letter out of ASCII (Turkish 'I').
    const bool multibyte = MB_CUR_MAX > 1;
    for (int c = 0; c < 128; ++c)
        fold_[size_t(c)] = multibyte ? std::towlower(std::wint_t(c)) : std::wint_t(std::tolower(c));
}

bool NamePatterns::matchesPlain(const Pattern& pattern, const char* name, size_t length) const
{
    const size_t tailLength = size_t(pattern.tail.size());
    if (length < tailLength || (!pattern.star && length != tailLength))
        return false;
    const char* tail = name + (length - tailLength);
    for (size_t i = 0; i < tailLength; ++i) {
        if (fold_[size_t(tail[i])] != fold_[size_t(pattern.tail[qsizetype(i)])])
            return false;
    }
    return true;
}

bool NamePatterns::matches(const char* name) const
{
    const size_t length = std::strlen(name);
    const bool ascii = std::all_of(name, name + length, isAscii);
    return std::any_of(patterns_.begin(), patterns_.end(), [&](const Pattern& pattern) {
        if (ascii && pattern.plain)
            return matchesPlain(pattern, name, length);
        return fnmatch(pattern.bytes.constData(), name, FNM_CASEFOLD) == 0;
    });
}

} // namespace platform
