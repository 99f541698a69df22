#include "KRDecimalText.h"

#include <charconv>
#include <cmath>

namespace {

/// Whether what follows the last decimal is exactly one half, which only odd multiples of a power of two have.
bool isTie(double number, int decimals)
{
    const double multiple = std::ldexp(number, decimals);
    return multiple - std::floor(multiple) == 0.5;
}

} // namespace

KRDecimalText::KRDecimalText(double number, int decimals)
{
    if (!std::isfinite(number)) {
        m_other = QByteArray::number(number);
        m_size = int(m_other.size());
        return;
    }
    const char *last = nullptr;
    if (isTie(number, decimals)) {
        // Away from zero here, while to_chars() prefers even digits.
        m_other = QByteArray::number(number, 'f', decimals);
        last = m_other.cend();
    } else {
        char *const first = m_digits.data();
        // Without the sign of -0.0.
        last = std::to_chars(first, first + m_digits.size(), number + 0.0, std::chars_format::fixed, decimals).ptr;
    }
    while (last[-1] == '0')
        --last;
    m_size = int(last - begin());
}
