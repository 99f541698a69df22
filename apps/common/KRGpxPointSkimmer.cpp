#include "KRGpxPointSkimmer.h"

#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRGPXByteCursor.h>
#include <KRGeoLocation/KRGPXVocabulary.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

namespace {

constexpr char pointStart[] = "<trkpt";
constexpr char pointEnd[] = "</trkpt";
constexpr int pointStartSize = sizeof pointStart - 1;
// Comments and CDATA of a point, and bytes of each.
constexpr int mostQuotes = 4;
constexpr std::size_t longestQuote = 500;

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r';
}

/// Looks at the bytes of one point; whatever it does not understand leaves it at the end.
class PointScanner
{
public:
    // Beyond ASCII encodings differ, and no position needs them.
    PointScanner(const char *begin, const char *end) : m_cursor(begin, end, false), m_end(end) { }

    /// Where the plain point ends that begins here, null if it is none or goes on behind the last byte.
    const char *endOfPlainPoint()
    {
        std::optional<double> latitude;
        std::optional<double> longitude;
        m_cursor.skip(pointStart);
        while (m_cursor.skipBlanks()) {
            if (!latitude && m_cursor.skip("lat="))
                latitude = readCoordinate();
            else if (!longitude && m_cursor.skip("lon="))
                longitude = readCoordinate();
            else
                break;
        }
        if (!latitude || !longitude || !KRGPXVocabulary::isOnGlobe(*latitude, *longitude))
            return nullptr;
        if (m_cursor.skip("/>"))
            return m_cursor.at();
        return m_cursor.skip(">") ? endOfContent() : nullptr;
    }

private:
    /// Not a number for anything but a quoted number.
    double readCoordinate()
    {
        const char *const begin = m_cursor.at();
        double degrees = 0.0;
        if (m_cursor.skip("\"") && m_cursor.readDecimal(&degrees) && m_cursor.skip("\""))
            return degrees;
        m_cursor.returnTo(begin);
        std::string_view value;
        return m_cursor.readValue(&value)
                   ? KRMath::toDouble(QString::fromLatin1(value.data(), int(value.size())), std::nan(""))
                   : std::nan("");
    }

    const char *endOfContent()
    {
        // With more of them the same bytes might be looked at from many beginnings of points.
        int quotesLeft = mostQuotes;
        while (goTo("<", size_t(m_end - m_cursor.at()))) {
            if (m_cursor.skip(pointEnd)) {
                m_cursor.skipBlanks();
                return m_cursor.skip(">") ? m_cursor.at() : nullptr;
            }
            // These two may quote an end.
            if (m_cursor.skip("<!--")) {
                if (--quotesLeft < 0 || !skipQuote("-->", "]]>"))
                    return nullptr;
            } else if (m_cursor.skip("<![CDATA[")) {
                if (--quotesLeft < 0 || !skipQuote("]]>", "-->"))
                    return nullptr;
            } else if (m_cursor.skip("<!") || m_cursor.skip("<?") || m_cursor.skip(pointStart)) {
                // A point in a point is none that we know.
                return nullptr;
            } else {
                m_cursor.skip("<");
            }
        }
        return nullptr;
    }

    /// Up to its end, unless there may stand the end of what the point itself is quoted in.
    bool skipQuote(std::string_view end, std::string_view endOfOther)
    {
        const char *const begin = m_cursor.at();
        return goTo(end, longestQuote)
               && std::string_view(begin, size_t(m_cursor.at() - begin)).find(endOfOther) == std::string_view::npos;
    }

    bool goTo(std::string_view text, size_t mostBytes)
    {
        const std::string_view rest(m_cursor.at(), std::min(mostBytes, size_t(m_end - m_cursor.at())));
        const size_t place = rest.find(text);
        if (place == std::string_view::npos)
            return false;
        m_cursor.returnTo(m_cursor.at() + place);
        return true;
    }

    KRGPXByteCursor m_cursor;
    const char *const m_end;
};

} // namespace

KRGpxPointSkimmer::KRGpxPointSkimmer(QIODevice *source) : m_source(source)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 KRGpxPointSkimmer::readData(char *bytes, qint64 maximumSize)
{
    while (m_outputPosition == m_output.size() && !m_isAtEnd)
        skim();
    const qint64 size = std::min<qint64>(maximumSize, m_output.size() - m_outputPosition);
    std::copy_n(m_output.constData() + m_outputPosition, size, bytes);
    m_outputPosition += int(size);
    return size;
}

qint64 KRGpxPointSkimmer::writeData(const char * /*bytes*/, qint64 /*size*/)
{
    return -1;
}

/// Reads one more block and puts what is left of it into the output.
void KRGpxPointSkimmer::skim()
{
    m_output.clear();
    m_outputPosition = 0;
    m_block.remove(0, m_position);
    m_position = 0;
    const QByteArray bytes = m_source->read(blockBytes);
    m_isAtEnd = bytes.isEmpty();
    m_block += bytes;

    for (;;) {
        const int size = int(m_block.size());
        const int start = m_block.indexOf(pointStart, m_position);
        if (start < 0) {
            // The beginning of a point may stand at the end of the block.
            pass(m_isAtEnd ? size : std::max(m_position, size - pointStartSize));
            return;
        }
        const char *const begin = m_block.constData() + start;
        const char *const limit = m_block.constData() + std::min(size, start + longestPoint);
        const char *const end = PointScanner(begin, limit).endOfPlainPoint();
        const bool mayGoOn = !end && !m_isAtEnd && size - start < longestPoint;
        pass(start);
        if (mayGoOn)
            return;
        if (!end) {
            pass(start + pointStartSize);
            continue;
        }
        const int endPosition = int(end - m_block.constData());
        if (m_isInRun) {
            m_output.append(QByteArray(int(std::count(begin, end, '\n')), '\n'));
            m_position = endPosition;
        } else {
            pass(endPosition);
        }
        m_isInRun = true;
    }
}

/// Everything before the byte with the index @p end goes out.
void KRGpxPointSkimmer::pass(int end)
{
    const char *const begin = m_block.constData() + m_position;
    const int size = end - m_position;
    m_isInRun = m_isInRun && std::all_of(begin, begin + size, isBlank);
    m_output.append(begin, size);
    m_position = end;
}
