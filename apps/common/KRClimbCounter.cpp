#include "KRClimbCounter.h"

#include <cstdlib>

void KRClimbCounter::add(int elevationMetres)
{
    if (!m_hasStarted) {
        m_hasStarted = true;
        m_turn = elevationMetres;
        m_extreme = elevationMetres;
        return;
    }
    const bool goesUp = m_extreme > m_turn;
    const bool goesOn = m_extreme != m_turn && (goesUp ? elevationMetres > m_extreme : elevationMetres < m_extreme);
    const bool hasTurned = std::abs(elevationMetres - m_extreme) >= smallestTurnMetres;
    if (!goesOn && !hasTurned)
        return;
    if (!goesOn)
        countToExtreme();
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
