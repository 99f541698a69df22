#include "KRTrackFigures.h"

#include "KRClimbCounter.h"
#include "KRMapArea.h"
#include "KRSpeedometer.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
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
    return (double(m_to.toMSecsSinceEpoch()) - double(m_from.toMSecsSinceEpoch())) / 1000.0;
}

void KRTrackFigures::addSegment(const KRGPXTrackSegment &segment, KRClimbCounter &climb, KRSpeedometer &speed)
{
    KRGeoPosition previous;
    m_pointCount += segment.count();
    for (int i = 0; i < segment.count(); ++i) {
        const KRGPXTrackPoint point = segment.trackPoint(i);
        const QDateTime time = point.timeStamp();
        addTime(time);
        if (point.elevation() != 0) {
            addElevation(point.elevation());
            climb.add(point.elevation());
        }
        const KRGeoPosition position = point.position();
        if (!position.isValid())
            continue;
        if (previous.isValid())
            m_lengthKm += previous.distance(position);
        if (!m_firstPosition.isValid())
            m_firstPosition = position;
        m_lastPosition = position;
        previous = position;
        if (time.isValid())
            speed.add(double(time.toMSecsSinceEpoch()), m_lengthKm);
    }
    climb.startAnew();
    speed.startAnew();
}

void KRTrackFigures::addTime(const QDateTime &time)
{
    if (!time.isValid())
        return;
    if (!m_from.isValid() || time < m_from)
        m_from = time;
    if (!m_to.isValid() || time > m_to)
        m_to = time;
}

void KRTrackFigures::addElevation(int metres)
{
    const bool isFirst = !hasElevation();
    m_lowestMetres = isFirst ? metres : qMin(m_lowestMetres, metres);
    m_highestMetres = isFirst ? metres : qMax(m_highestMetres, metres);
}
