#include "KRFuzzTargets.h"

#include <QMap>

namespace {

const QMap<QString, KRFuzzTargets::Target> &table()
{
    static const QMap<QString, KRFuzzTargets::Target> targets{
        {QStringLiteral("commatext"), KRFuzzTargets::commaText},
        {QStringLiteral("configuration"), KRFuzzTargets::configuration},
        {QStringLiteral("document"), KRFuzzTargets::document},
        {QStringLiteral("drop"), KRFuzzTargets::drop},
        {QStringLiteral("gpx"), KRFuzzTargets::gpx},
        {QStringLiteral("kml"), KRFuzzTargets::kml},
        {QStringLiteral("kmz"), KRFuzzTargets::kmz},
        {QStringLiteral("position"), KRFuzzTargets::position},
    };
    return targets;
}

} // namespace

QStringList KRFuzzTargets::names()
{
    return table().keys();
}

KRFuzzTargets::Target KRFuzzTargets::find(const QString &name)
{
    return table().value(name);
}
