#include "KRGPXPointScanner.h"

#include "KRGPXTrackSegment.h"
#include "KRGPXVocabulary.h"

#include <KRCore/KRMath.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// Open elements within a point that are not left to the XML reader.
constexpr int deepestNesting = 8;

/// Attributes of a tag that are not left to it, as they are compared with each other.
constexpr std::size_t mostAttributes = 8;

QString toText(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), int(bytes.size()));
}

} // namespace

struct KRGPXPointScanner::Point {
    double latitude = KRGPXVocabulary::missingCoordinate;
    double longitude = KRGPXVocabulary::missingCoordinate;
    double elevation = 0.0;
    KRGPXTime time;
    QString description;
    bool hasElevation = false;
    bool hasTime = false;
    bool hasDescription = false;
};

const char *KRGPXPointScanner::scan(const char *begin, const char *end, KRGPXTrackSegment *segment,
                                    const Limits &limits)
{
    const char *taken = begin;
    qint64 takenNodes = 0;
    m_cursor = KRGPXByteCursor(begin, end, limits.isUtf8);
    m_isOnGlobeOnly = limits.isOnGlobeOnly;
    m_areNamesWhole = limits.areNamesWhole;
    m_points = 0;
    m_nodes = 0;
    m_characters = 0;
    while (m_points < limits.points && m_characters <= limits.characters && readPoint(segment, limits.levels)) {
        ++m_points;
        taken = m_cursor.at();
        takenNodes = m_nodes;
    }
    m_nodes = takenNodes;
    return taken;
}

/// False, with the segment as it was, unless there is a plain point, whole.
bool KRGPXPointScanner::readPoint(KRGPXTrackSegment *segment, int mostLevels)
{
    Point point;
    if (m_isOnGlobeOnly)
        point.latitude = point.longitude = std::nan("");
    skipBlanks();
    if (!m_cursor.skip("<trkpt") || !readPosition(&point))
        return false;
    if (!m_cursor.skip("/>")) {
        if (!m_cursor.skip(">"))
            return false;
        for (skipBlanks(); !m_cursor.skip("</trkpt>"); skipBlanks()) {
            if (!readChild(&point, mostLevels))
                return false;
        }
    }
    if (m_isOnGlobeOnly && !KRGPXVocabulary::isOnGlobe(point.latitude, point.longitude))
        return true;
    segment->append(point.latitude, point.longitude, KRMath::toInt(point.elevation), point.time, point.description);
    m_characters += point.description.size();
    return true;
}

/// The attributes of a point, neither of which needs to be there.
bool KRGPXPointScanner::readPosition(Point *point)
{
    bool hasLatitude = false;
    bool hasLongitude = false;
    ++m_nodes;
    while (m_cursor.skipBlanks()) {
        double *degrees = nullptr;
        if (!hasLatitude && m_cursor.skip("lat=")) {
            hasLatitude = true;
            degrees = &point->latitude;
        } else if (!hasLongitude && m_cursor.skip("lon=")) {
            hasLongitude = true;
            degrees = &point->longitude;
        } else {
            break;
        }
        ++m_nodes;
        if (!readCoordinate(degrees))
            return false;
    }
    return true;
}

bool KRGPXPointScanner::readCoordinate(double *degrees)
{
    const char *const begin = m_cursor.at();
    const double missing = *degrees;
    if (m_cursor.skip("\"") && m_cursor.readDecimal(degrees) && m_cursor.skip("\""))
        return true;
    m_cursor.returnTo(begin);
    std::string_view value;
    if (!m_cursor.readValue(&value))
        return false;
    *degrees = KRMath::toDouble(toText(value), missing);
    return true;
}

/// Of children with the same name the first one counts.
bool KRGPXPointScanner::readChild(Point *point, int mostLevels)
{
    Tag tag;
    if (mostLevels < 1 || !readTag(&tag) || (!m_areNamesWhole && tag.name.find(':') != std::string_view::npos))
        return false;
    ++m_nodes;
    if (!point->hasElevation && tag.name == "ele") {
        point->hasElevation = true;
        return tag.isEmpty || (readElevation(&point->elevation) && m_cursor.skip("</ele>"));
    }
    if (!point->hasTime && tag.name == "time") {
        point->hasTime = true;
        return tag.isEmpty || (readTime(point) && m_cursor.skip("</time>"));
    }
    if (!point->hasDescription && tag.name == "desc") {
        point->hasDescription = true;
        return tag.isEmpty || (readDescription(&point->description) && m_cursor.skip("</desc>"));
    }
    return tag.isEmpty || skipContent(tag, mostLevels);
}

bool KRGPXPointScanner::readElevation(double *metres)
{
    const char *const begin = m_cursor.at();
    if (m_cursor.readDecimal(metres) && m_cursor.startsWith('<')) {
        ++m_nodes;
        return true;
    }
    m_cursor.returnTo(begin);
    std::string_view text;
    if (!readText(&text))
        return false;
    *metres = KRMath::toDouble(toText(text), 0.0);
    return true;
}

bool KRGPXPointScanner::readTime(Point *point)
{
    std::string_view text;
    if (!readText(&text))
        return false;
    m_times.read(text.data(), int(text.size()), &point->time);
    return true;
}

bool KRGPXPointScanner::readDescription(QString *description)
{
    std::string_view text;
    if (!readText(&text))
        return false;
    *description = toText(text);
    // Readers do not agree on carriage returns, and on text of nothing but blanks, those of Unicode among them.
    const auto isBlank = [](QChar character) { return character.isSpace(); };
    return !description->contains(QLatin1Char('\r'))
           && (description->isEmpty() || !std::all_of(description->cbegin(), description->cend(), isBlank));
}

bool KRGPXPointScanner::readText(std::string_view *text)
{
    const bool isPlain = m_cursor.readText(text);
    m_nodes += text->empty() ? 0 : 1;
    return isPlain;
}

/// An opening tag with any attributes, of which there are no two of one name.
bool KRGPXPointScanner::readTag(Tag *tag)
{
    std::array<std::string_view, mostAttributes> names;
    auto end = names.begin();
    if (!m_cursor.skip("<") || !m_cursor.readName(&tag->name))
        return false;
    while (m_cursor.skipBlanks()) {
        if (m_cursor.startsWith('/') || m_cursor.startsWith('>'))
            break;
        std::string_view name;
        std::string_view value;
        if (end == names.end() || !m_cursor.readName(&name) || std::find(names.begin(), end, name) != end
            || !m_cursor.skip("=") || !m_cursor.readValue(&value))
            return false;
        *end++ = name;
        ++m_nodes;
    }
    tag->isEmpty = m_cursor.skip("/>");
    return tag->isEmpty || m_cursor.skip(">");
}

/// What follows the tag of an element that says nothing of the point, up to its end.
bool KRGPXPointScanner::skipContent(const Tag &tag, int mostLevels)
{
    std::array<std::string_view, deepestNesting> open;
    const std::size_t mostDepth = std::size_t(std::clamp(mostLevels, 0, deepestNesting));
    std::size_t depth = 1;
    open[0] = tag.name;
    while (depth > 0) {
        std::string_view text;
        if (!readText(&text))
            return false;
        if (m_cursor.skip("</")) {
            std::string_view name;
            if (!m_cursor.readName(&name) || open[--depth] != name || !m_cursor.skip(">"))
                return false;
        } else {
            Tag child;
            if (depth == mostDepth || !readTag(&child))
                return false;
            ++m_nodes;
            if (!child.isEmpty)
                open[depth++] = child.name;
        }
    }
    return true;
}
