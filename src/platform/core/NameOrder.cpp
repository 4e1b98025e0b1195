#include "platform/core/NameOrder.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// Collating thousands of names costs much: a sort key each, or a collator call per
// comparison. The names are therefore first sorted by a cheap stand-in key, which
// orders the usual names (ASCII letters, digits and punctuation) as the collator
// does, and the result is then checked pair by pair with the collator, putting
// right by insertion what the stand-in got wrong. A sorted list is sorted, so the
// result is the collator's order exactly; only its cost depends on the stand-in.
// When the stand-in is far off (a language whose order of the Latin letters is
// not the usual one), the names are sorted by their sort keys instead.

namespace {

QLocale collatorLocale()
{
    // Qt's collator compares plain code points in the "C" locale, ignoring case and
    // numeric mode; the neutral order of English (the root order) keeps both.
    const QLocale locale;
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

QCollator fileManagerCollator(const QLocale& locale)
{
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

// The stand-in key of a name: one byte per ASCII character, its rank among the
// ASCII characters in the collator's order (0 for one the collator ignores, left
// out); a run of ASCII digits as the rank of '0', the number of its digits without
// leading zeros and those digits; any other UTF-16 unit as 0xFF and its two bytes.
class StandInKey {
public:
    explicit StandInKey(const QCollator& collator)
    {
        std::vector<char16_t> characters;
        for (char16_t c = 1; c < 0x80; ++c) {
            const char16_t pair[] = {u'x', c};
            const bool ignored = collator.compare(QStringView(pair, 2), QStringView(pair, 1)) == 0;
            if (!ignored && (c <= u'0' || c > u'9'))
                characters.push_back(c);
        }
        const auto compare = [&](char16_t a, char16_t b) {
            return collator.compare(QStringView(&a, 1), QStringView(&b, 1));
        };
        std::stable_sort(characters.begin(), characters.end(),
                         [&](char16_t a, char16_t b) { return compare(a, b) < 0; });
        uint8_t rank = 0;
        for (size_t i = 0; i < characters.size(); ++i) {
            if (i == 0 || compare(characters[i - 1], characters[i]) != 0)
                ++rank;
            rank_[characters[i]] = rank;
        }
    }

    void append(const QString& name, std::string& keys) const
    {
        // At most three bytes a unit, the longest being that of a unit beyond ASCII.
        const size_t start = keys.size();
        keys.resize(start + 3 * size_t(name.size()));
        char* key = keys.data() + start;
        const char16_t* c = reinterpret_cast<const char16_t*>(name.constData());
        const char16_t* end = c + name.size();
        while (c != end) {
            if (*c >= u'0' && *c <= u'9') {
                const char16_t* digits = c;
                while (digits != end && *digits == u'0')
                    ++digits;
                const char16_t* runEnd = digits;
                while (runEnd != end && *runEnd >= u'0' && *runEnd <= u'9')
                    ++runEnd;
                *key++ = char(rank_[u'0']);
                *key++ = char(std::min<ptrdiff_t>(runEnd - digits, 0xFF));
                for (c = digits; c != runEnd; ++c)
                    *key++ = char(*c);
            } else if (*c < 0x80) {
                if (rank_[*c] != 0)
                    *key++ = char(rank_[*c]);
                ++c;
            } else {
                *key++ = char(0xFF);
                *key++ = char(*c >> 8);
                *key++ = char(*c & 0xFF);
                ++c;
            }
        }
        keys.resize(size_t(key - keys.data()));
    }

private:
    std::array<uint8_t, 0x80> rank_{};
};

struct Entry {
    uint64_t head; // the first eight bytes of the key after what all keys share
    size_t index;
};

// Sorts entries by their heads, a byte at a time from the lowest (a radix sort,
// stable): thousands of entries in a few passes, without comparisons.
void sortByHeads(std::vector<Entry>& entries)
{
    std::vector<Entry> sorted(entries.size());
    for (int shift = 0; shift < 64; shift += 8) {
        std::array<size_t, 257> starts{};
        for (const Entry& entry : entries)
            ++starts[((entry.head >> shift) & 0xFF) + 1];
        if (std::any_of(starts.begin(), starts.end(), [&](size_t n) { return n == entries.size(); }))
            continue; // every entry has the same byte here
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        for (const Entry& entry : entries)
            sorted[starts[(entry.head >> shift) & 0xFF]++] = entry;
        entries.swap(sorted);
    }
}

// Sorts order by insertion; false, leaving a permutation unsorted, when that takes
// more than `budget` moves.
template <typename Before> bool insertionSort(std::vector<size_t>& order, Before before, size_t budget)
{
    for (size_t i = 1; i < order.size(); ++i) {
        const size_t item = order[i];
        size_t j = i;
        for (; j > 0 && before(item, order[j - 1]); --j) {
            if (budget-- == 0) {
                order[j] = item;
                return false;
            }
            order[j] = order[j - 1];
        }
        order[j] = item;
    }
    return true;
}

void sortBySortKeys(std::vector<size_t>& order, const QCollator& collator, const std::vector<QString>& names,
                    const std::vector<const char*>& bytes)
{
    std::vector<QCollatorSortKey> keys;
    keys.reserve(names.size());
    for (const QString& name : names)
        keys.push_back(collator.sortKey(name));
    std::iota(order.begin(), order.end(), size_t(0));
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) {
        const int byKey = keys[a].compare(keys[b]);
        if (byKey != 0)
            return byKey < 0;
        return std::strcmp(bytes[a], bytes[b]) < 0;
    });
}

} // namespace

