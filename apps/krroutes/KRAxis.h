#pragma once

#include <QVector>

/**
 * A numbered axis of a diagram: where its marks stand, and where a number lies.
 *
 * The marks are multiples of 1, 2 or 5 times a power of ten, as many as there is room for. Pixels may grow in either
 * direction.
 */
class KRAxis
{
public:
    /// An axis from 0 to 1 without length.
    KRAxis() = default;
    /**
     * Shows at least the numbers from @p from to @p to, which must be the larger one, between two pixels.
     * @param pixelsPerMark room that a mark needs along the axis.
     * @param endsAtMarks whether both ends move outwards to the next mark.
     */
    KRAxis(double from, double to, double fromPixel, double toPixel, double pixelsPerMark, bool endsAtMarks);

    double from() const { return m_from; }
    double to() const { return m_to; }
    double step() const { return m_step; }
    QVector<double> marks() const;
    /// How many decimals the numbers at the marks need.
    int decimals() const;

    double pixel(double number) const;
    double number(double pixel) const;

private:
    double m_from = 0.0;
    double m_to = 1.0;
    double m_fromPixel = 0.0;
    double m_toPixel = 0.0;
    double m_step = 1.0;
};
