#pragma once

#include <QBuffer>

/**
 * Bytes in memory, of which there may not be more than so many: QBuffer empties itself where it would exceed 2 GB.
 *
 * Open for writing from the beginning. What does not fit is refused, and so is everything behind it.
 */
class KRBoundedBuffer : public QBuffer
{
public:
    explicit KRBoundedBuffer(qint64 mostBytes) : m_mostBytes(mostBytes) { open(QIODevice::WriteOnly); }

    bool isOverfull() const { return m_isOverfull; }

protected:
    qint64 writeData(const char *data, qint64 length) override;

private:
    qint64 m_mostBytes;
    bool m_isOverfull = false;
};
