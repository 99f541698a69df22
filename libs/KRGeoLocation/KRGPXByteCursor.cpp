#include "KRGPXByteCursor.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <charconv>

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\r' || character == '\t';
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool startsName(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') || character == '_';
}

bool continuesName(char character)
{
    return startsName(character) || isDigit(character) || character == '-' || character == '.';
}

} // namespace

bool KRGPXByteCursor::skipBlanks()
{
    if (isAtEnd() || !isBlank(*m_at))
        return false;
    m_at = std::find_if_not(m_at, m_end, isBlank);
    return true;
}

bool KRGPXByteCursor::readName(std::string_view *name)
{
    const char *const begin = m_at;
    int parts = 0;
    do {
        if (isAtEnd() || !startsName(*m_at) || ++parts > 2)
            return false;
        m_at = std::find_if_not(m_at, m_end, continuesName);
    } while (skip(":"));
    *name = std::string_view(begin, std::size_t(m_at - begin));
    return true;
}

bool KRGPXByteCursor::readText(std::string_view *text)
{
    const char *const begin = m_at;
    m_at = endOfCharacters('<');
    *text = std::string_view(begin, std::size_t(m_at - begin));
    return !isAtEnd() && *m_at == '<';
}

bool KRGPXByteCursor::readValue(std::string_view *value)
{
    if (isAtEnd() || (*m_at != '"' && *m_at != '\''))
        return false;
    const char quote = *m_at++;
    const char *const begin = m_at;
    m_at = endOfCharacters(quote);
    *value = std::string_view(begin, std::size_t(m_at - begin));
    // A reader turns other blanks into spaces.
    if (isAtEnd() || *m_at != quote || value->find_first_of("\t\n\r") != std::string_view::npos)
        return false;
    ++m_at;
    return true;
}

bool KRGPXByteCursor::readDecimal(double *value)
{
    constexpr std::ptrdiff_t mostExactDigits = 15;
    constexpr std::ptrdiff_t mostCharacters = 32;
    static constexpr std::array<double, mostExactDigits + 1> powersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const char *const begin = m_at;
    const bool isNegative = skip("-");
    quint64 number = 0;
    const auto readDigits = [&] {
        const char *const first = m_at;
        for (; !isAtEnd() && isDigit(*m_at); ++m_at)
            number = number * 10 + quint64(*m_at - '0');
        return m_at - first;
    };
    const std::ptrdiff_t digits = readDigits();
    const bool hasPoint = skip(".");
    const std::ptrdiff_t decimals = hasPoint ? readDigits() : 0;
    if (isAtEnd() || digits == 0 || (hasPoint && decimals == 0) || m_at - begin > mostCharacters)
        return false;
    if (digits + decimals <= mostExactDigits) {
        // Both are exact as a double, so the quotient is rounded once, like any other way to read the number.
        const double magnitude = double(number) / powersOfTen[std::size_t(decimals)];
        *value = isNegative ? -magnitude : magnitude;
        return true;
    }
    std::from_chars(begin, m_at, *value); // so few digits are always a number
    return true;
}

/// Where the first character stands that is @p stop, markup, a reference, what may be "]]>" or none that may be.
const char *KRGPXByteCursor::endOfCharacters(char stop) const
{
    const char *at = m_at;
    while (at != m_end) {
        if ((*at >= ' ' && *at <= '~') || isBlank(*at)) {
            const bool isBracket = *at == ']' && m_end - at > 1 && at[1] == ']';
            if (*at == stop || *at == '<' || *at == '&' || isBracket)
                return at;
            ++at;
        } else if (const int length = lengthOfCharacter(at)) {
            at += length;
        } else {
            return at;
        }
    }
    return at;
}

/// Bytes of a character beyond ASCII (RFC 3629); 0 where none stands, whole, or one that is a mark of the byte order or
/// none at all.
int KRGPXByteCursor::lengthOfCharacter(const char *at) const
{
    if (!m_isUtf8)
        return 0;
    const auto byte = [at](int index) { return uchar(at[index]); };
    const auto continues = [&](int index, uchar least = 0x80, uchar most = 0xBF) {
        return byte(index) >= least && byte(index) <= most;
    };
    if (byte(0) >= 0xC2 && byte(0) <= 0xDF && m_end - at >= 2)
        return continues(1) ? 2 : 0;
    if (byte(0) >= 0xF0 && byte(0) <= 0xF4 && m_end - at >= 4) {
        const bool isInRange = continues(1, byte(0) == 0xF0 ? 0x90 : 0x80, byte(0) == 0xF4 ? 0x8F : 0xBF);
        return isInRange && continues(2) && continues(3) ? 4 : 0;
    }
    if (byte(0) < 0xE0 || byte(0) > 0xEF || m_end - at < 3)
        return 0;
    const bool isShortest = byte(0) != 0xE0 || continues(1, 0xA0);
    const bool isSurrogate = byte(0) == 0xED && byte(1) >= 0xA0;
    const bool isSpecial = byte(0) == 0xEF && byte(1) >= 0xBB;
    return continues(1) && continues(2) && isShortest && !isSurrogate && !isSpecial ? 3 : 0;
}
