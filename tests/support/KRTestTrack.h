#pragma once

#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QDateTime>
#include <QDir>
#include <QList>

/// Tracks that stand in the tests themselves.
namespace KRTestTrack {

/// Where files are neither read nor written: everything stands in one document.
const QDir noDir = QDir(QString());

/// A track of one segment from a text of "longitude,latitude" or more.
inline KRGPXTrack track(const QString &coordinates, KRGPXTrackShapeEnum shape = LineStringTrackShape,
                        const QString &name = QStringLiteral("track"))
{
    return KRGPXTrack::decodeKml(name, QString(), coordinates, shape);
}

constexpr double kmPerDegree = 111.1774733520461; // on the sphere of 6370 km

struct Point {
    double kilometre; ///< northwards
    int elevation;
    int second; ///< negative: no time
};

/// A track that leads straight north, so that its figures are seen from its points.
inline KRGPXTrack northwards(const QList<QList<Point>> &segments)
{
    QList<KRGPXTrackSegment> trackSegments;
    for (const QList<Point> &points : segments) {
        KRGPXTrackSegment segment;
        for (const Point &point : points) {
            segment.append(10.0 + point.kilometre / kmPerDegree, 8.0, point.elevation,
                           point.second < 0 ? QDateTime() : QDateTime::fromSecsSinceEpoch(point.second, Qt::UTC),
                           QString());
        }
        trackSegments.append(segment);
    }
    return KRGPXTrack(QString(), QString(), trackSegments, LineStringTrackShape);
}

} // namespace KRTestTrack
