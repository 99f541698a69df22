#include "KRPngChunks.h"

#include <KRCore/KRInputLimits.h>

#include <QIODevice>
#include <QtEndian>

namespace {

// ISO/IEC 15948, 5.3: the length of the data, a name, the data and their check sum.
constexpr qint64 headBytes = 8;
constexpr qint64 checkSumBytes = 4;
constexpr int pictureHeaderBytes = 9; // width, height and depth

// Deflate makes 1032 bytes of one at most (RFC 1951), and a text is held five times.
constexpr double mostBytesPerPackedByte = 5.0 * 1032.0;

const QByteArray signature = QByteArrayLiteral("\x89PNG\r\n\x1a\n");

/// Whether an "iTXt" at which the device stands is packed: a flag behind its keyword and a zero says so.
bool isPackedText(QIODevice *device)
{
    constexpr int longestKeyword = 79;
    const QByteArray begin = device->peek(longestKeyword + 2);
    const int end = begin.indexOf('\0');
    return end < 0 || end + 1 >= begin.size() || begin.at(end + 1) != 0;
}

/// Of the picture in memory; @p header is what its "IHDR" begins with (11.2.2).
double pictureBytes(const QByteArray &header)
{
    if (header.size() < pictureHeaderBytes)
        return 0.0;
    const bool isDeep = header.at(8) == 16;
    return double(qFromBigEndian<quint32>(header.constData())) * qFromBigEndian<quint32>(header.constData() + 4)
           * (isDeep ? 8 : 4);
}

bool hasTooMuch(QIODevice *device)
{
    bool hasPackedTexts = false;
    double memoryBytes = 0.0;
    qint64 bytesBesidePixels = 0;
    for (QByteArray head = device->read(headBytes); head.size() == headBytes; head = device->read(headBytes)) {
        const qint64 length = qFromBigEndian<quint32>(head.constData());
        const QByteArray name = head.mid(4);
        if (name == "IEND")
            return false;
        const bool isPixels = name == "IDAT" || name == "fdAT"; // those of further pictures, too
        if (name == "IHDR")
            memoryBytes += pictureBytes(device->peek(pictureHeaderBytes));
        if (name == "zTXt" || (name == "iTXt" && isPackedText(device))) {
            hasPackedTexts = true;
            memoryBytes += qMin(double(KRInputLimits::pngPackedTextBytes), mostBytesPerPackedByte * double(length));
        }
        bytesBesidePixels += headBytes + checkSumBytes + (isPixels ? 0 : length);
        const bool hasLargeTexts = hasPackedTexts && memoryBytes > KRInputLimits::pictureMemoryBytes;
        if (hasLargeTexts || bytesBesidePixels > KRInputLimits::pictureBytesBesidePixels)
            return true;
        if (!device->seek(device->pos() + length + checkSumBytes))
            return false;
    }
    return false;
}

} // namespace

QString KRPngChunks::problemOf(QIODevice *device)
{
    const bool isRefused = device->read(signature.size()) == signature && hasTooMuch(device);
    device->seek(0);
    return isRefused ? tr("Das Bild ist ein PNG mit zu viel neben seinen Pixeln.") : QString();
}

QByteArray KRPngChunks::withoutNeedless(const QByteArray &bytes)
{
    if (!bytes.startsWith(signature))
        return bytes;
    QByteArray needed = signature;
    int position = signature.size();
    while (bytes.size() - position >= headBytes) {
        const qint64 end = position + headBytes + qFromBigEndian<quint32>(bytes.constData() + position) + checkSumBytes;
        const QByteArray name = bytes.mid(position + 4, 4);
        const bool isCritical = name.at(0) >= 'A' && name.at(0) <= 'Z'; // 5.4
        const int next = int(qMin(end, qint64(bytes.size())));
        if (isCritical || name == "tRNS")
            needed.append(bytes.constData() + position, next - position);
        position = next;
    }
    return needed;
}
