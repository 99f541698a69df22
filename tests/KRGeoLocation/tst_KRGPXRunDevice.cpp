#include <KRGeoLocation/KRGPXRunDevice.h>

#include "KRTest.h"

#include <cstring>

class tst_KRGPXRunDevice : public QObject
{
    Q_OBJECT

private slots:
    void asksWhereverPointsMayFollow()
    {
        const QByteArray p = "<trkpt lat='5' lon='6'/>";
        const QByteArray odd = "<trkpt lat='5' lon='&#54;'/>";
        const QByteArray longer = "<trkpt lat='5' lon='&#54;'><ele>1</ele></trkpt>";
        const KRTestTable<QByteArray, QByteArray> table{
            {"the next segment", "<trkseg>" + p + "</trkseg>\n<trkseg>" + p + p + "</trkseg>",
             "<trkseg></trkseg>\n<trkseg></trkseg>"},
            {"the next track", "<trkseg>" + p + "</trkseg></trk><trk><trkseg>" + p + p + "</trkseg>",
             "<trkseg></trkseg></trk><trk><trkseg></trkseg>"},
            {"behind one without content", "<trkseg>" + odd + "\n" + p + odd + odd + p, "<trkseg>" + odd + odd + odd},
            {"behind one with content", "<trkseg>" + longer + p + p, "<trkseg>" + longer},
        };
        table.forEach([&](const QByteArray &gpx, const QByteArray &expected) {
            QBuffer buffer;
            buffer.setData("<gpx><metadata></metadata><trk>" + gpx);
            buffer.open(QIODevice::ReadOnly);
            const auto takePoints = [&](const char *begin, const char *end) {
                const char *at = begin;
                if (at < end && *at == '\n')
                    ++at;
                for (; end - at >= p.size() && std::memcmp(at, p.constData(), std::size_t(p.size())) == 0; begin = at)
                    at += p.size();
                return begin;
            };
            KRGPXRunDevice device(&buffer, takePoints);
            // As the XML reader does, which asks for more than there is.
            QByteArray passed;
            for (QByteArray piece = device.read(8192); !piece.isEmpty(); piece = device.read(8192))
                passed += piece;
            QCOMPARE(passed, "<gpx><metadata></metadata><trk>" + expected);
        });
    }
};

template class KRTestRegistration<tst_KRGPXRunDevice>;

#include "tst_KRGPXRunDevice.moc"
