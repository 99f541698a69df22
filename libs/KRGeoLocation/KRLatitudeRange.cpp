#include "KRLatitudeRange.h"

#include <QDebug>
#include <QUrlQuery>

namespace {

QString southKey()
{
    return QStringLiteral("latitude_min");
}

QString northKey()
{
    return QStringLiteral("latitude_max");
}

} // namespace

KRLatitudeRange KRLatitudeRange::spawn(const KRLatitude &a, const KRLatitude &b)
{
    return a > b ? KRLatitudeRange(b, a) : KRLatitudeRange(a, b);
}

KRLatitudeRange KRLatitudeRange::parse(const QString &south, const QString &north)
{
    return KRLatitudeRange(KRLatitude::parse(south), KRLatitude::parse(north));
}

KRLatitudeRange KRLatitudeRange::parse(const QUrlQuery &query)
{
    return parse(query.queryItemValue(southKey()), query.queryItemValue(northKey()));
}

bool KRLatitudeRange::isValid() const
{
    return KRRange<KRLatitude>::isValid() && north().isInValidRange() && south().isInValidRange();
}

void KRLatitudeRange::blowUp(const KRLatitude &margin)
{
    setMaximum((north() + margin).bounded());
    setMinimum((south() - margin).bounded());
}

QString KRLatitudeRange::toString(bool inDegreesMinutesSeconds) const
{
    return south().toString(inDegreesMinutesSeconds) + QStringLiteral(" - ")
           + north().toString(inDegreesMinutesSeconds);
}

void KRLatitudeRange::writeTo(QUrlQuery &query) const
{
    north().writeTo(query, northKey());
    south().writeTo(query, southKey());
}

QDebug operator<<(QDebug debug, const KRLatitudeRange &range)
{
    const QDebugStateSaver saver(debug);
    debug.noquote() << range.toString(false);
    return debug;
}
