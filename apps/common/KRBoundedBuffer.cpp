#include "KRBoundedBuffer.h"

qint64 KRBoundedBuffer::writeData(const char *data, qint64 length)
{
    m_isOverfull = m_isOverfull || pos() + length > m_mostBytes;
    return m_isOverfull ? -1 : QBuffer::writeData(data, length);
}
