#pragma once

#include "KRGeoLocationExport.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <limits>

/**
 * Reads times as nearly all GPX files write them, "2024-05-01T12:00:00Z" or "2024-05-01T12:00:00.000Z", to the letter.
 *
 * Remembers the day it has read last: neighbouring points share it.
 */
class KRGEOLOCATION_EXPORT KRGPXUtcTime
{
public:
    static constexpr int shortLength = 20; ///< characters
    static constexpr int longLength = 24; ///< with milliseconds
    /// In place of the milliseconds since 1970 of a point without a time.
    static constexpr qint64 noTime = std::numeric_limits<qint64>::min();

    /// Milliseconds since 1970; noTime for any other form and for what is no date or time.
    qint64 read(const char *text, int length);
    /// Of any form that QDateTime reads; not valid for any other. A text that comes again is not read again.
    QDateTime toDateTime(const QString &text);

private:
    qint64 readDay(const char *text);

    std::array<char, 10> m_dayText{};
    qint64 m_day = 0;
    QString m_unusualText;
    QDateTime m_unusualTime;
};
