#include "KRGPXPointScanner.h"

#include "KRGPXTrackSegment.h"

#include <KRCore/KRMath.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>

namespace {

/// Open elements within a point that are not left to the XML reader.
constexpr int deepestNesting = 8;

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

/// Text without markup, references and the start of "]]>".
bool isPlainText(char character)
{
    return (character >= ' ' && character <= '~' && character != '<' && character != '&' && character != ']')
           || isBlank(character);
}

} // namespace

const char *KRGPXPointScanner::scan(const char *begin, const char *end, KRGPXTrackSegment *segment, int mostPoints,
                                    int mostLevels)
{
    const char *taken = begin;
    qint64 takenNodes = 0;
    m_at = begin;
    m_end = end;
    m_nodes = 0;
    for (m_points = 0; m_points < mostPoints && readPoint(segment, mostLevels); ++m_points) {
        taken = m_at;
        takenNodes = m_nodes;
    }
    m_nodes = takenNodes;
    return taken;
}

/// False, with the segment as it was, unless there is a plain point, whole.
bool KRGPXPointScanner::readPoint(KRGPXTrackSegment *segment, int mostLevels)
{
    double latitude = 0.0;
    double longitude = 0.0;
    double elevation = 0.0;
    qint64 time = KRGPXTrackSegment::noTime;
    bool hasElevation = false;
    bool hasTime = false;
    skipBlanks();
    if (!skip("<trkpt lat=\"") || !readDecimal(&latitude) || !skip("\" lon=\"") || !readDecimal(&longitude))
        return false;
    m_nodes += 3;
    if (!skip("\"/>")) {
        if (!skip("\">"))
            return false;
        for (skipBlanks(); !skip("</trkpt>"); skipBlanks()) {
            if (!hasElevation && skip("<ele>")) {
                hasElevation = true;
                if (!readDecimal(&elevation) || !skip("</ele>"))
                    return false;
                m_nodes += 2;
            } else if (!hasTime && skip("<time>")) {
                hasTime = true;
                if (!readTime(&time) || !skip("</time>"))
                    return false;
                m_nodes += 2;
            } else if (!skipElement(mostLevels)) {
                return false;
            }
        }
    }
    segment->append(latitude, longitude, KRMath::toInt(elevation), time);
    return true;
}

/// Digits with or without decimals, not at the end of what is there: the number might go on.
bool KRGPXPointScanner::readDecimal(double *value)
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
    const std::from_chars_result result = std::from_chars(begin, m_at, *value);
    return result.ec == std::errc() && result.ptr == m_at;
}

bool KRGPXPointScanner::readTime(qint64 *milliseconds)
{
    constexpr int lengthWithoutZone = KRGPXUtcTime::shortLength - 1;
    if (m_end - m_at < KRGPXUtcTime::longLength)
        return false;
    const int length = m_at[lengthWithoutZone] == '.' ? KRGPXUtcTime::longLength : KRGPXUtcTime::shortLength;
    *milliseconds = m_time.read(m_at, length);
    m_at += length;
    return *milliseconds != KRGPXTrackSegment::noTime;
}

/// An element that says nothing of the point, with all in it.
bool KRGPXPointScanner::skipElement(int mostLevels)
{
    std::array<std::string_view, deepestNesting> open;
    std::size_t depth = 0;
    const std::size_t mostDepth = std::size_t(std::clamp(mostLevels, 0, deepestNesting));
    do {
        const char *name = nullptr;
        std::size_t length = 0;
        if (skip("</")) {
            if (depth == 0 || !readName(&name, &length) || open[--depth] != std::string_view(name, length)
                || !skip(">"))
                return false;
        } else if (skip("<")) {
            if (depth == mostDepth || !readName(&name, &length))
                return false;
            const std::string_view tag(name, length);
            // Written in an unusual way, or a second time.
            if (depth == 0 && (tag == "ele" || tag == "time" || tag == "desc"))
                return false;
            ++m_nodes;
            if (skip(">"))
                open[depth++] = tag;
            else if (!skip("/>"))
                return false;
        } else if (depth == 0 || !skipText()) {
            return false;
        }
    } while (depth > 0);
    return true;
}

bool KRGPXPointScanner::skipText()
{
    const char *const begin = m_at;
    m_at = std::find_if_not(begin, m_end, isPlainText);
    ++m_nodes;
    return m_at != begin;
}

/// With one prefix at most.
bool KRGPXPointScanner::readName(const char **name, std::size_t *length)
{
    *name = m_at;
    int parts = 0;
    do {
        if (isAtEnd() || !startsName(*m_at) || ++parts > 2)
            return false;
        m_at = std::find_if_not(m_at, m_end, continuesName);
    } while (skip(":"));
    *length = std::size_t(m_at - *name);
    return true;
}

void KRGPXPointScanner::skipBlanks()
{
    if (isAtEnd() || !isBlank(*m_at))
        return;
    m_at = std::find_if_not(m_at, m_end, isBlank);
    ++m_nodes;
}

template <std::size_t size>
bool KRGPXPointScanner::skip(const char (&text)[size])
{
    constexpr std::size_t length = size - 1; // without the zero at the end
    if (std::size_t(m_end - m_at) < length || std::memcmp(m_at, text, length) != 0)
        return false;
    m_at += length;
    return true;
}
