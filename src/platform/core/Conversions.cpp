#include "platform/core/Conversions.h"

#include "platform/core/Error.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTime>

#include <cerrno>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale.h>
#include <optional>

namespace platform {

namespace {

// A number as read from text, before it is narrowed to its target type.
struct Scanned {
    double value = 0.0;
    bool overflow = false; // the magnitude doesn't fit a double
};

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

int hexDigit(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'a' && u <= u'f')
        return u - u'a' + 10;
    if (u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    return -1;
}

bool isExponentMark(QChar c)
{
    // The runtime writes 'E' and also reads the 'D' of double-precision literals.
    const char16_t u = c.unicode();
    return u == u'e' || u == u'E' || u == u'd' || u == u'D';
}

// strtod in the "C" locale: Qt sets the process locale from the environment, and a
// locale with ',' as decimal mark must not change how stored numbers read back.
double strtodC(const QByteArray& ascii, bool* overflow)
{
    static locale_t cLocale = newlocale(LC_ALL_MASK, "C", locale_t(nullptr));
    errno = 0;
    const double result = strtod_l(ascii.constData(), nullptr, cLocale);
    // ERANGE with a tiny result is an underflow, which simply reads as (nearly) zero.
    *overflow = errno == ERANGE && std::isinf(result);
    return result;
}

// Reads "&H" hex or "&O" octal digits at text[pos] (just after the '&'). The runtime's
// radix literals are 16-bit when they have up to 4 hex (6 octal) significant digits
// and 32-bit up to 8 hex (11 octal) digits, both in two's complement, so "&HFFFF" is
// -1. Returns the end position, or nothing when no digit follows the radix letter.
std::optional<qsizetype> scanRadix(const QString& text, qsizetype pos, Scanned* out)
{
    if (pos >= text.size())
        return std::nullopt;
    const char16_t letter = text.at(pos).toUpper().unicode();
    if (letter != u'H' && letter != u'O')
        return std::nullopt;
    const int base = letter == u'H' ? 16 : 8;
    qsizetype i = pos + 1;
    const qsizetype first = i;
    quint64 magnitude = 0;
    bool tooBig = false;
    for (; i < text.size(); ++i) {
        const int d = hexDigit(text.at(i));
        if (d < 0 || d >= base)
            break;
        magnitude = magnitude * base + d;
        if (magnitude > 0xFFFFFFFFull)
            tooBig = true;
    }
    if (i == first)
        return std::nullopt;
    if (tooBig) {
        out->overflow = true;
        out->value = 0.0;
    } else if (magnitude <= 0xFFFF && (base == 16 ? i - first <= 4 : magnitude <= 0177777)) {
        out->value = static_cast<int16_t>(static_cast<uint16_t>(magnitude));
    } else {
        out->value = static_cast<int32_t>(static_cast<uint32_t>(magnitude));
    }
    return i;
}

// Reads a decimal number at text[pos]: an optional sign, digits with an optional
// '.' fraction, and an optional exponent. With `lenient`, an exponent mark that isn't
// followed by digits ends the number before the mark. Returns the end position, or
// nothing when there is no mantissa digit.
std::optional<qsizetype> scanDecimal(const QString& text, qsizetype pos, bool lenient, Scanned* out)
{
    QByteArray ascii;
    qsizetype i = pos;
    if (i < text.size() && (text.at(i) == QLatin1Char('+') || text.at(i) == QLatin1Char('-')))
        ascii += text.at(i++).toLatin1();
    int digits = 0;
    for (; i < text.size() && isDigit(text.at(i)); ++i, ++digits)
        ascii += text.at(i).toLatin1();
    if (i < text.size() && text.at(i) == QLatin1Char('.')) {
        ascii += '.';
        for (++i; i < text.size() && isDigit(text.at(i)); ++i, ++digits)
            ascii += text.at(i).toLatin1();
    }
    if (digits == 0)
        return std::nullopt;
    if (i < text.size() && isExponentMark(text.at(i))) {
        qsizetype j = i + 1;
        QByteArray exponent = "e";
        if (j < text.size() && (text.at(j) == QLatin1Char('+') || text.at(j) == QLatin1Char('-')))
            exponent += text.at(j++).toLatin1();
        const qsizetype firstDigit = j;
        for (; j < text.size() && isDigit(text.at(j)); ++j)
            exponent += text.at(j).toLatin1();
        if (j > firstDigit) {
            ascii += exponent;
            i = j;
        } else if (!lenient) {
            return std::nullopt;
        }
    }
    out->value = strtodC(ascii, &out->overflow);
    return i;
}

bool isBlank(QChar c)
{
    return c.isSpace();
}

// The strict reading: the whole text, apart from surrounding blanks, must be one number.
Scanned scanStrict(const QString& text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && isBlank(text.at(begin)))
        ++begin;
    while (end > begin && isBlank(text.at(end - 1)))
        --end;
    const QString body = text.mid(begin, end - begin);

