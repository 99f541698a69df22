#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QDateTime>
#include <QDir>
#include <QList>

/// Tracks of a few points, straight from what a test says about them.
namespace KRTestTrack {

/// Where files are neither read nor written: everything stands in one document.
const QDir noDir = QDir(QString());

/// A track of one segment from a text of "longitude,latitude" or more.
inline KRGPXTrack track(const QString &coordinates, KRGPXTrackShapeEnum shape = LineStringTrackShape,
                        const QString &name = QStringLiteral("track"))
{
    return KRGPXTrack::decodeKml(name, QString(), coordinates, shape);
}

/// Without times and elevations.
inline KRGPXTrackSegment segment(const QList<KRGeoPosition> &positions)
{
    QList<KRGPXTrackPoint> points;
    for (const KRGeoPosition &position : positions)
        points.append(KRGPXTrackPoint(position, 0, QDateTime(), QString()));
    return KRGPXTrackSegment(points);
}

inline KRGPXTrack through(const QList<KRGeoPosition> &positions, const KRGPXTrackShape &shape = LineStringTrackShape,
                          const QString &name = QString())
{
    return KRGPXTrack(name, QString(), {segment(positions)}, shape);
}

/// "longitude,latitude,elevation,milliseconds 'description'", as far as there are such.
inline QString text(const KRGPXTrackPoint &point)
{
    const auto number = [](double degrees) { return QString::number(degrees, 'g', 10); };
    QString text = number(point.position().longitude().decimalDegrees()) + QLatin1Char(',')
                   + number(point.position().latitude().decimalDegrees());
    if (point.elevation() != 0 || point.timeStamp().isValid())
        text += QStringLiteral(",%1").arg(point.elevation());
    if (point.timeStamp().isValid())
        text += QStringLiteral(",%1").arg(point.timeStamp().toMSecsSinceEpoch());
    return point.description().isEmpty() ? text : QStringLiteral("%1 '%2'").arg(text, point.description());
}

/// All that is in it: "name (description) shape: point point | point {enclave}".
inline QString text(const KRGPXTrack &track, const KRGPXTrackShape &shape)
{
    QStringList segments;
    for (const KRGPXTrackSegment &segment : track.segments()) {
        QStringList points;
        for (const KRGPXTrackPoint &point : segment.trackPoints())
            points.append(text(point));
        segments.append(points.join(QLatin1Char(' ')));
    }
    const QString bracketed = QStringLiteral(" (%1)").arg(track.description());
    QString text = track.name() + (track.description().isEmpty() ? QString() : bracketed) + QLatin1Char(' ')
                   + shape.keys() + QLatin1String(": ") + segments.join(QLatin1String(" | "));
    for (const KRGPXTrack &enclave : track.enclaves())
        text +=
            QStringLiteral(" {%1}").arg(KRTestTrack::text(enclave, enclave.shape()).section(QLatin1String(": "), 1));
    return text;
}

inline QString names(const KRGPXConfiguredTrackList &tracks, const QString &separator = QStringLiteral(" "))
{
    QStringList names;
    for (const KRGPXConfiguredTrack &track : tracks)
        names.append(track.name());
    return names.join(separator);
}

/// Of all tracks, with semicolons between them.
inline QString text(const KRGPXConfiguredTrackList &tracks)
{
    QStringList texts;
    for (const KRGPXConfiguredTrack &track : tracks)
        texts.append(text(track.track(), track.effectiveShape()));
    return texts.join(QLatin1String("; "));
}

/// With every digit and every property of the time, which comparing points forgives.
inline QString exactText(const KRGPXTrackPoint &point)
{
    const QDateTime time = point.timeStamp();
    QStringList words{QString::number(point.position().latitude().decimalDegrees(), 'g', 17),
                      QString::number(point.position().longitude().decimalDegrees(), 'g', 17),
                      QString::number(point.elevation()), point.description()};
    if (time.isValid())
        words += {QString::number(time.toMSecsSinceEpoch()), QString::number(time.timeSpec()),
                  QString::number(time.offsetFromUtc())};
    return words.join(QLatin1Char('\x1f'));
}

/// The same of all tracks.
inline QString exactText(const QList<KRGPXTrack> &tracks)
{
    QStringList words;
    for (const KRGPXTrack &track : tracks) {
        words += {QString::number(track.shape().value()), track.name(), track.description()};
        for (const KRGPXTrackSegment &segment : track.segments()) {
            words += QStringLiteral("segment");
            for (const KRGPXTrackPoint &point : segment.trackPoints())
                words += exactText(point);
        }
        words += QStringLiteral("enclaves of %1").arg(track.name()) + exactText(track.enclaves());
    }
    return words.join(QLatin1Char('\x1e'));
}

constexpr double kmPerDegree = 111.1774733520461; // on the sphere of 6370 km

struct Point {
    double kilometre; ///< northwards
    int elevation;
    int second; ///< negative: no time
};

/// Straight north, so that the figures of the track are seen from its points.
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
