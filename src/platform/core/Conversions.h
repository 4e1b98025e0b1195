#pragma once

#include <QString>

#include <cstdint>

class QLocale;
class QTime;

// The runtime's conversions between text and numbers, with its failure rules:
// a strict conversion of text that is not a number throws a type mismatch, a
// value outside the target's range throws an overflow, and halves round to the
// even neighbour. Numbers are written and read with '.' as the decimal mark,
// whatever the user's locale, so that stored values read back on any machine.
namespace platform {

// Rounds halves to the even neighbour: 2.5 -> 2, 3.5 -> 4, -2.5 -> -2.
double bankersRound(double value);

// Strict conversions; surrounding blanks are allowed, anything else throws.
int16_t toInt16(const QString& text); // CInt
int32_t toInt32(const QString& text); // CLng
float toFloat(const QString& text);   // CSng
double toDouble(const QString& text); // CDbl
bool toBool(const QString& text);     // CBool: "True"/"False" in any case, or a number (0 is false)

// Numeric narrowing with rounding to even and overflow checks.
int16_t toInt16(double value);
int32_t toInt32(double value);

// The lenient conversion (Val): reads the longest number at the start of the
// text, skipping blanks anywhere in it; no number gives 0. Never throws.
double val(const QString& text);

// Text forms as the runtime writes them.
QString boolText(bool value);     // "True" / "False"
QString floatText(float value);   // 32-bit float with up to 7 significant digits: "3585", "0.5"
QString numberText(qint64 value); // decimal digits, no padding

// The time in the locale's long time format as the old platform had it: hours,
// minutes and seconds with the locale's marks, and no time zone. The toolkit's
// long format names the zone ("20:09:52 UTC"); that part, with the brackets or
// comma that set it off, is left out.
QString longTimeFormat(const QLocale& locale);
QString longTimeText(const QLocale& locale, const QTime& time);

} // namespace platform
