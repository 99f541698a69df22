#include "KRPictureGuard.h"

#include "KRTest.h"

#include <KRCore/KRInputLimits.h>

#include <QBuffer>
#include <QDataStream>

namespace {

struct Tag {
    quint16 number;
    quint16 type; // 3: 16 bits, 4: 32 bits, 16: 64 bits
    quint32 value;
};
using Tags = QVector<Tag>;

/// The directory of a TIFF, whose tags have one value each.
QByteArray tiff(QDataStream::ByteOrder order, bool isWide, const Tags &tags)
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
    for (const Tag &tag : tags) {
        stream << tag.number << tag.type;
        writeNumber(1);
        // At the left of its place.
        if (tag.type == 3) {
            stream << quint16(tag.value);
            stream.writeRawData("\0\0\0\0\0\0", isWide ? 6 : 2);
        } else if (tag.type == 4) {
            stream << quint32(tag.value);
            stream.writeRawData("\0\0\0\0", isWide ? 4 : 0);
        } else {
            writeNumber(tag.value);
        }
    }
    return bytes;
}

} // namespace

class tst_KRPictureGuard : public QObject
{
    Q_OBJECT

private slots:
    void tilesOfTiff()
    {
        const KRTestTable<Tags, bool> table{
            {"no tiles", {{256, 4, 60000}, {257, 4, 60000}}, false},
            {"usual ones", {{256, 4, 10}, {322, 3, 256}, {323, 3, 256}}, false},
            {"as large as a picture", {{322, 4, 8000}, {323, 3, 8000}}, false},
            {"larger", {{322, 3, 8001}, {323, 4, 8000}}, true},
            {"far larger", {{322, 4, 0xffffffff}, {323, 4, 0xffffffff}}, true},
            {"numbers that are not to be seen here", {{322, 16, 256}, {323, 3, 256}}, true},
            {"of no width", {{322, 3, 0}, {323, 4, 0xffffffff}}, false},
        };
        table.forEach([](const Tags &tags, bool isRefused) {
            for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
                for (const bool isWide : {false, true}) {
                    const QByteArray bytes = tiff(order, isWide, tags);
                    const bool isInPlace = isWide && tags.first().type == 16;
                    QCOMPARE(problemOf(bytes).contains(QLatin1String("Kacheln")), isRefused && !isInPlace);
                    // Cut off anywhere, it is no picture, which others notice.
                    for (int size = 0; size < bytes.size() - 20; ++size)
                        QCOMPARE(problemOf(bytes.left(size)), QString());
                }
            }
        });
    }

private:
    static QString problemOf(const QByteArray &bytes)
    {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        const QString problem = KRPictureGuard::problemOf(&buffer);
        return buffer.pos() == 0 ? problem : QStringLiteral("not at its beginning");
    }
};

template class KRTestRegistration<tst_KRPictureGuard>;

#include "tst_KRPictureGuard.moc"
