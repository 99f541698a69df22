#include "KRTrackFigures.h"

#include "KRClimbCounter.h"
#include "KRMapArea.h"
#include "KRSpeedometer.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

KRTrackFigures::KRTrackFigures(const KRGPXConfiguredTrack &track)
{
    KRClimbCounter climb;
    KRSpeedometer speed;
    const QList<KRGPXTrackSegment> segments = track.track().segments();
    m_segmentCount = segments.size();
    for (const KRGPXTrackSegment &segment : segments)
        addSegment(segment, climb, speed);
    m_climbMetres = climb.climbMetres();
    m_descentMetres = climb.descentMetres();
    m_averageSpeedKmh = speed.averageKmh();
    m_maximumSpeedKmh = speed.maximumKmh();

    KRMapArea area;
    area.add(track);
    m_boundingBox = area.covered();
}

double KRTrackFigures::durationSeconds() const
{
    // Times may lie farther apart than their difference in whole milliseconds can tell.
    return (double(m_to.toMilliseconds()) - double(m_from.toMilliseconds())) / 1000.0;
}

void KRTrackFigures::addSegment(const KRGPXTrackSegment &segment, KRClimbCounter &climb, KRSpeedometer &speed)
{
    KRGeoPosition previous;
    m_pointCount += segment.count();
    for (int i = 0; i < segment.count(); ++i) {
        const KRGPXTime time = segment.time(i);
        addTime(time);
        if (const int elevation = segment.elevation(i); elevation != 0) {
            addElevation(elevation);
            climb.add(elevation);
        }
        const KRGeoPosition position = segment.positions().at(i);
        if (!position.isValid())
            continue;
        if (previous.isValid())
            m_lengthKm += previous.distance(position);
        if (!m_firstPosition.isValid())
            m_firstPosition = position;
        m_lastPosition = position;
        previous = position;
        if (time.isValid())
            speed.add(double(time.toMilliseconds()), m_lengthKm);
    }
    climb.startAnew();
    speed.startAnew();
}

void KRTrackFigures::addTime(const KRGPXTime &time)
{
    if (!time.isValid())
        return;
    if (!m_from.isValid() || time.toMilliseconds() < m_from.toMilliseconds())
        m_from = time;
    if (!m_to.isValid() || time.toMilliseconds() > m_to.toMilliseconds())
        m_to = time;
}

void KRTrackFigures::addElevation(int metres)
{
    const bool isFirst = !hasElevation();
    m_lowestMetres = isFirst ? metres : qMin(m_lowestMetres, metres);
    m_highestMetres = isFirst ? metres : qMax(m_highestMetres, metres);
}
