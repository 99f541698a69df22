#include "KRSpeedometer.h"

#include <algorithm>

namespace {

double kmh(double wayKm, double timeMs)
{
    constexpr double msPerHour = 3600000.0;
    return wayKm * msPerHour / timeMs;
}

} // namespace

void KRSpeedometer::add(double timeMs, double wayKm)
{
    if (!m_stretch.empty() && timeMs < m_stretch.back().timeMs)
        startAnew();
    if (!m_stretch.empty()) {
        m_timeMs += timeMs - m_stretch.back().timeMs;
        m_wayKm += wayKm - m_stretch.back().wayKm;
    }
    m_stretch.push_back({timeMs, wayKm});
    while (m_stretch.size() > 2 && timeMs - m_stretch[1].timeMs >= shortestStretchMs)
        m_stretch.pop_front();
    const double stretchMs = timeMs - m_stretch.front().timeMs;
    if (stretchMs >= shortestStretchMs)
        m_maximumKmh = std::max(m_maximumKmh, kmh(wayKm - m_stretch.front().wayKm, stretchMs));
}

double KRSpeedometer::averageKmh() const
{
    return m_timeMs >= shortestStretchMs ? kmh(m_wayKm, m_timeMs) : 0.0;
}

double KRSpeedometer::maximumKmh() const
{
    // A way of many short segments may have no stretch that is long enough.
    return std::max(m_maximumKmh, averageKmh());
}
