#include "KRJpegScans.h"

#include <KRCore/KRInputLimits.h>

#include <QIODevice>
#include <QtEndian>

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

    /// 16 bits; 0 at the end.
    int nextNumber()
    {
        const int high = qMax(0, next());
        return 256 * high + qMax(0, next());
    }

    QByteArray read(int count)
    {
        QByteArray bytes;
        for (int byte = 0; bytes.size() < count && (byte = next()) != endOfBytes;)
            bytes.append(char(byte));
        return bytes;
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

bool isFrame(int marker)
{
    return marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
}

bool isProgressive(int marker)
{
    return isFrame(marker) && (marker & 0x03) == 0x02;
}

/// What the segment of a frame tells: T.81, B.2.2.
class Frame
{
public:
    Frame() = default;
    Frame(int marker, const QByteArray &segment);

    double pixels() const { return m_pixels; }
    int components() const { return m_components; }

    /// A decoder has to keep all coefficients, of two bytes each, unless one scan holds all components at once.
    bool keepsCoefficients(int componentsOfFirstScan) const
    {
        return m_isProgressive || componentsOfFirstScan < m_components;
    }

    /// Of the picture and the coefficients.
    double memoryBytes() const { return m_pixels * (m_components == 1 ? 1 : 4) + 2.0 * m_samples; }

private:
    bool m_isProgressive = false;
    double m_pixels = 0.0;
    int m_components = 0;
    double m_samples = 0.0; ///< of all components, some of which may have fewer than there are pixels
};

Frame::Frame(int marker, const QByteArray &segment) : m_isProgressive(isProgressive(marker))
{
    constexpr int headBytes = 6;
    constexpr int componentBytes = 3;
    if (segment.size() < headBytes)
        return;
    m_pixels =
        double(qFromBigEndian<quint16>(segment.constData() + 1)) * qFromBigEndian<quint16>(segment.constData() + 3);
    m_components = uchar(segment.at(5));
    int samples = 0;
    int mostAcross = 1;
    int mostDown = 1;
    for (int i = headBytes + 1; i < segment.size(); i += componentBytes) {
        const int across = uchar(segment.at(i)) >> 4;
        const int down = uchar(segment.at(i)) & 0x0f;
        samples += across * down;
        mostAcross = qMax(mostAcross, across);
        mostDown = qMax(mostDown, down);
    }
    m_samples = m_pixels * samples / (mostAcross * mostDown);
}

QString problemOfSegments(ByteReader *bytes, qint64 mostSamples)
{
    Frame frame;
    int scans = 0;
    int segments = 0;
    double samples = 0.0;
    qint64 bytesBesidePixels = 0;
    for (int marker = nextMarker(bytes); marker != endOfBytes && marker != endOfImage; marker = nextMarker(bytes)) {
        const int length = qMax(0, bytes->nextNumber() - 2); // the length counts itself
        const QByteArray segment = bytes->read(isFrame(marker) || marker == startOfScan ? length : 0);
        bytes->skip(length - segment.size());
        bytesBesidePixels += length;
        if (++segments > KRInputLimits::jpegSegments || bytesBesidePixels > KRInputLimits::pictureBytesBesidePixels)
            return KRJpegScans::tr("Das Bild ist ein JPEG mit zu viel neben seinen Pixeln.");
        if (isFrame(marker))
            frame = Frame(marker, segment);
        if (marker != startOfScan || segment.isEmpty())
            continue;
        const int components = uchar(segment.at(0));
        samples += components * frame.pixels();
        if (++scans > KRInputLimits::jpegScans || (scans > 1 && samples > double(mostSamples)))
            return KRJpegScans::tr("Das Bild ist ein JPEG mit zu vielen Durchgängen.");
        if (frame.keepsCoefficients(components) && frame.memoryBytes() > KRInputLimits::pictureMemoryBytes)
            return KRJpegScans::tr("Das Bild hat zu viele Pixel für ein JPEG, das in Durchgängen aufgebaut wird.");
    }
    return QString();
}

} // namespace

QString KRJpegScans::problemOf(QIODevice *device, qint64 mostSamples)
{
    ByteReader bytes(device);
    const bool isJpeg = bytes.next() == prefix && bytes.next() == startOfImage;
    const QString problem = isJpeg ? problemOfSegments(&bytes, mostSamples) : QString();
    device->seek(0);
    return problem;
}
