#pragma once

#include <cstdint>

/**
 * Quotients of whole numbers rounded down, of a sequence of dividends at equal distances.
 *
 * Beyond the first one none of them takes a division. The divisor must be positive.
 */
class KRGPXQuotients
{
public:
    KRGPXQuotients(std::int64_t dividend, std::int64_t step, std::int64_t divisor)
        : m_divisor(divisor), m_quotient(roundedDown(dividend, divisor)), m_rest(dividend - m_quotient * divisor),
          m_step(roundedDown(step, divisor)), m_stepRest(step - m_step * divisor)
    { }

    int value() const { return int(m_quotient); }
    void next()
    {
        m_quotient += m_step;
        m_rest += m_stepRest;
        if (m_rest >= m_divisor) {
            m_rest -= m_divisor;
            ++m_quotient;
        }
    }

    static std::int64_t roundedDown(std::int64_t dividend, std::int64_t divisor)
    {
        return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
    }

private:
    std::int64_t m_divisor;
    std::int64_t m_quotient;
    std::int64_t m_rest;
    std::int64_t m_step;
    std::int64_t m_stepRest;
};
