#include "KRTestPictures.h"

#include <QtEndian>

namespace {

QByteArray number(int value)
{
    QByteArray bytes(2, '\0');
    qToBigEndian(quint16(value), bytes.data());
    return bytes;
}

} // namespace

QByteArray KRTestPictures::jpegSegment(int marker, const QByteArray &data)
{
    return QByteArray("\xff") + char(marker) + number(data.size() + 2) + data;
}

QByteArray KRTestPictures::jpeg(const Jpeg &values)
{
    QByteArray frame = '\x08' + number(values.side) + number(values.side) + char(values.components);
    QByteArray scan(1, char(values.isProgressive ? values.components : 1));
    for (int i = 1; i <= values.components; ++i) {
        frame += char(i) + QByteArray("\x11\0", 2);
        if (i <= scan.at(0))
            scan += char(i) + QByteArray(1, '\0');
    }
    const QByteArray furtherScan = QByteArray::fromHex("ffda0008010100013f007fff00");
    return QByteArray::fromHex("ffd8") + values.segments + jpegSegment(0xdb, '\0' + QByteArray(64, '\1'))
           + jpegSegment(values.isProgressive ? 0xc2 : 0xc0, frame)
           + jpegSegment(0xc4, QByteArray("\0\1", 2) + QByteArray(16, '\0'))
           + jpegSegment(0xda, scan + QByteArray(3, '\0')) + QByteArray::fromHex("7fff00")
           + jpegSegment(0xc4, "\x10\1" + QByteArray(15, '\0') + '\xe0') + furtherScan.repeated(values.scans - 1)
           + QByteArray::fromHex("ffd9");
}

QByteArray KRTestPictures::pngWith(QByteArray png, const char *name, const QByteArray &data, int count)
{
    constexpr int headerBytes = 8 + 25;
    QByteArray chunk(4, '\0');
    qToBigEndian(quint32(data.size()), chunk.data());
    return png.insert(headerBytes, (chunk + name + data + QByteArray(4, '\0')).repeated(count));
}

QByteArray KRTestPictures::tiff(QDataStream::ByteOrder order, bool isWide, const TiffTags &tags)
{
    QByteArray bytes(order == QDataStream::LittleEndian ? "II" : "MM");
    QDataStream stream(&bytes, QIODevice::Append);
    stream.setByteOrder(order);
    const auto writeNumber = [&](quint32 number) {
        if (isWide)
            stream << quint64(number);
        else
            stream << number;
    };
    stream << quint16(isWide ? 43 : 42);
    if (isWide)
        stream << quint16(8) << quint16(0);
    writeNumber(isWide ? 16 : 8);
    if (isWide)
        stream << quint64(tags.size());
    else
        stream << quint16(tags.size());
    for (const TiffTag &tag : tags) {
        stream << tag.number << tag.type;
        writeNumber(tag.count);
        // One value stands at the left of its place.
        if (tag.count > 1 || tag.type == 16) {
            writeNumber(tag.value);
        } else if (tag.type == 3) {
            stream << quint16(tag.value);
            stream.writeRawData("\0\0\0\0\0\0", isWide ? 6 : 2);
        } else {
            stream << quint32(tag.value);
            stream.writeRawData("\0\0\0\0", isWide ? 4 : 0);
        }
    }
    return bytes;
}
