#include "KRMapPatience.h"

#include <algorithm>

namespace {

constexpr qint64 questionMs = 300;
constexpr int shareOfStandstill = 4;

} // namespace

KRMapPatience::KRMapPatience(int timeLimitMs, const GoOn &goOn)
    : m_timeLimitMs(timeLimitMs), m_end(timeLimitMs), m_goOn(goOn)
{ }

bool KRMapPatience::isOver(int missing) const
{
    if (missing != m_missing) {
        m_missing = missing;
        m_endOfStandstill.setRemainingTime(m_timeLimitMs / shareOfStandstill);
    }
    m_isOver = m_isOver || m_end.hasExpired() || m_endOfStandstill.hasExpired() || (m_goOn && !m_goOn(missing));
    return m_isOver;
}

QDeadlineTimer KRMapPatience::nextQuestion() const
{
    return std::min(m_end, QDeadlineTimer(questionMs));
}
