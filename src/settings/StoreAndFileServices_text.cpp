// The text and number helpers.

#include "settings/StoreAndFileServices.h"

#include "platform/core/App.h"
#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/widgets/Screen.h"

#include <QComboBox>
#include <QLineEdit>
#include <QList>
#include <QLocale>
#include <QPointer>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace err = platform::err;

namespace {

// The characters of a text as a person counts them: one outside the Basic
// Multilingual Plane is one character, not its two UTF-16 units.
class Characters {
public:
    explicit Characters(const QString& text) : text_(text)
    {
        for (qsizetype i = 0; i < text_.size();) {
            starts_.append(i);
            const bool pair =
                text_.at(i).isHighSurrogate() && i + 1 < text_.size() && text_.at(i + 1).isLowSurrogate();
            i += pair ? 2 : 1;
        }
        starts_.append(text_.size());
    }

    qsizetype count() const { return starts_.size() - 1; }
    QStringView at(qsizetype index) const
    {
        return QStringView(text_).mid(starts_[index], unitsOf(index, 1));
    }
    // Characters `from` up to, not including, `to`.
    QString slice(qsizetype from, qsizetype to) const
    {
        return text_.mid(starts_[from], unitsOf(from, to - from));
    }

private:
    qsizetype unitsOf(qsizetype from, qsizetype count) const { return starts_[from + count] - starts_[from]; }

    QString text_;
    QList<qsizetype> starts_;
};

// PIECE and TOKENLEFT walk a text with a 16-bit position: a text of more than 32767
// characters overflows before the walk begins.
Characters walkable(const QString& text)
{
    Characters characters(text);
    if (characters.count() > 32767)
        throw platform::Error(err::Overflow);
    return characters;
}

// Blanks are spaces only, as the runtime trims them; a tab is part of a word.
QString trimBlanks(const QString& text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == QLatin1Char(' '))
        ++begin;
    while (end > begin && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return text.mid(begin, end - begin);
}

// A number with `decimals` decimals (one or more) and at least one digit before the
// mark, '.' as the decimal mark and no grouping. Rounding works on the shortest
// decimal form of the number, which is the form the user typed, and takes halves
// away from zero as one rounds by hand: "0.25" gives "0.3" and "2.675" gives "2.68",
// although the binary value of 2.675 lies just below the half. No negative zero:
// "-0.01" gives "0.0".
QString fixedText(double value, int decimals)
{
    QString digits = QString::number(std::fabs(value), 'f', QLocale::FloatingPointShortest);
    qsizetype mark = digits.indexOf(QLatin1Char('.'));
    if (mark < 0) {
        mark = digits.size();
        digits += QLatin1Char('.');
    }
    const qsizetype roundAt = mark + 1 + decimals; // the first digit that goes
    while (digits.size() <= roundAt)
        digits += QLatin1Char('0');
    const bool up = digits.at(roundAt) >= QLatin1Char('5');
    digits.truncate(roundAt);
    if (up) {
        qsizetype i = digits.size() - 1;
        for (; i >= 0; --i) {
            if (digits.at(i) == QLatin1Char('.'))
                continue;
            if (digits.at(i) != QLatin1Char('9')) {
                digits[i] = QChar(digits.at(i).unicode() + 1);
                break;
            }
            digits[i] = QLatin1Char('0');
        }
        if (i < 0)
            digits.prepend(QLatin1Char('1'));
    }
    const bool zero =
        std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c == u'0' || c == u'.'; });
    return value < 0 && !zero ? QLatin1Char('-') + digits : digits;
}

// The number formats: a text that reads as a number comes back with `decimals`
// decimals, a text that isn't a number comes back as it stands, and a number that
// can't be formatted (one beyond the range of a double) gives `onFailure`.
QString formatNumber(const QString& text, int decimals, const QString& onFailure)
{
    try {
        return fixedText(platform::toDouble(text), decimals);
    } catch (const platform::Error& error) {
        return error.number() == err::TypeMismatch ? text : onFailure;
    }
}

const QString WindowsVersionKey = QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION");

