#pragma once

#include "KRCoreExport.h"

#include <QByteArray>

#include <array>

/**
 * The text of a number with a fixed count of decimals, without the zeroes at its end: 12.5, and 12. with its point.
 *
 * The digits are those of QString::number() with 'f', also where the number lies half way between two of them, but take
 * a fraction of the time and no memory. Independent of the locale.
 */
class KRCORE_EXPORT KRDecimalText
{
public:
    /// @param decimals 1 to 15. What is no finite number has the text "nan", "inf" or "-inf".
    KRDecimalText(double number, int decimals);

    const char *begin() const { return m_other.isNull() ? m_digits.data() : m_other.constData(); }
    const char *end() const { return begin() + m_size; }
    int size() const { return m_size; }

private:
    static constexpr int mostDigits = 309 + 15 + 2; // of the largest double, with a sign and a point

    std::array<char, mostDigits> m_digits;
    QByteArray m_other; // null where the digits say it
    int m_size;
};
