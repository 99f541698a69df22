#include "KRGPXRunDevice.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int blockBytes = 1 << 18;

// A read that gets no whole character would look like the end of the file to the XML reader.
constexpr int fewestBytes = 1 << 12;

// Reads of a few bytes each would take long. Longer than the end of a segment, after which there is none.
constexpr int shortestRead = 16;

constexpr char pointTag[] = "<trkpt";

bool pointFollows(const char *at, const char *end)
{
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t'; };
    at = std::find_if_not(at, end, isBlank);
    constexpr std::ptrdiff_t length = sizeof(pointTag) - 1;
    return end - at >= length && std::memcmp(at, pointTag, length) == 0;
}

} // namespace

KRGPXRunDevice::KRGPXRunDevice(QIODevice *source, const Taker &takeRun)
    : m_source(source), m_takeRun(takeRun), m_block(blockBytes, Qt::Uninitialized)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 KRGPXRunDevice::readData(char *bytes, qint64 maximumSize)
{
    if (m_end - m_begin < fewestBytes)
        fill();
    if (m_isAtStart)
        detectEncoding();
    for (bool isRunOver = false; !isRunOver;) {
        const char *const begin = m_block.constData() + m_begin;
        const int taken = int(m_takeRun(begin, m_block.constData() + m_end) - begin);
        m_begin += taken;
        // A run may go on behind the block, of which no more is moved than was taken.
        isRunOver = taken == 0 || m_begin < blockBytes / 2 || !fill();
    }
    const int size = endOfTag(int(std::min<qint64>(maximumSize, m_end - m_begin)));
    if (size == 0)
        return m_source->atEnd() ? 0 : -1;
    std::memcpy(bytes, m_block.constData() + m_begin, std::size_t(size));
    m_begin += size;
    m_lastByte = bytes[size - 1];
    return size;
}

qint64 KRGPXRunDevice::writeData(const char * /*bytes*/, qint64 /*size*/)
{
    return -1;
}

/// Reads on until the block is full; false when there is nothing to add.
bool KRGPXRunDevice::fill()
{
    char *const block = m_block.data();
    std::memmove(block, block + m_begin, std::size_t(m_end - m_begin));
    m_end -= m_begin;
    m_begin = 0;
    const int endBefore = m_end;
    qint64 size = 0;
    while (m_end < blockBytes && (size = m_source->read(block + m_end, blockBytes - m_end)) > 0)
        m_end += int(size);
    return m_end > endBefore;
}

void KRGPXRunDevice::detectEncoding()
{
    m_isAtStart = false;
    const auto isUtf16 = [&](char byte) { return byte == 0 || byte == '\xFE' || byte == '\xFF'; };
    const char *const block = m_block.constData();
    m_hasAsciiBytes = m_end >= 2 && std::none_of(block, block + 2, isUtf16);
}

/// How many bytes there are up to the end of the first tag behind which points may follow; @p mostBytes if none.
int KRGPXRunDevice::endOfTag(int mostBytes) const
{
    const char *const begin = m_block.constData() + m_begin;
    const char *const end = begin + mostBytes;
    const auto isBehind = [](const char *at, const char *name, int length) {
        return std::memcmp(at - length, name, std::size_t(length)) == 0;
    };
    // Each byte is looked at once, however many tags there are.
    for (const char *at = begin + std::min(mostBytes, shortestRead);
         (at = static_cast<const char *>(std::memchr(at, '>', std::size_t(end - at)))) != nullptr; ++at) {
        if (isBehind(at, "trkpt", 5) || isBehind(at, "trkseg", 6)
            || (isBehind(at, "/", 1) && pointFollows(at + 1, end)))
            return int(at + 1 - begin);
    }
    return mostBytes;
}
