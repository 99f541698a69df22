#include "KRFuzzTargets.h"

const QMap<QString, KRFuzzTargets::Target> &KRFuzzTargets::all()
{
    static const QMap<QString, Target> targets{
        {QStringLiteral("commatext"), commaText},
        {QStringLiteral("configuration"), configuration},
        {QStringLiteral("document"), document},
        {QStringLiteral("drop"), drop},
        {QStringLiteral("gpx"), gpx},
        {QStringLiteral("kml"), kml},
        {QStringLiteral("kmz"), kmz},
        {QStringLiteral("position"), position},
    };
    return targets;
}
