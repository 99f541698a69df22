#include "KRGpxPointSkimmer.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr char pointStart[] = "<trkpt";
constexpr char pointEnd[] = "</trkpt";
constexpr int pointStartSize = sizeof pointStart - 1;
constexpr int pointEndSize = sizeof pointEnd - 1;

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r';
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// Looks at the bytes of one point; whatever it does not understand leaves it at the end.
class PointScanner
{
public:
    PointScanner(const char *begin, const char *end) : m_next(begin), m_end(end) { }

    /// Where a plain point ends, null if it is none or goes on behind the last byte.
    const char *endOfPlainPoint()
    {
        if (!accept(pointStart, pointStartSize))
            return nullptr;
        bool hasLatitude = false;
        bool hasLongitude = false;
        for (int i = 0; i < 2; ++i) {
            skipBlanks();
            if (accept("lat=", 4))
                hasLatitude = acceptNumber(90);
            else if (accept("lon=", 4))
                hasLongitude = acceptNumber(360);
        }
        skipBlanks();
        if (!hasLatitude || !hasLongitude)
            return nullptr;
        if (accept("/>", 2))
            return m_next;
        return accept(">", 1) ? endOfContent() : nullptr;
    }

private:
    bool accept(const char *text, int size)
    {
        if (m_end - m_next < size || std::memcmp(m_next, text, size_t(size)) != 0)
            return false;
        m_next += size;
        return true;
    }

    void skipBlanks() { m_next = std::find_if_not(m_next, m_end, isBlank); }

    /// A quoted number of digits with at most one point between them, its whole part smaller than the limit.
    bool acceptNumber(int limit)
    {
        if (m_next == m_end || (*m_next != '"' && *m_next != '\''))
            return false;
        const char quote = *m_next++;
        if (m_next < m_end && *m_next == '-')
            ++m_next;
        int wholePart = 0;
        const char *const digits = m_next;
        for (; m_next < m_end && isDigit(*m_next) && wholePart < limit; ++m_next)
            wholePart = wholePart * 10 + (*m_next - '0');
        const bool hasDigits = m_next > digits;
        if (accept(".", 1))
            m_next = std::find_if_not(m_next, m_end, isDigit);
        return hasDigits && wholePart < limit && accept(&quote, 1);
    }

    const char *endOfContent()
    {
        while (const void *const found = std::memchr(m_next, '<', size_t(m_end - m_next))) {
            m_next = static_cast<const char *>(found);
            if (accept(pointEnd, pointEndSize)) {
                skipBlanks();
                return accept(">", 1) ? m_next : nullptr;
            }
            // Comments and the like may quote an end, and a point in a point is none that we know.
            if (accept("<!", 2) || accept("<?", 2) || accept(pointStart, pointStartSize))
                return nullptr;
            ++m_next;
        }
        return nullptr;
    }

    const char *m_next;
    const char *m_end;
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
