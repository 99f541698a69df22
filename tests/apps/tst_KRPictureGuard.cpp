#include "KRPictureGuard.h"

#include "KRTest.h"
#include "KRTestPictures.h"
#include "KRTestTiles.h"

#include <KRCore/KRInputLimits.h>

#include <QBuffer>

using KRTestPictures::Jpeg;
using KRTestPictures::jpegSegment;
using KRTestPictures::pngWith;
using KRTestPictures::TiffTags;

namespace {

const QString notAtBeginning = QStringLiteral("not at its beginning");

} // namespace

class tst_KRPictureGuard : public QObject
{
    Q_OBJECT

private slots:
    void directoryOfTiff()
    {
        // word: of the problem; none where there is none
        const KRTestTable<TiffTags, const char *> table{
            {"large, no tiles", {{256, 4, 8000}, {257, 4, 8000}, {258, 3, 8}, {277, 3, 4}, {278, 3, 1000}}, ""},
            {"of one strip", {{256, 4, 8000}, {257, 4, 8000}, {258, 3, 8}, {277, 3, 3}}, ""},
            {"16 bits", {{256, 4, 8000}, {257, 4, 8000}, {258, 3, 16}, {277, 3, 4}, {278, 3, 1}}, "im Speicher"},
            {"many rows", {{256, 4, 20000}, {257, 4, 10000}, {258, 3, 8}, {277, 3, 3}, {278, 3, 1}}, "im Speicher"},
            {"1000 samples", {{256, 4, 1000}, {257, 4, 1000}, {258, 3, 8}, {277, 3, 1000}}, "Streifen"},
            {"usual tiles", {{256, 4, 10}, {322, 3, 256}, {323, 3, 256}}, ""},
            {"larger tiles", {{258, 3, 8}, {322, 4, 22000}, {323, 3, 22000}}, "Streifen"},
            {"far larger", {{322, 4, 0xffffffff}, {323, 4, 0xffffffff}}, "Streifen"},
            {"of no width", {{322, 3, 0}, {323, 4, 0xffffffff}}, ""},
            {"of a type that is none", {{322, 7, 1}, {323, 3, 256}}, "Streifen"},
            {"a profile", {{256, 4, 10}, {34675, 7, 8, 3 << 20}}, ""},
            {"large profiles", {{34675, 7, 8, 3 << 20}, {700, 7, 8, 3 << 20}, {65000, 7, 8, 3 << 20}}, "neben"},
            {"strips without number", {{273, 4, 8, 60000000}}, "neben"},
        };
        table.forEach([](const TiffTags &tags, const char *word) {
            for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
                for (const bool isWide : {false, true}) {
                    const QByteArray bytes = KRTestPictures::tiff(order, isWide, tags);
                    compare(bytes, word);
                    // Cut off anywhere, it is no picture, which others notice.
                    for (int size = 0; size < bytes.size(); ++size)
                        QVERIFY(problemOf(bytes.left(size)) != notAtBeginning);
                }
            }
        });
    }

    void bitsOfTiffStandElsewhere()
    {
        const TiffTags tags{{256, 4, 8000}, {257, 4, 8000}, {277, 3, 3}, {258, 3, 8 + 2 + 4 * 12, 3}};
        for (const auto &[bits, word] : {std::pair{8, ""}, {32, "im Speicher"}}) {
            const QByteArray values = QByteArray(1, char(bits)) + '\0';
            compare(KRTestPictures::tiff(QDataStream::LittleEndian, false, tags) + values.repeated(3), word);
        }
    }

    void jpegs()
    {
        const QByteArray lookingLikeScans = jpegSegment(0xe1, QByteArray::fromHex("ffda").repeated(128));
        const KRTestTable<Jpeg, const char *> table{
            {"many scans", {KRInputLimits::jpegScans, 8, 1, true, lookingLikeScans}, ""},
            {"too many", {KRInputLimits::jpegScans + 1, 8}, "Durchgängen"},
            {"too many for the size", {30, 8000}, "Durchgängen"},
            {"usual", {10, 6000, 3}, ""},
            {"too large to keep", {1, 8000, 3}, "aufgebaut"},
            {"too large, one component after the other", {1, 8000, 3, false}, "aufgebaut"},
            {"large in shades of grey", {1, 8000, 1, false}, ""},
            {"some comments", {1, 8, 1, true, jpegSegment(0xfe, "a: b").repeated(100)}, ""},
            {"many comments",
             {1, 8, 1, true, jpegSegment(0xfe, "a: b").repeated(KRInputLimits::jpegSegments)},
             "neben"},
            {"long ones", {1, 8, 1, true, jpegSegment(0xe2, QByteArray(65000, 'a')).repeated(130)}, "neben"},
        };
        table.forEach([](const Jpeg &values, const char *word) { compare(KRTestPictures::jpeg(values), word); });
    }

    void chunksOfPng()
    {
        constexpr int mostTexts =
            (KRInputLimits::pictureMemoryBytes - 256 * 256 * 4) / KRInputLimits::pngPackedTextBytes;
        const QByteArray good = KRTestTiles::picture({2, 1, 1});
        QByteArray large = good;
        large.replace(16, 8, QByteArray::fromHex("00001f4000001f40")); // 8000 pixels wide and high
        const QByteArray packed(8000, '\0');
        const QByteArray plain("Title\0\0\0de\0Titel\0Karte", 23);
        const KRTestTable<QByteArray, const char *> table{
            {"some packed texts", pngWith(good, "zTXt", packed, mostTexts), ""},
            {"many packed texts", pngWith(good, "zTXt", packed, mostTexts + 1), "neben"},
            {"packed texts in a large picture", pngWith(large, "zTXt", packed, 4), ""},
            {"more of them", pngWith(large, "zTXt", packed, 5), "neben"},
            {"short ones", pngWith(large, "zTXt", QByteArray(300, '\0'), 50), ""},
            {"many plain texts", pngWith(good, "iTXt", plain, mostTexts + 2), ""},
            {"long texts", pngWith(good, "tEXt", QByteArray(3 << 20, 'a'), 3), "neben"},
        };
        table.forEach(compare);
    }

private:
    static void compare(const QByteArray &bytes, const char *word)
    {
        const QString problem = problemOf(bytes);
        QCOMPARE(problem.isEmpty(), *word == '\0');
        QVERIFY2(problem.contains(QString::fromUtf8(word)), qPrintable(problem));
    }

    static QString problemOf(const QByteArray &bytes)
    {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        const QString problem = KRPictureGuard::problemOf(&buffer, KRInputLimits::jpegSamples);
        return buffer.pos() == 0 ? problem : notAtBeginning;
    }
};

template class KRTestRegistration<tst_KRPictureGuard>;

#include "tst_KRPictureGuard.moc"
