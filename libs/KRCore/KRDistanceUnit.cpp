#include "KRDistanceUnit.h"

KRDistanceUnit KRDistanceUnit::pixel()
{
    return KRDistanceUnit(QStringLiteral("px"));
}
