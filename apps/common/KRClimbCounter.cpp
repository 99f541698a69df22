#include "KRClimbCounter.h"

#include <algorithm>
#include <cstdlib>

void KRClimbCounter::add(int elevationMetres)
{
    if (!m_hasStarted) {
        m_hasStarted = true;
        m_turn = elevationMetres;
        m_extreme = elevationMetres;
        m_lowest = elevationMetres;
        m_highest = elevationMetres;
        return;
    }
    if (m_extreme == m_turn) {
        leaveStart(elevationMetres);
        return;
    }
    const bool goesUp = m_extreme > m_turn;
    const bool goesOn = goesUp ? elevationMetres > m_extreme : elevationMetres < m_extreme;
    const bool hasTurned = std::abs(elevationMetres - m_extreme) >= smallestTurnMetres;
    if (!goesOn && !hasTurned)
        return;
    if (!goesOn)
        countToExtreme();
    m_extreme = elevationMetres;
}

// What it has gone the other way at first belongs to the climb, so that the way back goes down as far.
void KRClimbCounter::leaveStart(int elevationMetres)
{
    m_lowest = std::min<qint64>(m_lowest, elevationMetres);
    m_highest = std::max<qint64>(m_highest, elevationMetres);
    if (std::abs(elevationMetres - m_turn) < smallestTurnMetres)
        return;
    m_turn = elevationMetres > m_turn ? m_lowest : m_highest;
    m_extreme = elevationMetres;
}

void KRClimbCounter::startAnew()
{
    countToExtreme();
    m_hasStarted = false;
}

void KRClimbCounter::countToExtreme()
{
    const qint64 climbSoFar = climbMetres();
    m_descentMetres = descentMetres();
    m_climbMetres = climbSoFar;
    m_turn = m_extreme;
}
