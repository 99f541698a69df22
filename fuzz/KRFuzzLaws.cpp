#include "KRFuzzLaws.h"

#include "KRFuzzFile.h"

#include <KRExchangeFile.h>
#include <KRRouteImport.h>
#include <KRTestTrack.h>
#include <KRTrackKeeper.h>

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDir>
#include <QDomDocument>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

QString textOf(const KRGPXTrack &track)
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("root"));
    track.toXml(root, QDir(QString()));
    QDomElement kept = KRXMLBuilder::buildDomElement(root, QStringLiteral("kept"));
    KRTrackKeeper::keep(track, kept);
    return KRXMLBuilder::toText(document);
}

KRGPXTrack trackOf(const QString &text)
{
    QDomDocument document;
    document.setContent(text);
    const QDomElement root = document.documentElement();
    const KRGPXTrack track(root.firstChildElement(QStringLiteral("trk")), QDir(QString()));
    return KRTrackKeeper::restored(track, root.firstChildElement(QStringLiteral("kept")));
}

/// Comma text keeps seven decimals exactly only where a double has as many, and no time beyond the years of ISO 8601.
bool isKeptExactly(const KRGPXTrack &track)
{
    const QList<KRGPXTrackSegment> segments = track.segments();
    const bool areSegmentsKept = std::all_of(segments.cbegin(), segments.cend(), [](const KRGPXTrackSegment &segment) {
        const QList<KRGPXTrackPoint> points = segment.trackPoints();
        return std::all_of(points.cbegin(), points.cend(), [](const KRGPXTrackPoint &point) {
            const bool isTimeKept = !point.timeStamp().isValid() || std::abs(point.timeStamp().date().year()) < 10000;
            return isTimeKept && point.position().isValid();
        });
    });
    const QList<KRGPXTrack> enclaves = track.enclaves();
    return areSegmentsKept && std::all_of(enclaves.cbegin(), enclaves.cend(), isKeptExactly);
}

} // namespace

int KRFuzzLaws::countPoints(const QList<KRGPXTrack> &tracks)
{
    return std::accumulate(tracks.cbegin(), tracks.cend(), 0, [](int sum, const KRGPXTrack &track) {
        return sum + track.countPoints() + countPoints(track.enclaves());
    });
}

QString KRFuzzLaws::brokenByXml(const KRGPXTrack &track)
{
    if (!isKeptExactly(track))
        return QString();
    // The first writing loses on purpose: points at (0, 0), decimals, names of nothing but blanks.
    const KRGPXTrack once = trackOf(textOf(track));
    const QString text = textOf(once);
    const KRGPXTrack twice = trackOf(text);
    if (KRTestTrack::exactText({once}) != KRTestTrack::exactText({twice}))
        return QStringLiteral("A track that is written as XML and read again stays the same.");
    return textOf(twice) == text ? QString() : QStringLiteral("A track is written as the same XML each time.");
}

QString KRFuzzLaws::brokenByXml(const KRGPXTrackConfiguration &configuration)
{
    const QString text = configuration.serialize();
    return KRGPXTrackConfiguration::deserialize(text).serialize() == text
               ? QString()
               : QStringLiteral("A configuration is written as the same XML each time.");
}

QString KRFuzzLaws::brokenByExchange(const KRGPXConfiguredTrackList &tracks, const QByteArray &format)
{
    const QString fileName = QStringLiteral("exchange.") + QString::fromLatin1(format);
    const auto written = [&](const KRGPXConfiguredTrackList &list) {
        return KRExchangeFile::encode(list, format, QStringLiteral("exchange"), nullptr);
    };
    const auto read = [&](const QByteArray &bytes) {
        KRRouteImport import;
        import.read({KRFuzzFile::write(fileName, bytes).filePath()});
        return import.tracks();
    };
    // The first writing loses on purpose: decimals, and points that no other program knows.
    const QByteArray once = written(read(written(tracks)));
    return written(read(once)) == once
               ? QString()
               : QStringLiteral("Tracks that are written for other programs and read again are written alike.");
}

QString KRFuzzLaws::brokenBySize(const QList<KRGPXTrack> &tracks, qint64 bytes)
{
    return countPoints(tracks) <= bytes ? QString() : QStringLiteral("There are no more points than bytes.");
}

QList<KRGPXTrack> KRFuzzLaws::tracksOf(const KRGPXConfiguredTrackList &tracks)
{
    QList<KRGPXTrack> result;
    for (const KRGPXConfiguredTrack &track : tracks)
        result.append(track.track());
    return result;
}
