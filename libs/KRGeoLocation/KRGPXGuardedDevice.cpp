#include "KRGPXGuardedDevice.h"

#include <KRCore/KRInputLimits.h>

#include <algorithm>
#include <cstring>
#include <limits>

KRGPXGuardedDevice::KRGPXGuardedDevice(QIODevice *source)
    : m_source(source), m_mostTokens(KRInputLimits::bulkTokens), m_mostBytes(KRInputLimits::bulkBytes)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

void KRGPXGuardedDevice::expectDocument()
{
    m_mostTokens = KRInputLimits::documentTokens;
    m_mostBytes = std::numeric_limits<qint64>::max();
}

bool KRGPXGuardedDevice::isInProportion() const
{
    return m_tokens + KRInputLimits::tokensPerReference * m_references
               <= m_mostTokens + KRInputLimits::tokensPerPoint * m_points
           && m_bytes - KRInputLimits::bytesPerPoint * m_points <= m_mostBytes;
}

qint64 KRGPXGuardedDevice::readData(char *bytes, qint64 maximumSize)
{
    const qint64 size = m_hasRefused ? -1 : m_source->read(bytes, maximumSize);
    if (size <= 0)
        return size;
    // Nearly all tokens are far smaller than a block; only those that span several are looked at.
    if (m_tokenBytes > 0)
        m_tokenQuotes += std::count_if(bytes, bytes + size, [](char byte) { return byte == '"' || byte == '\''; });
    m_tokenBytes += size;
    m_bytes += size;
    const qint64 references = std::count(bytes, bytes + size, '&');
    m_references += references;
    m_tokenReferences += references;
    m_hasCarriageReturns = m_hasCarriageReturns || std::memchr(bytes, '\r', size_t(size));
    m_hasRefused = isTokenTooLarge();
    return m_hasRefused || !isInProportion() ? -1 : size;
}

bool KRGPXGuardedDevice::isTokenTooLarge() const
{
    // Up to two blocks are read before the reader tells of its first token.
    constexpr qint64 blockBytes = 1 << 16;
    return m_tokenBytes > (m_isInDeclaration ? blockBytes + KRInputLimits::declarationBytes : KRInputLimits::tokenBytes)
           || m_tokenQuotes > KRInputLimits::tokenQuotes || m_tokenReferences > KRInputLimits::references;
}

qint64 KRGPXGuardedDevice::writeData(const char * /*bytes*/, qint64 /*size*/)
{
    return -1;
}
