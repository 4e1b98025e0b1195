#include "platform/core/FileNames.h"

#include <algorithm>
#include <sys/stat.h>

namespace platform {

namespace {

// The escape of a byte that isn't part of a valid UTF-8 sequence. Such a byte is
// always 0x80 or above, so escapes fill U+F780..U+F7FF only.
constexpr char32_t EscapeBase = 0xF700;
constexpr char32_t FirstEscape = 0xF780;
constexpr char32_t LastEscape = 0xF7FF;

bool isEscape(char32_t cp)
{
    return cp >= FirstEscape && cp <= LastEscape;
}

bool isContinuation(unsigned char b)
{
    return (b & 0xC0) == 0x80;
}

// The length of the valid UTF-8 sequence at data[i] and the code point it encodes,
// or 0 when the bytes there are not a valid sequence. Overlong forms, surrogates and
// code points above U+10FFFF are not valid.
int sequenceAt(const unsigned char* data, qsizetype size, qsizetype i, char32_t* cp)
{
    const unsigned char b0 = data[i];
    if (b0 < 0x80) {
        *cp = b0;
        return 1;
    }
    int length;
    unsigned char low = 0x80; // the range of the second byte
    unsigned char high = 0xBF;
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        length = 2;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        length = 3;
        if (b0 == 0xE0)
            low = 0xA0; // below is overlong
        else if (b0 == 0xED)
            high = 0x9F; // above are the surrogates
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        length = 4;
        if (b0 == 0xF0)
            low = 0x90; // below is overlong
        else if (b0 == 0xF4)
            high = 0x8F; // above is beyond U+10FFFF
    } else {
        return 0;
    }
    if (size - i < length)
        return 0;
    if (data[i + 1] < low || data[i + 1] > high)
        return 0;
    char32_t value = b0 & (0xFF >> (length + 1));
    for (int k = 1; k < length; ++k) {
        if (!isContinuation(data[i + k]))
            return 0;
        value = (value << 6) | (data[i + k] & 0x3F);
    }
    *cp = value;
    return length;
}

void appendUtf8(QByteArray& out, char32_t cp)
{
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

bool statMode(const QString& path, mode_t* mode)
{
    if (path.isEmpty())
        return false;
    struct stat st;
    if (::stat(encodeFileName(path).constData(), &st) != 0)
        return false;
    *mode = st.st_mode;
    return true;
}

} // namespace

QString decodeFileName(QByteArrayView bytes)
{
    // Most names are plain ASCII, which decodes character for character.
    if (!bytes.isEmpty() &&
        std::all_of(bytes.begin(), bytes.end(), [](char b) { return static_cast<unsigned char>(b) < 0x80; }))
        return QString::fromLatin1(bytes);
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    const qsizetype size = bytes.size();
    QString text;
    text.reserve(size);
    for (qsizetype i = 0; i < size;) {
        char32_t cp = 0;
        const int length = sequenceAt(data, size, i, &cp);
        if (length == 0) {
            text += QChar(char16_t(EscapeBase + data[i]));
            ++i;
        } else if (isEscape(cp)) {
            // The name holds a character of the escape range itself: escape its bytes,
            // so that decoding never yields an escape that stands for two things.
            for (int k = 0; k < length; ++k)
                text += QChar(char16_t(EscapeBase + data[i + k]));
            i += length;
        } else {
            if (QChar::requiresSurrogates(cp)) {
                text += QChar(QChar::highSurrogate(cp));
                text += QChar(QChar::lowSurrogate(cp));
            } else {
                text += QChar(char16_t(cp));
            }
            i += length;
        }
    }
    return text;
}

QByteArray encodeFileName(const QString& text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t unit = text.at(i).unicode();
        char32_t cp = unit;
        if (QChar::isHighSurrogate(unit) && i + 1 < size && QChar::isLowSurrogate(text.at(i + 1).unicode())) {
            cp = QChar::surrogateToUcs4(unit, text.at(i + 1).unicode());
            ++i;
        } else if (QChar::isSurrogate(unit)) {
            // A lone surrogate has no UTF-8 form; it can't come from decodeFileName.
            cp = QChar::ReplacementCharacter;
        }
        if (isEscape(cp))
            bytes += char(cp - EscapeBase);
        else
            appendUtf8(bytes, cp);
    }
    return bytes;
}

bool fileExists(const QString& path)
{
    mode_t mode = 0;
    return statMode(path, &mode) && S_ISREG(mode);
}

bool folderExists(const QString& path)
{
    mode_t mode = 0;
    return statMode(path, &mode) && S_ISDIR(mode);
}

} // namespace platform