    Scanned result;
    std::optional<qsizetype> stop;
    if (body.startsWith(QLatin1Char('&')))
        stop = scanRadix(body, 1, &result);
    else
        stop = scanDecimal(body, 0, false, &result);
    if (!stop || *stop != body.size())
        throw Error(err::TypeMismatch);
    if (result.overflow)
        throw Error(err::Overflow);
    return result;
}

template <typename Int> Int narrow(double value)
{
    if (std::isnan(value))
        throw Error(err::Overflow);
    const double rounded = bankersRound(value);
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max()))
        throw Error(err::Overflow);
    return static_cast<Int>(rounded);
}

} // namespace

double bankersRound(double value)
{
    if (!std::isfinite(value))
        return value;
    const double whole = std::trunc(value);
    if (std::fabs(value - whole) == 0.5)
        return 2.0 * std::round(value / 2.0);
    return std::round(value);
}

int16_t toInt16(const QString& text)
{
    return narrow<int16_t>(scanStrict(text).value);
}

int32_t toInt32(const QString& text)
{
    return narrow<int32_t>(scanStrict(text).value);
}

float toFloat(const QString& text)
{
    const double value = scanStrict(text).value;
    // From the midpoint between FLT_MAX and 2^128 on, a double rounds to infinity.
    if (std::fabs(value) >= 0x1.ffffffp+127)
        throw Error(err::Overflow);
    return static_cast<float>(value);
}

double toDouble(const QString& text)
{
    return scanStrict(text).value;
}

bool toBool(const QString& text)
{
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
        return false;
    return scanStrict(text).value != 0.0;
}

int16_t toInt16(double value)
{
    return narrow<int16_t>(value);
}

int32_t toInt32(double value)
{
    return narrow<int32_t>(value);
}

double val(const QString& text)
{
    // Blanks, tabs and line feeds are skipped wherever they stand.
    QString packed;
    packed.reserve(text.size());
    for (QChar c : text) {
        if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n'))
            packed += c;
    }
    Scanned result;
    std::optional<qsizetype> stop;
    if (packed.startsWith(QLatin1Char('&')))
        stop = scanRadix(packed, 1, &result);
    else
        stop = scanDecimal(packed, 0, true, &result);
    if (!stop)
        return 0.0;
    if (result.overflow) {
        // Val never fails; a number too large for a double reads as the largest one,
        // so that narrowing it later reports the overflow.
        return std::signbit(result.value) ? -DBL_MAX : DBL_MAX;
    }
    return result.value;
}

QString boolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

QString floatText(float value)
{
    if (value == 0.0f)
        return QStringLiteral("0"); // also for -0
    // Seven significant digits, trailing zeros dropped, and the exponent form
    // ("1.234568E+07", "1E-05") where the plain one would need more digits.
    return QString::number(static_cast<double>(value), 'G', 7);
}

QString numberText(qint64 value)
{
    return QString::number(value);
}

QString longTimeFormat(const QLocale& locale)
{
    // The zone is a run of 't' outside quotes, maybe in brackets, maybe after a
    // comma ("HH:mm:ss t", "H:mm:ss (t)", "Bh:mm:ss [t]", "HH:mm:ss, t", "t HH:mm:ss").
    static const QRegularExpression zone(QStringLiteral("[,\\s]*[(\\[]?t+[)\\]]?"));
    const QString format = locale.timeFormat(QLocale::LongFormat);
    QString result;
    // Quoted parts are literal text and stay as they are; '' is a quote mark.
    qsizetype start = 0;
    bool quoted = false;
    for (qsizetype i = 0; i <= format.size(); ++i) {
        if (i < format.size() && format.at(i) != QLatin1Char('\''))
            continue;
        QString part = format.mid(start, i - start);
        if (!quoted)
            part.remove(zone);
        result += part;
        if (i < format.size())
            result += QLatin1Char('\'');
        quoted = !quoted;
        start = i + 1;
    }
    return result.trimmed();
}

QString longTimeText(const QLocale& locale, const QTime& time)
{
    return locale.toString(time, longTimeFormat(locale));
}

} // namespace platform
