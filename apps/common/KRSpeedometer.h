#pragma once

#include <deque>

/**
 * Tells average and highest speed from the times at which a way has got how far.
 *
 * Positions a second apart waver as much as a walker walks in it, so the highest speed is that of the fastest stretch
 * of at least ten seconds. A clock that goes backwards starts anew.
 */
class KRSpeedometer
{
public:
    static constexpr double shortestStretchMs = 10000.0;

    /// @p timeMs is milliseconds since any moment, @p wayKm the way since any place, the same ones for all calls.
    void add(double timeMs, double wayKm);
    /// The time until what comes next does not count.
    void startAnew() { m_stretch.clear(); }

    /// Both are 0 when all times together are less than ten seconds.
    double averageKmh() const;
    double maximumKmh() const;

private:
    struct Moment {
        double timeMs;
        double wayKm;
    };

    /// The moments of the last ten seconds, and one before them.
    std::deque<Moment> m_stretch;
    double m_timeMs = 0.0;
    double m_wayKm = 0.0;
    double m_maximumKmh = 0.0;
};
