#pragma once

#include "KRGPXTime.h"

#include <QHash>
#include <QString>

#include <array>
#include <vector>

/**
 * Reads times in the forms of ISO 8601 that QDateTime reads, blanks around them left out, with equal results.
 *
 * Those that files consist of, "2024-05-01T12:00:00" with or without a fraction, in UTC, with an offset or in local
 * time, are read by their digits. The reader remembers the day and the offset of local time, which neighbouring points
 * share: for each day of them it asks the system once. All other texts, and local times that a change of the
 * clocks leaves out or repeats, go through QDateTime.
 *
 * One reader is for the points of one file: it does not notice when the zone of the system changes.
 */
class KRGEOLOCATION_EXPORT KRGPXTimeReader
{
public:
    /// A text in UTF-8; not valid if it is no time.
    void read(const char *text, int length, KRGPXTime *time);
    KRGPXTime read(const QString &text);

    /// What QDateTime and the system have been asked for since the last call, in KRInputLimits' tokens. Times that are
    /// read by digits, and a text that comes again at once, count as none.
    qint64 takeTokens();

private:
    bool readDigits(const char *text, int length, KRGPXTime *time);
    qint64 readDay(const char *text);
    bool readFraction(const char **at, const char *end, int *millisecond);
    const QDateTime &readOther(const QString &text);
    void askForLastClock();

    qint64 millisecondsOfLocal(qint64 clockMilliseconds);
    bool findSpan(qint64 clockSecond);
    bool setSpan(qint64 clockSecond, qint64 offset);
    qint64 firstSecondBehindChange(qint64 cell);
    int offsetAtCell(qint64 cell);
    int offsetAt(qint64 second);

    qint64 m_tokens = 0;
    std::array<char, 10> m_dayText{};
    qint64 m_day = 0;
    QString m_otherText;
    QDateTime m_otherTime;
    qint64 m_lastClock = KRGPXTime::noTime; // what the clock shows at the last local time that was read by digits
    bool m_isClockUncertain = false; // no instant, or more than one, may have shown the last local time
    // Seconds that the clock shows, from begin to before end, and in between the seconds by which it is ahead of UTC.
    qint64 m_spanBegin = 0;
    qint64 m_spanEnd = 0;
    qint64 m_spanOffset = 0;
    std::vector<int> m_offsets; // at the beginning of each cell, as far as known
    QHash<qint64, qint64> m_changes; // within a cell: the first second with the new offset
};
