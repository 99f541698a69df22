#pragma once

#include <QCoreApplication>

class QDateTime;

/// Writes figures of tracks as people of the present locale write them, with their units.
class KRFigureTexts
{
    Q_DECLARE_TR_FUNCTIONS(KRFigureTexts)

public:
    /// Metres below one kilometre.
    static QString way(double km);
    static QString elevation(qint64 metres);
    static QString speed(double kmh);
    /// Hours, minutes and seconds: "3:05:09 h".
    static QString duration(double seconds);
    /// Date and time of day in the local time zone; empty when it is not valid.
    static QString moment(const QDateTime &time);
    static QString timeOfDay(const QDateTime &time);
    /// What stands where nothing is known.
    static QString unknown();
};
