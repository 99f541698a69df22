#include "KRBenchmarkTracks.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <QDateTime>

#include <cmath>
#include <random>

namespace {

constexpr double pi = 3.141592653589793;
constexpr double south = 53.0;
constexpr double west = 8.0;
constexpr double extent = 1.0;

// Degrees, of which one fills the picture: a track of many points is longer, but also recorded more densely.
double stepLength(int count)
{
    return 0.00034 * std::pow(10000.0 / count, 0.4);
}

// radians from step to step, the standard deviation
constexpr double turn = 0.2;

// Back into the range; tells whether it was outside.
bool reflect(double *value, double lower)
{
    const double upper = lower + extent;
    if (*value >= lower && *value <= upper)
        return false;
    *value = *value < lower ? 2.0 * lower - *value : 2.0 * upper - *value;
    return true;
}

} // namespace

KRGeoPositionRect KRBenchmarkTracks::area()
{
    return KRGeoPositionRect(KRGeoPosition(south, west), KRGeoPosition(south + extent, west + extent));
}

std::vector<std::pair<double, double>> KRBenchmarkTracks::randomWalk(int count)
{
    std::mt19937 random(20240611);
    std::normal_distribution<double> turning(0.0, turn);
    std::vector<std::pair<double, double>> walk;
    walk.reserve(std::size_t(count));
    double latitude = south + extent / 2.0;
    double longitude = west + extent / 2.0;
    double heading = 0.0;
    const double step = stepLength(count);
    for (int i = 0; i < count; ++i) {
        heading += turning(random);
        latitude += step * std::sin(heading);
        longitude += step * std::cos(heading);
        if (reflect(&latitude, south))
            heading = -heading;
        if (reflect(&longitude, west))
            heading = pi - heading;
        walk.emplace_back(latitude, longitude);
    }
    return walk;
}

KRGeoPositionList KRBenchmarkTracks::randomPositions(int count)
{
    KRGeoPositionList positions;
    positions.reserve(count);
    for (const auto &[latitude, longitude] : randomWalk(count))
        positions.append(KRGeoPosition(latitude, longitude));
    return positions;
}

KRGPXTrackSelection KRBenchmarkTracks::selectionOf(const KRGeoPositionList &positions)
{
    QList<KRGPXTrackPoint> points;
    points.reserve(positions.size());
    for (const KRGeoPosition &position : positions)
        points.append(KRGPXTrackPoint(position, 0, QDateTime(), QString()));
    const KRGPXTrack track(QStringLiteral("walk"), QString(), {KRGPXTrackSegment(points)}, LineStringTrackShape);
    return KRGPXTrackSelection(
        KRGPXConfiguredTrackList(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration::defaultValue())));
}

QByteArray KRBenchmarkTracks::gpxDocument(int count)
{
    QByteArray document("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<gpx version=\"1.1\" creator=\"benchmark\" "
                        "xmlns=\"http://www.topografix.com/GPX/1/1\"><trk><name>walk</name><trkseg>\n");
    document.reserve(document.size() + count * 100);
    QDateTime time(QDate(2024, 6, 11), QTime(5, 0), Qt::UTC);
    int number = 0;
    for (const auto &[latitude, longitude] : randomWalk(count)) {
        document += "<trkpt lat=\"" + QByteArray::number(latitude, 'f', 7) + "\" lon=\""
                    + QByteArray::number(longitude, 'f', 7) + "\"><ele>"
                    + QByteArray::number(10.0 + number % 90, 'f', 1) + "</ele><time>"
                    + time.toString(Qt::ISODate).toLatin1() + "</time></trkpt>\n";
        time = time.addSecs(1);
        ++number;
    }
    return document + "</trkseg></trk></gpx>\n";
}