std::vector<size_t> fileManagerOrder(const std::vector<QString>& names, const std::vector<const char*>& bytes)
{
    // The collator and the ranks of the ASCII characters (a thousand collator calls)
    // are kept for the next listing while the user's language stays the same.
    struct Ordering {
        QLocale locale;
        QCollator collator;
        StandInKey standIn;
    };
    thread_local std::optional<Ordering> ordering;
    const QLocale locale = collatorLocale();
    if (!ordering || ordering->locale != locale) {
        const QCollator made = fileManagerCollator(locale);
        ordering.emplace(Ordering{locale, made, StandInKey(made)});
    }
    const QCollator& collator = ordering->collator;
    const StandInKey& standIn = ordering->standIn;
    std::string keys;
    std::vector<size_t> starts;
    starts.reserve(names.size() + 1);
    for (const QString& name : names) {
        starts.push_back(keys.size());
        standIn.append(name, keys);
    }
    starts.push_back(keys.size());
    const auto keyOf = [&](size_t i) {
        return std::string_view(keys.data() + starts[i], starts[i + 1] - starts[i]);
    };

    // The names of a big folder often begin alike ("IMG_" and a number): each is
    // sorted by the eight bytes of its key after what all keys share, and only
    // when those are equal by the rest of its key and by its bytes.
    size_t shared = names.empty() ? 0 : keyOf(0).size();
    for (size_t i = 1; i < names.size() && shared > 0; ++i) {
        const std::string_view first = keyOf(0).substr(0, shared);
        const std::string_view key = keyOf(i);
        shared =
            size_t(std::mismatch(first.begin(), first.end(), key.begin(), key.end()).first - first.begin());
    }
    std::vector<Entry> entries(names.size());
    for (size_t i = 0; i < names.size(); ++i) {
        const std::string_view rest = keyOf(i).substr(shared);
        uint64_t head = 0;
        for (size_t k = 0; k < sizeof head; ++k)
            head = head << 8 | (k < rest.size() ? uint8_t(rest[k]) : 0);
        entries[i] = {head, i};
    }
    sortByHeads(entries);
    // Names with the same eight bytes: by the rest of their keys, then their bytes.
    for (auto run = entries.begin(); run != entries.end();) {
        const auto runEnd =
            std::find_if(run, entries.end(), [&](const Entry& e) { return e.head != run->head; });
        if (runEnd - run > 1)
            std::sort(run, runEnd, [&](const Entry& a, const Entry& b) {
                const int byKey = keyOf(a.index).substr(shared).compare(keyOf(b.index).substr(shared));
                return byKey != 0 ? byKey < 0 : std::strcmp(bytes[a.index], bytes[b.index]) < 0;
            });
        run = runEnd;
    }
    std::vector<size_t> order(names.size());
    for (size_t i = 0; i < names.size(); ++i)
        order[i] = entries[i].index;

    const auto before = [&](size_t a, size_t b) {
        const int byCollator = collator.compare(names[a], names[b]);
        if (byCollator != 0)
            return byCollator < 0;
        return std::strcmp(bytes[a], bytes[b]) < 0;
    };
    if (!insertionSort(order, before, names.size() / 4 + 64))
        sortBySortKeys(order, collator, names, bytes);
    return order;
}

} // namespace platform
