#pragma once

#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QVector>

/**
 * Positions of one line, ring or point of a KML document, with their times where there are such.
 *
 * Degrees are kept as the importer reads them, cut to seven decimals: whole numbers of 1e-7 degrees, which is about
 * a centimetre. Latitudes lie in -90 ... 90, longitudes in -180 ... 180. Elevations are whole metres. Texts that hold
 * something else give no position but are counted.
 *
 * Intended: a position at exactly (0, 0) is moved by 1e-7 degrees, since it would count as "no position".
 */
class KRKmlCoordinates
{
public:
    struct Position {
        qint32 latitude; // 1e-7 degrees
        qint32 longitude;
        qint32 elevation; // m
    };

    int count() const { return m_positions.size(); }
    bool isEmpty() const { return m_positions.isEmpty(); }
    bool isFull() const { return count() == KRInputLimits::positions; }
    /// More than one position, and the last one lies where the first one does.
    bool isClosed() const;
    bool hasTimes() const { return !m_times.isEmpty(); }
    /// Texts that gave no position.
    int unreadableCount() const { return m_unreadableCount; }
    const QVector<Position> &positions() const { return m_positions; }

    /**
     * Reads numbers, degrees and metres, as they stand in KML. Longitudes up to 360 degrees are brought into range,
     * an elevation that is none is 0. Without a latitude or a longitude the text counts as unreadable.
     */
    void append(QLatin1String longitude, QLatin1String latitude, QLatin1String elevation);
    /// Reads a "gx:coord", "longitude latitude [elevation]". Intended: an empty one, which stands for a gap in the
    /// record, is left out together with its time.
    void appendTrackPosition(const QString &text, const KRGPXTime &time);
    /// The time of all positions.
    void setTime(const KRGPXTime &time);
    /// Leads an outline back to its start, if it is long enough to have an area.
    void close();

    /// "longitude,latitude[,elevation]", separated by blanks; of the first @p mostPositions.
    QString toText(int mostPositions = KRInputLimits::positions) const;
    /// The points themselves, with times to the millisecond.
    KRGPXTrackSegment toSegment() const;

private:
    QVector<Position> m_positions;
    QVector<KRGPXTime> m_times; // one per position, or none at all
    int m_unreadableCount = 0;
};
