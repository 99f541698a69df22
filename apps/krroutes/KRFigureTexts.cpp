#include "KRFigureTexts.h"

#include <QDateTime>
#include <QLocale>

QString KRFigureTexts::way(double km)
{
    if (km < 1.0)
        return tr("%1 m").arg(QLocale().toString(qRound(km * 1000.0)));
    const int decimals = km < 100.0 ? 2 : 1;
    return tr("%1 km").arg(QLocale().toString(km, 'f', decimals));
}

QString KRFigureTexts::elevation(qint64 metres)
{
    return tr("%1 m").arg(QLocale().toString(metres));
}

QString KRFigureTexts::speed(double kmh)
{
    return tr("%1 km/h").arg(QLocale().toString(kmh, 'f', 1));
}

QString KRFigureTexts::duration(double seconds)
{
    const qint64 whole = qRound64(seconds);
    const auto twoDigits = [](qint64 number) { return QString::number(number).rightJustified(2, QLatin1Char('0')); };
    return tr("%1:%2:%3 h").arg(QString::number(whole / 3600), twoDigits(whole / 60 % 60), twoDigits(whole % 60));
}

QString KRFigureTexts::moment(const QDateTime &time)
{
    return time.isValid() ? QLocale().toString(time.toLocalTime(), QLocale::ShortFormat) : QString();
}

QString KRFigureTexts::timeOfDay(const QDateTime &time)
{
    return time.isValid() ? time.toLocalTime().time().toString(QStringLiteral("HH:mm:ss")) : QString();
}

QString KRFigureTexts::unknown()
{
    return QStringLiteral("–");
}
