#include "KRGPXGuardedDevice.h"

#include <KRCore/KRInputLimits.h>

#include <algorithm>
#include <cstring>

KRGPXGuardedDevice::KRGPXGuardedDevice(QIODevice *source) : m_source(source)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
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
    m_hasCarriageReturns = m_hasCarriageReturns || std::memchr(bytes, '\r', size_t(size));
    m_hasRefused = m_tokenBytes > KRInputLimits::tokenBytes || m_tokenQuotes > KRInputLimits::tokenQuotes;
    return m_hasRefused ? -1 : size;
}

qint64 KRGPXGuardedDevice::writeData(const char * /*bytes*/, qint64 /*size*/)
{
    return -1;
}
