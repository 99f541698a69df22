#pragma once

#include <QtGlobal>

/**
 * Adds up how far a way goes up and down, from elevations in whole metres, one after the other.
 *
 * Receivers waver by some metres even at rest, which would add up to hundreds of metres an hour. A turn from up to
 * down or back therefore counts only once the way has left the turning point by five metres: about what receivers
 * waver, and less than what a walker calls a climb. Beyond that a climb counts in full, from turn to turn.
 */
class KRClimbCounter
{
public:
    static constexpr int smallestTurnMetres = 5;

    void add(int elevationMetres);
    /// What comes next does not begin where the way has ended so far.
    void startAnew();

    qint64 climbMetres() const { return m_climbMetres + (m_extreme > m_turn ? m_extreme - m_turn : 0); }
    qint64 descentMetres() const { return m_descentMetres + (m_extreme < m_turn ? m_turn - m_extreme : 0); }

private:
    void leaveStart(int elevationMetres);
    void countToExtreme();

    // Files hold elevations up to the ends of int, so differences and sums need more.
    qint64 m_climbMetres = 0;
    qint64 m_descentMetres = 0;
    bool m_hasStarted = false;
    /// Where the way has turned last, and how far it has come since; both are equal while it has not left that place.
    qint64 m_turn = 0;
    qint64 m_extreme = 0;
    /// Before the way has left its beginning: how far it has wavered there.
    qint64 m_lowest = 0;
    qint64 m_highest = 0;
};
