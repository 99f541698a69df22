#include "KRTrackFigures.h"

#include "KRMapArea.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

KRTrackFigures::KRTrackFigures(const KRGPXConfiguredTrack &track)
{
    const QList<KRGPXTrackSegment> segments = track.track().segments();
    m_segmentCount = segments.size();
    for (const KRGPXTrackSegment &segment : segments) {
        KRGeoPosition previous;
        const QList<KRGPXTrackPoint> points = segment.trackPoints();
        m_pointCount += points.size();
        for (const KRGPXTrackPoint &point : points) {
            const QDateTime time = point.timeStamp();
            if (time.isValid() && (!m_from.isValid() || time < m_from))
                m_from = time;
            if (time.isValid() && (!m_to.isValid() || time > m_to))
                m_to = time;

            const KRGeoPosition position = point.position();
            if (!position.isValid())
                continue;
            if (previous.isValid())
                m_lengthKm += previous.distance(position);
            if (!m_firstPosition.isValid())
                m_firstPosition = position;
            m_lastPosition = position;
            previous = position;
        }
    }

    KRMapArea area;
    area.add(track);
    m_boundingBox = area.covered();
}
