#include "KRMapArea.h"

#include <KRGeoLocation/KRGPXTrackElement.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRGeoPositionList.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

constexpr double marginAroundPlace = 0.25; // degrees
constexpr double smallestExtension = 0.004; // degrees, some hundred metres
constexpr double shareOfMargin = 0.1;

/// Degrees from west to east, across the date line where west is the larger number.
double widthOf(const KRLongitudeRange &range)
{
    const double width = range.east().decimalDegrees() - range.west().decimalDegrees();
    return width < 0.0 ? width + 360.0 : width;
}

KRLatitude onMap(const KRLatitude &latitude)
{
    return std::clamp(latitude.decimalDegrees(), -KRMapArea::maximumLatitude, KRMapArea::maximumLatitude);
}

KRGeoPosition readPosition(const QString &text)
{
    const KRGeoPosition position = KRGeoPosition::parse(text);
    return position.isValid() ? position : KRGeoPosition::fromString(text);
}

} // namespace

bool KRMapArea::isValidPosition(double latitude, double longitude)
{
    const KRGeoArc y = latitude;
    const KRGeoArc x = longitude;
    return y.isValid() && x.isValid() && !(y.isNull() && x.isNull());
}

KRGeoPositionRect KRMapArea::paddedAreaOf(const KRGPXTrackSelection &selection)
{
    KRMapArea covered;
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks)
        covered.add(track);
    return covered.padded();
}

void KRMapArea::add(const KRGPXTrackElement &track)
{
    double previousLongitude = KRGeoArc::invalidDegrees;
    track.visitPositions([&](const KRGeoPositionSpan &positions) {
        for (int i = 0; i < positions.count; ++i) {
            if (!isValidPosition(positions.latitudes[i], positions.longitudes[i]))
                continue;
            const double longitude = KRLongitude::safeLongitude(positions.longitudes[i]).decimalDegrees();
            addPosition(positions.latitudes[i], longitude);
            if (previousLongitude < KRGeoArc::invalidDegrees)
                cross(previousLongitude, longitude);
            previousLongitude = longitude;
        }
    });
}

int KRMapArea::stripAt(double longitude)
{
    return std::clamp(static_cast<int>((longitude + 180.0) * 10.0), 0, stripCount - 1);
}

void KRMapArea::addPosition(double latitude, double longitude)
{
    m_south = std::min(m_south, latitude);
    m_north = std::max(m_north, latitude);
    const int place = stripAt(longitude);
    Strip &strip = m_strips[static_cast<std::size_t>(place)];
    strip.west = std::min(strip.west, longitude);
    strip.east = std::max(strip.east, longitude);
    m_first = std::min(m_first, place);
    m_last = std::max(m_last, place);
}

void KRMapArea::cross(double fromLongitude, double toLongitude)
{
    const int from = stripAt(fromLongitude);
    const int to = stripAt(toLongitude);
    if (from == to)
        return;
    const bool goesEast = KRLongitude(toLongitude).isEastOf(KRLongitude(fromLongitude));
    const int west = goesEast ? from : to;
    const int east = goesEast ? to : from;
    if (west < east) {
        addLine(west, east);
    } else {
        addLine(west, stripCount - 1);
        addLine(0, east);
    }
}

/// Not strip by strip: there may be millions of lines around half the world.
void KRMapArea::addLine(int west, int east)
{
    m_first = std::min(m_first, west);
    m_last = std::max(m_last, east);
    ++m_strips[static_cast<std::size_t>(west)].change;
    if (east + 1 < stripCount)
        --m_strips[static_cast<std::size_t>(east) + 1].change;
}

KRLongitudeRange KRMapArea::coveredLongitudes() const
{
    // The widest run of strips that nothing crosses. One may go on across the date line, where it is counted twice: as
    // far as to the first strip that is touched, and as a whole after all others.
    int widest = m_first;
    int endOfWidest = m_first - 1;
    int run = 0;
    int lines = 0;
    for (int i = m_first; i <= m_last; ++i) {
        const Strip &strip = m_strips[static_cast<std::size_t>(i)];
        lines += strip.change;
        run = lines > 0 || strip.west <= strip.east ? 0 : run + 1;
        if (run > widest) {
            widest = run;
            endOfWidest = i;
        }
    }
    const int across = stripCount - 1 - m_last + m_first;
    if (across > widest) {
        widest = across;
        endOfWidest = m_first - 1;
    }
    if (widest == 0)
        return KRLongitudeRange(KRLongitude(-180.0), KRLongitude(180.0));
    const int first = (endOfWidest + 1) % stripCount;
    const int last = (endOfWidest + stripCount - widest) % stripCount;
    return KRLongitudeRange(KRLongitude(m_strips[static_cast<std::size_t>(first)].west),
                            KRLongitude(m_strips[static_cast<std::size_t>(last)].east));
}

KRGeoPositionRect KRMapArea::covered() const
{
    if (m_south > m_north)
        return KRGeoPositionRect();
    const KRLatitude south(std::clamp(m_south, -90.0, 90.0));
    const KRLatitude north(std::clamp(m_north, -90.0, 90.0));
    return KRGeoPositionRect(KRLatitudeRange(south, north), coveredLongitudes());
}

KRGeoPositionRect KRMapArea::padded(const KRGeoPositionRect &area)
{
    if (!area.isValid())
        return area;

    const double width = widthOf(area.longitudeRange());
    const double height = area.north().decimalDegrees() - area.south().decimalDegrees();
    const double extension = std::max(width, height);
    double margin = extension * shareOfMargin;
    if (extension < smallestExtension)
        margin = extension > 0.0 ? smallestExtension / 2.0 : marginAroundPlace;

    const KRLatitude south = onMap(area.south().decimalDegrees() - margin);
    const KRLatitude north = onMap(area.north().decimalDegrees() + margin);
    KRLongitudeRange longitudes(KRLongitude(-180.0), KRLongitude(180.0));
    if (width + 2.0 * margin < 360.0) {
        longitudes = KRLongitudeRange(KRLongitude::safeLongitude(area.west().decimalDegrees() - margin),
                                      KRLongitude::safeLongitude(area.east().decimalDegrees() + margin));
    }
    return KRGeoPositionRect(KRLatitudeRange(south, north), longitudes);
}

KRGeoPositionRect KRMapArea::parse(const QString &text)
{
    const QStringList corners = text.split(QRegularExpression(QStringLiteral("\\s*\\.\\.\\s*")));
    if (corners.size() != 2)
        return KRGeoPositionRect();
    const KRGeoPosition northWest = readPosition(corners.at(0));
    const KRGeoPosition southEast = readPosition(corners.at(1));
    const KRGeoPositionRect area(KRLatitudeRange(southEast.latitude(), northWest.latitude()),
                                 KRLongitudeRange(northWest.longitude(), southEast.longitude()));
    if (!area.isValid())
        return KRGeoPositionRect();
    // The poles lie beyond any map.
    const KRLatitudeRange latitudes(onMap(area.south()), onMap(area.north()));
    const bool isEmpty = latitudes.north() == latitudes.south() || area.west() == area.east();
    return isEmpty ? KRGeoPositionRect() : KRGeoPositionRect(latitudes, area.longitudeRange());
}
