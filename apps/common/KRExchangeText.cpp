#include "KRExchangeText.h"

#include <KRGeoLocation/KRGPXTime.h>
#include <KRGeoLocation/KRGeoPosition.h>

bool KRExchangeText::isExchangeable(const KRGeoPosition &position)
{
    return position.isValid() && position.latitude().isInValidRange();
}

QString KRExchangeText::degrees(const KRGeoArc &angle)
{
    QString text = QString::number(angle.decimalDegrees(), 'f', 7);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString KRExchangeText::utc(const KRGPXTime &time)
{
    const qint64 milliseconds = time.toMilliseconds();
    const Qt::DateFormat format = milliseconds % 1000 == 0 ? Qt::ISODate : Qt::ISODateWithMs;
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC).toString(format);
}