// What COMBOINIT's register flag hands a combo box to. On the original platform that
// was an outside party's class that nothing in the program reads back; this stand-in
// only keeps a guarded pointer to the combo box for the life of the program.
class ComboRegistration {
public:
    void Attach(QComboBox*& combo) { combo_ = combo; }

private:
    QPointer<QComboBox> combo_;
};

// COMBOINIT's module state: the number of initialised combo boxes, and one place per
// count for a registration (empty for a combo box initialised without the flag).
int32_t comboCount = 0;
std::vector<std::unique_ptr<ComboRegistration>> comboRegistrations;

} // namespace

bool StoreAndFileServices::CHARCHECK(const QString& STR, const QString& CHAR)
{
    const Characters characters(STR);
    for (qsizetype i = 0; i < characters.count(); ++i) {
        if (characters.at(i) == CHAR)
            return false;
    }
    return true;
}

void StoreAndFileServices::COMBOINIT(const QString& /*hWnd*/, const QString& Rows, QComboBox* Combo,
                                     bool Register)
{
    ++comboCount;
    if (Register) {
        comboRegistrations.resize(size_t(comboCount));
        comboRegistrations.back() = std::make_unique<ComboRegistration>();
        comboRegistrations.back()->Attach(Combo);
    }
    // The original measured the item height and sized the drop-down window, found
    // by its handle, to hold the rows plus two for its frame. Qt sizes the popup from
    // the number of rows and its own frame, and needs no handle. At least one row.
    const int32_t rows = platform::toInt32(Rows);
    if (Combo)
        Combo->setMaxVisibleItems(std::max(rows, 1));
}

QString StoreAndFileServices::CURRENCYFMT(const QString& NUMBER)
{
    if (NUMBER.isEmpty())
        return QString();
    return formatNumber(NUMBER, 2, NUMBER);
}

QString StoreAndFileServices::GETAPPNUMBER()
{
    const QStringList parts = platform::App::Version().split(QLatin1Char('.'));
    return parts.value(0).trimmed() + QLatin1Char('.') + parts.value(1, QStringLiteral("0")).trimmed();
}

QString StoreAndFileServices::GETCAPTION(const QString& sCaption)
{
    // The cut comes first, so the accelerator markers count among the 32.
    constexpr qsizetype Longest = 32;
    const Characters characters(sCaption);
    QString caption = sCaption;
    if (characters.count() > Longest)
        caption = characters.slice(0, Longest) + QStringLiteral("...");
    return caption.remove(QLatin1Char('&'));
}

QString StoreAndFileServices::GETCOMPANYNAME()
{
    return REGSTRREAD(localMachineKey(), WindowsVersionKey, QStringLiteral("RegisteredOwner"), QString());
}

QString StoreAndFileServices::GETCOMPANYREG()
{
    return REGSTRREAD(currentUserKey(), WindowsVersionKey, QStringLiteral("RegisteredOrganization"),
                      QString());
}

QString StoreAndFileServices::GETHEXVAL(int32_t COLOR)
{
    const auto color = static_cast<uint32_t>(COLOR);
    const auto channel = [color](int shift) {
        return QStringLiteral("%1").arg((color >> shift) & 0xFFu, 2, 16, QLatin1Char('0')).toUpper();
    };
    return QLatin1Char('#') + channel(0) + channel(8) + channel(16);
}

QString StoreAndFileServices::HEX2STR(const QString& INHEX)
{
    int16_t number = 0;
    platform::resumeNext([&] { number = platform::toInt16(QStringLiteral("&H") + INHEX); });
    return QString::number(number);
}

QString StoreAndFileServices::HTMLFORMATCHECK(const QString& STR)
{
    if (STR.isEmpty())
        return QString();
    // "https://" is complete too: today's addresses mostly begin with it, and a
    // second scheme in front would spoil them.
    for (const QLatin1String scheme :
         {QLatin1String("http://"), QLatin1String("https://"), QLatin1String("ftp://")}) {
        if (STR.startsWith(scheme, Qt::CaseInsensitive))
            return STR;
    }
    return QStringLiteral("http://") + STR;
}

