#include "KRElevationProfile.h"

#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRSpeedometer.h>

#include <algorithm>

namespace {

/// What a line must go through within one pixel.
struct Column {
    int first = -1;
    int lowest = -1;
    int highest = -1;
    int last = -1;

    void appendTo(QVector<int> *indexes) const
    {
        const std::pair<int, int> extremes = std::minmax(lowest, highest);
        for (const int index : {first, extremes.first, extremes.second, last}) {
            if (index >= 0 && (indexes->isEmpty() || index > indexes->last()))
                indexes->append(index);
        }
    }
};

} // namespace

KRElevationProfile::KRElevationProfile(const KRGPXTrack &track)
{
    m_samples.reserve(static_cast<std::size_t>(track.countPoints()));
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments)
        add(segment);
}

void KRElevationProfile::add(const KRGPXTrackSegment &segment)
{
    const int start = count();
    double wayKm = lengthKm();
    KRGeoPosition previous;
    for (int i = 0; i < segment.count(); ++i) {
        const KRGeoPosition position = segment.positions().at(i);
        if (!position.isValid())
            continue;
        if (previous.isValid())
            wayKm += previous.distance(position);
        previous = position;
        const int elevation = segment.elevation(i);
        m_samples.push_back({wayKm, position.latitude().decimalDegrees(), position.longitude().decimalDegrees(),
                             segment.time(i).toMilliseconds(), elevation});
        if (elevation != 0)
            addElevation(elevation);
    }
    if (count() > start)
        m_starts.push_back(start);
}

void KRElevationProfile::addElevation(int metres)
{
    m_lowest = hasElevation() ? std::min(m_lowest, metres) : metres;
    m_highest = hasElevation() ? std::max(m_highest, metres) : metres;
    ++m_elevationCount;
}

QVector<double> KRElevationProfile::gaps() const
{
    QVector<double> gaps;
    for (std::size_t i = 1; i < m_starts.size(); ++i)
        gaps.append(at(m_starts[i]).wayKm);
    return gaps;
}

int KRElevationProfile::nearest(double wayKm) const
{
    if (m_samples.empty())
        return -1;
    const auto isBefore = [](const Sample &sample, double way) { return sample.wayKm < way; };
    const auto next = std::lower_bound(m_samples.begin(), m_samples.end(), wayKm, isBefore);
    if (next == m_samples.begin())
        return 0;
    const auto before = next - 1;
    const bool isBeforeNearer = next == m_samples.end() || wayKm - before->wayKm <= next->wayKm - wayKm;
    return static_cast<int>((isBeforeNearer ? before : next) - m_samples.begin());
}

double KRElevationProfile::speedKmhAt(int index) const
{
    if (index < 0 || index >= count() || !at(index).hasTime())
        return 0.0;
    const auto next = std::upper_bound(m_starts.begin(), m_starts.end(), index);
    const int start = *(next - 1);
    const int end = next == m_starts.end() ? count() : *next;
    int from = index;
    int to = index;
    // To both sides in turn, so that the place lies in the middle.
    const auto spanMs = [&] { return double(at(to).timeMs) - double(at(from).timeMs); };
    while (spanMs() < KRSpeedometer::shortestStretchMs) {
        const bool goesBack = from > start && at(from - 1).hasTime() && at(from - 1).timeMs <= at(from).timeMs;
        const bool goesOn = to + 1 < end && at(to + 1).hasTime() && at(to + 1).timeMs >= at(to).timeMs;
        if (!goesBack && !goesOn)
            break;
        from -= goesBack ? 1 : 0;
        to += goesOn ? 1 : 0;
    }
    KRSpeedometer speed;
    speed.add(double(at(from).timeMs), at(from).wayKm);
    speed.add(double(at(to).timeMs), at(to).wayKm);
    return speed.averageKmh();
}

QVector<QVector<int>> KRElevationProfile::lines(int columns) const
{
    QVector<QVector<int>> lines;
    if (!isDrawable())
        return lines;
    const double columnsPerKm = columns / lengthKm();
    for (std::size_t i = 0; i < m_starts.size(); ++i) {
        const int end = i + 1 < m_starts.size() ? m_starts[i + 1] : count();
        const QVector<int> indexes = line(m_starts[i], end, columnsPerKm);
        if (!indexes.isEmpty())
            lines.append(indexes);
    }
    return lines;
}

QVector<int> KRElevationProfile::line(int first, int end, double columnsPerKm) const
{
    QVector<int> indexes;
    Column column;
    int columnNumber = -1;
    for (int i = first; i < end; ++i) {
        const Sample &sample = at(i);
        if (sample.elevation == 0)
            continue;
        const int number = static_cast<int>(sample.wayKm * columnsPerKm);
        if (number != columnNumber) {
            column.appendTo(&indexes);
            column = {i, i, i, i};
            columnNumber = number;
            continue;
        }
        column.last = i;
        if (sample.elevation < at(column.lowest).elevation)
            column.lowest = i;
        if (sample.elevation > at(column.highest).elevation)
            column.highest = i;
    }
    column.appendTo(&indexes);
    return indexes;
}
