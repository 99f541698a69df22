#include "KRAxis.h"

#include <KRCore/KRMath.h>

#include <algorithm>
#include <cmath>

namespace {

double niceStep(double smallest)
{
    const double power = std::pow(10.0, std::floor(std::log10(smallest)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= smallest)
            return factor * power;
    }
    return 10.0 * power;
}

} // namespace

KRAxis::KRAxis(double from, double to, double fromPixel, double toPixel, double pixelsPerMark, bool endsAtMarks)
    : m_from(from), m_to(to), m_fromPixel(fromPixel), m_toPixel(toPixel)
{
    const double mostMarks = std::max(1.0, std::floor(std::abs(toPixel - fromPixel) / pixelsPerMark));
    m_step = niceStep((to - from) / mostMarks);
    if (endsAtMarks) {
        m_from = std::floor(from / m_step) * m_step;
        m_to = std::ceil(to / m_step) * m_step;
    }
}

QVector<double> KRAxis::marks() const
{
    QVector<double> marks;
    const double first = std::ceil(m_from / m_step - 1e-9);
    const int count = KRMath::toInt(std::floor(m_to / m_step + 1e-9) - first + 1.0);
    for (int i = 0; i < count; ++i)
        marks.append((first + i) * m_step);
    return marks;
}

int KRAxis::decimals() const
{
    return std::max(0, static_cast<int>(-std::floor(std::log10(m_step) + 1e-9)));
}

double KRAxis::pixel(double number) const
{
    return m_fromPixel + (number - m_from) / (m_to - m_from) * (m_toPixel - m_fromPixel);
}

double KRAxis::number(double pixel) const
{
    if (m_toPixel == m_fromPixel)
        return m_from;
    return m_from + (pixel - m_fromPixel) / (m_toPixel - m_fromPixel) * (m_to - m_from);
}