double StoreAndFileServices::PIECE(const QString& STR, const QString& SEPARATOR, int16_t PIECENO)
{
    const Characters characters = walkable(STR);
    const int wanted = PIECENO;
    int separators = 0;
    qsizetype start = 0; // the first character of the piece
    for (qsizetype i = 0; i < characters.count(); ++i) {
        if (characters.at(i) != SEPARATOR)
            continue;
        ++separators;
        if (separators == wanted - 1)
            start = i + 1;
        if (separators == wanted)
            return platform::toDouble(characters.slice(start, i)); // not a number: the caller's error
    }
    if (separators == wanted - 1)
        return platform::val(characters.slice(start, characters.count()));
    return 0.0;
}

double StoreAndFileServices::SHOWUNITS(int32_t Value, bool AlongX, float PrinterTwipsPerPixelX,
                                       float PrinterTwipsPerPixelY)
{
    const double twipsPerPixel = AlongX ? PrinterTwipsPerPixelX : PrinterTwipsPerPixelY;
    return double(Value) * twipsPerPixel / 1440.0;
}

QString StoreAndFileServices::TEXTJUSTIFY(const QString& STR)
{
    return formatNumber(STR, 1, QString());
}

QString StoreAndFileServices::TEXTJUSTIFYCURRENCY(const QString& STR)
{
    return formatNumber(STR, 2, QString());
}

QString StoreAndFileServices::TOKENLEFT(const QString& Source, const QString& TOKEN)
{
    const Characters characters = walkable(Source);
    for (qsizetype i = 0; i < characters.count(); ++i) {
        if (characters.at(i) == TOKEN)
            return characters.slice(0, i);
    }
    return QString();
}

int16_t StoreAndFileServices::TXTCURRENCYLOCK(QLineEdit* TXTBOX, int16_t KEYASCIIVAL)
{
    constexpr int16_t Backspace = 8;
    constexpr int16_t FullStop = 46;
    if ((KEYASCIIVAL >= '0' && KEYASCIIVAL <= '9') || KEYASCIIVAL == Backspace)
        return KEYASCIIVAL;
    if (KEYASCIIVAL != FullStop)
        return 0;
    // A stop that replaces the whole text passes; otherwise only a text without a stop
    // takes one. The original looked for the stop by selecting each position in turn
    // and then put the cursor back, which dropped the user's selection; reading the
    // text gives the same answer and leaves the selection for the key to replace.
    const QString text = TXTBOX->text();
    if (TXTBOX->selectionLength() == text.size())
        return FullStop;
    return text.contains(QLatin1Char('.')) ? 0 : FullStop;
}

int32_t StoreAndFileServices::WORDCOUNT(const QString& TEXT)
{
    // Lines end in CR LF in the original's texts and in LF alone in this desktop's:
    // both are line ends here, and a hyphen right before one joins the word parts.
    QString text = TEXT;
    text.replace(QStringLiteral("-\r\n"), QString()).replace(QStringLiteral("-\n"), QString());
    text = trimBlanks(text);
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(QLatin1Char('\n'), QLatin1Char(' '));
    text = trimBlanks(text);
    while (text.contains(QStringLiteral("  ")))
        text.replace(QStringLiteral("  "), QStringLiteral(" "));
    if (text.isEmpty())
        return 0;
    return int32_t(text.count(QLatin1Char(' ')) + 1);
}

std::pair<int32_t, int32_t> StoreAndFileServices::PIXELSTOTWIPS(int32_t x, int32_t y)
{
    // toInt32 rounds halves to the even neighbour.
    return {platform::toInt32(double(x) * platform::Screen::TwipsPerPixelX()),
            platform::toInt32(double(y) * platform::Screen::TwipsPerPixelY())};
}

std::pair<int32_t, int32_t> StoreAndFileServices::TWIPSTOPIXELS(int32_t x, int32_t y)
{
    return {platform::toInt32(double(x) / platform::Screen::TwipsPerPixelX()),
            platform::toInt32(double(y) / platform::Screen::TwipsPerPixelY())};
}
