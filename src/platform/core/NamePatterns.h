#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <cwctype>
#include <vector>

namespace platform {

// File name patterns separated by ';', such as "*.bmp;*.jpg;*.gif", matched against
// the bytes of a bare name without regard to case, exactly as fnmatch(3) with
// FNM_CASEFOLD matches them in the current locale. "*.*" keeps its meaning from
// Windows: every file, also one without a dot. No pattern at all matches every file.
//
// A folder of thousands of files is matched name by name, and fnmatch converts each
// name to wide characters first. The usual patterns, a star and a plain ASCII tail,
// are therefore compared with ASCII names directly, through the locale's own case
// folding of the ASCII characters; every other pattern or name goes to fnmatch.
class NamePatterns {
public:
    explicit NamePatterns(const QString& patterns);

    // name: a bare name, NUL-terminated.
    bool matches(const char* name) const;

private:
    struct Pattern {
        QByteArray bytes;   // for fnmatch
        bool plain = false; // an optional leading star and ASCII characters without a special meaning
        bool star = false;  // plain, with a leading star: the name ends in the tail
        QByteArray tail;    // plain: the characters after the star
    };

    bool matchesPlain(const Pattern& pattern, const char* name, size_t length) const;

    std::vector<Pattern> patterns_;
    std::array<std::wint_t, 128> fold_{}; // the locale's case folding of ASCII characters
};

} // namespace platform
