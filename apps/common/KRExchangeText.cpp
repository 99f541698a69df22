#include "KRExchangeText.h"

#include <KRGeoLocation/KRGeoPosition.h>

#include <QDateTime>

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

QString KRExchangeText::utc(const QDateTime &time)
{
    return time.toUTC().toString(time.time().msec() == 0 ? Qt::ISODate : Qt::ISODateWithMs);
}
