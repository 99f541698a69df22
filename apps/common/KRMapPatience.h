#pragma once

#include <QDeadlineTimer>

#include <functional>

/**
 * How long a map is waited for that is to be painted whole: for some time, of which no more than a quarter may pass
 * without any piece, and while somebody still wants it.
 *
 * For one picture; the time begins with the construction.
 */
class KRMapPatience
{
public:
    /// Asked several times a second while @p missing pieces are waited for; false ends the waiting.
    using GoOn = std::function<bool(int missing)>;

    explicit KRMapPatience(int timeLimitMs, const GoOn &goOn = nullptr);

    /// To be asked again and again, with the number of pieces that are @p missing now. Once over, it stays so.
    bool isOver(int missing) const;
    /// When to ask again, even if nothing came.
    QDeadlineTimer nextQuestion() const;

private:
    int m_timeLimitMs;
    QDeadlineTimer m_end;
    GoOn m_goOn;
    // what isOver() was asked last, and until when that has to change
    mutable int m_missing = -1;
    mutable QDeadlineTimer m_endOfStandstill;
    mutable bool m_isOver = false;
};
