#pragma once

#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QDateTime>
#include <QList>

/// Tracks that lead straight north, so that their figures are seen from their points.
namespace KRTestTrack {

constexpr double kmPerDegree = 111.1774733520461; // on the sphere of 6370 km

struct Point {
    double kilometre; ///< northwards
    int elevation;
    int second; ///< negative: no time
};

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
