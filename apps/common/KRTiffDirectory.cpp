#include "KRTiffDirectory.h"

#include <KRCore/KRInputLimits.h>

#include <QDataStream>
#include <QHash>
#include <QIODevice>

#include <limits>

namespace {

// TIFF 6.0, sections 2, 8 and 15; BigTIFF, its form with wide numbers
constexpr quint16 usualVersion = 42;
constexpr quint16 wideVersion = 43;
enum Tag : quint16 {
    ImageWidth = 256,
    ImageLength = 257,
    BitsPerSample = 258,
    SamplesPerPixel = 277,
    RowsPerStrip = 278,
    TileWidth = 322,
    TileLength = 323,
};
constexpr quint16 byteType = 1;
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

/// As wide as the version has it: an offset or a count.
quint64 readNumber(QDataStream *stream, bool isWide)
{
    return isWide ? read<quint64>(stream) : read<quint32>(stream);
}

/// Of one value; 0 for types that there are not, which decoders pass over.
int bytesOfType(quint16 type)
{
    static constexpr int bytes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 0, 0, 8, 8, 8};
    return type < std::size(bytes) ? bytes[type] : 0;
}

/// The first directory, that of the picture which is decoded. Its numbers may be anything, and their products too.
class Directory
{
public:
    Directory(QDataStream *stream, bool isWide);

    bool hasTooMuchBesidePixels() const { return m_entryBytes > KRInputLimits::pictureBytesBesidePixels; }

    /// In memory.
    double pictureBytes() const
    {
        const bool isDeep = bits() > 8.0 && samples() > 2.0;
        return width() * length() * (isDeep ? 8.0 : 4.0);
    }

    /// Of a tile or strip as it is unpacked.
    double pieceBytes() const
    {
        const bool hasTiles = m_values.contains(TileWidth) && m_values.contains(TileLength);
        const double pixels = hasTiles ? value(TileWidth, 0.0) * value(TileLength, 0.0)
                                       : width() * qMin(length(), value(RowsPerStrip, length()));
        return pixels * samples() * bits() / 8.0;
    }

private:
    double width() const { return value(ImageWidth, 0.0); }
    double length() const { return value(ImageLength, 0.0); }
    double samples() const { return value(SamplesPerPixel, 1.0); }
    double bits() const { return value(BitsPerSample, 1.0); }
    double value(Tag tag, double otherwise) const { return m_values.value(tag, otherwise); }
    void readEntry(QDataStream *stream, bool isWide);

    QHash<quint16, double> m_values; ///< the greatest of each tag that counts here
    double m_entryBytes = 0.0;
};

Directory::Directory(QDataStream *stream, bool isWide)
{
    if (isWide)
        stream->skipRawData(4); // how wide offsets are
    const quint64 place = readNumber(stream, isWide);
    if (place > quint64(stream->device()->size()) || !stream->device()->seek(qint64(place)))
        return;
    const quint64 entries = isWide ? read<quint64>(stream) : read<quint16>(stream);
    for (quint64 i = 0; i < qMin(entries, mostEntries) && stream->status() == QDataStream::Ok; ++i)
        readEntry(stream, isWide);
}

/// The number at which the device stands. Of other types decoders may make anything.
double firstValue(QDataStream *stream, quint16 type)
{
    switch (type) {
    case byteType:
        return double(read<quint8>(stream));
    case shortType:
        return double(read<quint16>(stream));
    case longType:
        return double(read<quint32>(stream));
    case wideType:
        return double(read<quint64>(stream));
    default:
        return std::numeric_limits<quint32>::max();
    }
}

void Directory::readEntry(QDataStream *stream, bool isWide)
{
    static const QVector<quint16> tags{ImageWidth,   ImageLength, BitsPerSample, SamplesPerPixel,
                                       RowsPerStrip, TileWidth,   TileLength};
    QIODevice *const device = stream->device();
    const auto tag = quint16(read<quint16>(stream));
    const auto type = quint16(read<quint16>(stream));
    const double bytes = double(readNumber(stream, isWide)) * bytesOfType(type);
    const int placeBytes = isWide ? 8 : 4;
    const qint64 end = device->pos() + placeBytes;
    m_entryBytes += bytes;
    if (tags.contains(tag)) {
        // What does not fit into the entry stands elsewhere.
        const quint64 place = bytes > placeBytes ? readNumber(stream, isWide) : quint64(device->pos());
        if (place < quint64(device->size()) && device->seek(qint64(place)))
            m_values[tag] = qMax(m_values.value(tag), firstValue(stream, type));
    }
    if (end > device->size() || !device->seek(end))
        stream->setStatus(QDataStream::ReadPastEnd);
}

} // namespace

QString KRTiffDirectory::problemOf(QIODevice *device)
{
    const QByteArray order = device->read(2);
    QDataStream stream(device);
    stream.setByteOrder(order == "II" ? QDataStream::LittleEndian : QDataStream::BigEndian);
    const auto version = quint16(read<quint16>(&stream));
    QString problem;
    if ((order == "II" || order == "MM") && (version == usualVersion || version == wideVersion)) {
        const Directory directory(&stream, version == wideVersion);
        if (directory.hasTooMuchBesidePixels())
            problem = tr("Das Bild ist ein TIFF mit zu viel neben seinen Pixeln.");
        else if (directory.pictureBytes() > KRInputLimits::pictureMemoryBytes)
            problem = tr("Das Bild ist zu groß (mehr als %1 MB im Speicher).")
                          .arg(KRInputLimits::pictureMemoryBytes / 1000000);
        else if (directory.pictureBytes() + directory.pieceBytes() > KRInputLimits::pictureMemoryBytes)
            problem = tr("Das Bild ist ein TIFF mit zu großen Kacheln oder Streifen.");
    }
    device->seek(0);
    return problem;
}
