#include "KRTrackEditing.h"

#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <QRegularExpression>

#include <algorithm>

namespace {

KRGPXTrack withEnclaves(KRGPXTrack track, const QList<KRGPXTrack> &enclaves)
{
    for (const KRGPXTrack &enclave : enclaves)
        track.addEnclave(enclave);
    return track;
}

/// Draws @p changed as @p track, of which it is made.
KRGPXConfiguredTrack drawnAs(const KRGPXConfiguredTrack &track, const KRGPXTrack &changed)
{
    KRGPXTrackConfiguration configuration = track.configuration();
    if (configuration.trackShape() == track.naturalShape())
        configuration.setTrackShape(AutoTrackShape);
    return KRGPXConfiguredTrack(changed, configuration);
}

/// "Tour" for "Tour (1)" and "Tour (2)"; else the name of the first that has one.
QString joinedName(const QString &first, const QString &second)
{
    static const QRegularExpression number(QStringLiteral(" \\(\\d+\\)$"));
    const auto stem = [](QString name) { return name.remove(number); };
    if (first != second && stem(first) == stem(second))
        return stem(first);
    return first.isEmpty() ? second : first;
}

QString joinedDescription(const QString &first, const QString &second)
{
    if (first == second || second.isEmpty())
        return first;
    return first.isEmpty() ? second : first + QLatin1Char('\n') + second;
}

/// Appends the points from @p first up to but without @p end.
void append(KRGPXTrackSegment *segment, const KRGPXTrackSegment &other, int first, int end)
{
    for (int i = first; i < end; ++i)
        segment->append(other, i);
    segment->squeeze();
}

/// @p segments up to the point with this number and from it on.
struct CutSegments {
    QList<KRGPXTrackSegment> before;
    QList<KRGPXTrackSegment> after;
};

CutSegments cut(const QList<KRGPXTrackSegment> &segments, int pointNumber)
{
    CutSegments parts;
    int firstNumber = 0;
    for (const KRGPXTrackSegment &segment : segments) {
        const int index = pointNumber - firstNumber;
        const int lastIndex = segment.count() - 1;
        firstNumber += segment.count();
        if (index > 0 && index < lastIndex) {
            KRGPXTrackSegment before;
            KRGPXTrackSegment after;
            append(&before, segment, 0, index + 1);
            append(&after, segment, index, segment.count());
            parts.before.append(before);
            parts.after.append(after);
        } else if (index > 0) {
            parts.before.append(segment);
        } else {
            parts.after.append(segment);
        }
    }
    return parts;
}

} // namespace

KRGPXConfiguredTrack KRTrackEditing::renamed(const KRGPXConfiguredTrack &track, const QString &name)
{
    KRGPXTrack changed = track.track();
    changed.setName(name);
    KRGPXConfiguredTrack result = track;
    result.setTrack(changed);
    return result;
}

KRGPXConfiguredTrack KRTrackEditing::reversed(const KRGPXConfiguredTrack &track)
{
    QList<KRGPXTrackSegment> segments = track.track().segments();
    std::reverse(segments.begin(), segments.end());
    for (KRGPXTrackSegment &segment : segments) {
        KRGPXTrackSegment backwards;
        for (int i = segment.count() - 1; i >= 0; --i)
            backwards.append(segment, i);
        backwards.squeeze();
        segment = backwards;
    }
    const KRGPXTrack changed(track.name(), track.description(), segments, track.track().shape());
    return drawnAs(track, withEnclaves(changed, track.track().enclaves()));
}

KRGPXConfiguredTrack KRTrackEditing::part(const KRGPXConfiguredTrack &track, int number,
                                          const QList<KRGPXTrackSegment> &segments)
{
    const QString name =
        track.name().isEmpty() ? QString() : QStringLiteral("%1 (%2)").arg(track.name(), QString::number(number));
    return drawnAs(track, KRGPXTrack(name, track.description(), segments, track.track().shape()));
}

KRGPXConfiguredTrackList KRTrackEditing::split(const KRGPXConfiguredTrack &track, int pointNumber)
{
    const bool isInside = pointNumber > 0 && pointNumber < track.track().countPoints() - 1;
    if (!isInside || !track.track().enclaves().isEmpty())
        return KRGPXConfiguredTrackList(track);
    const CutSegments parts = cut(track.track().segments(), pointNumber);
    KRGPXConfiguredTrackList tracks;
    tracks.append(part(track, 1, parts.before));
    tracks.append(part(track, 2, parts.after));
    return tracks;
}

int KRTrackEditing::nearestPoint(const KRGPXConfiguredTrack &track, const KRGeoPosition &position)
{
    if (!position.isValid())
        return -1;
    int nearest = -1;
    double shortestKm = 0.0;
    int number = 0;
    const QList<KRGPXTrackSegment> segments = track.track().segments();
    for (const KRGPXTrackSegment &segment : segments) {
        const KRGeoPositionSpan points = segment.positions();
        for (int i = 0; i < points.count; ++i) {
            const KRGeoPosition point = points.at(i);
            const double distanceKm = point.isValid() ? point.distance(position) : -1.0;
            if (distanceKm >= 0.0 && (nearest < 0 || distanceKm < shortestKm)) {
                nearest = number;
                shortestKm = distanceKm;
            }
            ++number;
        }
    }
    return nearest;
}

KRGPXConfiguredTrack KRTrackEditing::joined(const KRGPXConfiguredTrack &first, const KRGPXConfiguredTrack &second)
{
    QList<KRGPXTrackSegment> segments = first.track().segments();
    QList<KRGPXTrackSegment> following = second.track().segments();
    const bool isConnected =
        !segments.isEmpty() && segments.last().isValid() && !following.isEmpty() && following.first().isValid()
        && segments.last().trackPoint(segments.last().count() - 1) == following.first().trackPoint(0);
    if (isConnected) {
        const KRGPXTrackSegment rest = following.takeFirst();
        append(&segments.last(), rest, 1, rest.count());
    }
    segments += following;

    const KRGPXTrack way(joinedName(first.name(), second.name()),
                         joinedDescription(first.description(), second.description()), segments, first.track().shape());
    return drawnAs(first, withEnclaves(way, first.track().enclaves() + second.track().enclaves()));
}
