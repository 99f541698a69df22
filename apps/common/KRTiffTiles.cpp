#include "KRTiffTiles.h"

#include <KRCore/KRInputLimits.h>

#include <QDataStream>
#include <QIODevice>

#include <limits>

namespace {

// TIFF 6.0, sections 2 and 15; BigTIFF, its form with wide numbers
constexpr quint16 usualVersion = 42;
constexpr quint16 wideVersion = 43;
constexpr quint16 tileWidthTag = 322;
constexpr quint16 tileLengthTag = 323;
constexpr quint16 shortType = 3;
constexpr quint16 longType = 4;
constexpr quint16 wideType = 16;
constexpr quint64 mostEntries = 65535;

template <typename Number>
quint64 read(QDataStream *stream)
{
    Number number = 0;
    *stream >> number;
    return number;
}

/// As wide as the version has it: an offset, a count, or a value that stands in its entry.
quint64 readNumber(QDataStream *stream, bool isWide)
{
    return isWide ? read<quint64>(stream) : read<quint32>(stream);
}

/// The side of a tile, which has to be a number of 16 or 32 bits, in BigTIFF of 64; decoders take other types too.
quint64 readSide(QDataStream *stream, bool isWide, quint16 type)
{
    const int placeBytes = isWide ? 8 : 4;
    if (type != shortType && type != longType && !(isWide && type == wideType)) {
        stream->skipRawData(placeBytes);
        return std::numeric_limits<quint64>::max();
    }
    if (type == wideType)
        return read<quint64>(stream);
    const quint64 value = type == shortType ? read<quint16>(stream) : read<quint32>(stream);
    stream->skipRawData(placeBytes - (type == shortType ? 2 : 4));
    return value;
}

/// Whether the first directory, that of the picture which is decoded, tells of tiles that are too large.
bool hasTooLargeTiles(QDataStream *stream, bool isWide)
{
    if (isWide)
        stream->skipRawData(4); // how wide offsets are
    const quint64 place = readNumber(stream, isWide);
    if (place > quint64(stream->device()->size()) || !stream->device()->seek(qint64(place)))
        return false;
    const quint64 entries = isWide ? read<quint64>(stream) : read<quint16>(stream);
    quint64 width = 0;
    quint64 length = 0;
    for (quint64 i = 0; i < qMin(entries, mostEntries) && stream->status() == QDataStream::Ok; ++i) {
        const auto tag = quint16(read<quint16>(stream));
        const auto type = quint16(read<quint16>(stream));
        readNumber(stream, isWide); // how many values
        const quint64 side = readSide(stream, isWide, type);
        width = tag == tileWidthTag ? qMax(width, side) : width;
        length = tag == tileLengthTag ? qMax(length, side) : length;
    }
    return width > 0 && length > KRInputLimits::picturePixels / width;
}

} // namespace

QString KRTiffTiles::problemOf(QIODevice *device)
{
    const QByteArray order = device->read(2);
    QDataStream stream(device);
    stream.setByteOrder(order == "II" ? QDataStream::LittleEndian : QDataStream::BigEndian);
    const auto version = quint16(read<quint16>(&stream));
    const bool isTiff = (order == "II" || order == "MM") && (version == usualVersion || version == wideVersion);
    const bool isRefused = isTiff && hasTooLargeTiles(&stream, version == wideVersion);
    device->seek(0);
    return isRefused ? tr("Das Bild ist ein TIFF mit zu großen Kacheln.") : QString();
}
