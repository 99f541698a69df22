#include "KRDistance.h"

#include "KRDistanceUnit.h"

QString KRDistance::describe(const KRDistanceUnit &unit, int precision, bool withUnit) const
{
    const QString number = QString::number(m_value, 'f', precision);
    return withUnit ? number + QLatin1Char(' ') + unit.symbol() : number;
}
