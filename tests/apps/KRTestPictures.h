#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QVector>

/// Pictures that mean harm, and their like.
namespace KRTestPictures {

struct Jpeg {
    int scans = 1;
    int side = 8;
    int components = 1;
    bool isProgressive = true;
    QByteArray segments = {}; ///< that come first
};

/// Its scans have no data, which makes no difference for a picture of 8 pixels a side.
QByteArray jpeg(const Jpeg &values);
QByteArray jpegSegment(int marker, const QByteArray &data);

/// @p png with chunks of the data behind its header.
QByteArray pngWith(QByteArray png, const char *name, const QByteArray &data, int count);

struct TiffTag {
    quint16 number;
    quint16 type; // 3: 16 bits, 4: 32 bits, 7: bytes, 16: 64 bits
    quint32 value; ///< or where the values are
    quint32 count = 1;
};
using TiffTags = QVector<TiffTag>;

/// Nothing but the directory; @p isWide makes a BigTIFF.
QByteArray tiff(QDataStream::ByteOrder order, bool isWide, const TiffTags &tags);

} // namespace KRTestPictures
