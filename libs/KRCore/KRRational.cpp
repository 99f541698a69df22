#include "KRRational.h"

QString KRRational::toString() const
{
    return QStringLiteral("%1/%2").arg(m_numerator).arg(m_denominator);
}
