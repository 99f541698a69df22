#include "KRJpegScans.h"

#include <KRCore/KRInputLimits.h>

#include <QIODevice>

namespace {

constexpr int endOfBytes = -1;
constexpr int blockBytes = 1 << 16;

/// The bytes of a device one by one.
class ByteReader
{
public:
    explicit ByteReader(QIODevice *device) : m_device(device) { }

    /// 0 … 255, or endOfBytes.
    int next()
    {
        if (m_position == m_block.size()) {
            m_block = m_device->read(blockBytes);
            m_position = 0;
            if (m_block.isEmpty())
                return endOfBytes;
        }
        return uchar(m_block.at(m_position++));
    }

    void skip(qint64 count)
    {
        const qint64 here = qMin(count, qint64(m_block.size() - m_position));
        m_position += int(here);
        m_device->skip(count - here);
    }

private:
    QIODevice *m_device;
    QByteArray m_block;
    int m_position = 0;
};

// Markers, ITU-T T.81, table B.1; each stands behind one or more bytes 0xff.
constexpr int prefix = 0xff;
constexpr int startOfImage = 0xd8;
constexpr int endOfImage = 0xd9;
constexpr int startOfScan = 0xda;

/// No marker but a byte 0xff of the picture, or a marker that no segment belongs to.
bool isAlone(int code)
{
    return code <= 0x01 || (code >= 0xd0 && code <= startOfImage);
}

/// The next marker, or endOfBytes; passes over what belongs to none, which are the data of scans.
int nextMarker(ByteReader *bytes)
{
    for (;;) {
        int code = bytes->next();
        while (code != prefix && code != endOfBytes)
            code = bytes->next();
        while (code == prefix)
            code = bytes->next();
        if (code == endOfBytes || !isAlone(code))
            return code;
    }
}

bool hasTooManyScans(ByteReader *bytes)
{
    int scans = 0;
    for (int marker = nextMarker(bytes); marker != endOfBytes && marker != endOfImage; marker = nextMarker(bytes)) {
        if (marker == startOfScan && ++scans > KRInputLimits::jpegScans)
            return true;
        const int high = qMax(0, bytes->next());
        const int low = qMax(0, bytes->next());
        bytes->skip(qMax(0, 256 * high + low - 2)); // the length counts itself
    }
    return false;
}

} // namespace

QString KRJpegScans::problemOf(QIODevice *device)
{
    ByteReader bytes(device);
    const bool isJpeg = bytes.next() == prefix && bytes.next() == startOfImage;
    const bool isRefused = isJpeg && hasTooManyScans(&bytes);
    device->seek(0);
    return isRefused ? tr("Das Bild ist ein JPEG mit mehr als %1 Durchgängen.").arg(KRInputLimits::jpegScans)
                     : QString();
}
