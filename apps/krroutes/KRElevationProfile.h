#pragma once

#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QVector>

#include <vector>

/**
 * The elevations of a track over the way, ready to be drawn and asked at any place.
 *
 * Points without a position are left out. The way from one segment to the next has no length, and no line crosses it.
 * An elevation of 0 metres means none; lines go straight from one elevation to the next. Const queries may run in
 * several threads at once.
 */
class KRElevationProfile
{
public:
    struct Sample {
        double wayKm; ///< from the start of the track
        double latitude; ///< degrees
        double longitude; ///< degrees
        qint64 timeMs; ///< since 1970, or KRGPXTrackSegment::noTime
        int elevation; ///< metres, 0 for none

        bool hasTime() const { return timeMs != KRGPXTrackSegment::noTime; }
    };

    KRElevationProfile() = default;
    explicit KRElevationProfile(const KRGPXTrack &track);

    /// Whether there is something to draw: a way that is longer than nothing, with two elevations.
    bool isDrawable() const { return m_elevationCount > 1 && lengthKm() > 0.0; }
    bool hasElevation() const { return m_elevationCount > 0; }
    int count() const { return static_cast<int>(m_samples.size()); }
    const Sample &at(int index) const { return m_samples[static_cast<std::size_t>(index)]; }
    double lengthKm() const { return m_samples.empty() ? 0.0 : m_samples.back().wayKm; }
    /// Metres; both 0 without elevations.
    int lowest() const { return m_lowest; }
    int highest() const { return m_highest; }
    /// The kilometres of the way at which a segment after the first one begins.
    QVector<double> gaps() const;

    /// The index of the sample next to that place of the way; -1 when there are none.
    int nearest(double wayKm) const;
    /// Around a sample, over at least ten seconds where there are so many; 0 when the times do not tell.
    double speedKmhAt(int index) const;

    /**
     * For each segment the indexes of the samples that its line must go through to look the same as with all of them
     * when the whole way is @p columns pixels wide: in each pixel the first, the last, the lowest and the highest.
     */
    QVector<QVector<int>> lines(int columns) const;

private:
    void add(const KRGPXTrackSegment &segment);
    void addElevation(int metres);
    QVector<int> line(int first, int end, double columnsPerKm) const;

    std::vector<Sample> m_samples;
    /// The first index of each segment that has samples.
    std::vector<int> m_starts;
    int m_elevationCount = 0;
    int m_lowest = 0;
    int m_highest = 0;
};
