#include "KRLongitudeRange.h"

#include <QDebug>
#include <QUrlQuery>

namespace {

QString westKey()
{
    return QStringLiteral("longitude_min");
}

QString eastKey()
{
    return QStringLiteral("longitude_max");
}

} // namespace

KRLongitudeRange KRLongitudeRange::spawn(const KRLongitude &a, const KRLongitude &b)
{
    // Intended: where both ways round are equally long, b becomes the west.
    return a.isWestOf(b) ? KRLongitudeRange(a, b) : KRLongitudeRange(b, a);
}

KRLongitudeRange KRLongitudeRange::parse(const QString &west, const QString &east)
{
    return KRLongitudeRange(KRLongitude::parse(west), KRLongitude::parse(east));
}

KRLongitudeRange KRLongitudeRange::parse(const QUrlQuery &query)
{
    return parse(query.queryItemValue(westKey()), query.queryItemValue(eastKey()));
}

KRLongitude KRLongitudeRange::center() const
{
    if (!crossesDateLine())
        return KRRange<KRLongitude>::center();
    const KRLongitude center = (west() + (east() + 360.0)) / 2.0;
    return center > 180.0 ? center - 360.0 : center;
}

bool KRLongitudeRange::isValid() const
{
    return west().isInValidRange() && east().isInValidRange();
}

bool KRLongitudeRange::contains(const KRLongitude &value) const
{
    return crossesDateLine() ? value <= east() || value >= west() : west() <= value && value <= east();
}

bool KRLongitudeRange::contains(const KRRange<KRLongitude> &other) const
{
    return contains(other.minimum()) && contains(other.maximum());
}

bool KRLongitudeRange::coversNoMoreThanHalfOfTheEarth() const
{
    return east().isEastOf(west()) || east() == west();
}

bool KRLongitudeRange::intersects(const KRRange<KRLongitude> & /*other*/) const
{
    // A logger of its own, as qFatal() names neither file nor function where QT_MESSAGELOGCONTEXT is not defined.
    QMessageLogger("libs/KRGeoLocation/KRLongitudeRange", __LINE__,
                   "virtual bool KRLongitudeRange::intersects(const KRRange<KRLongitude> &) const")
        .fatal("%s",
               "Diese Funktion muss erst getestet werden, bevor man sie benutzen kann (implmentierung ist ungeprüft "
               "und wahrscheinlich falsch!");
}

void KRLongitudeRange::expandTo(const KRLongitude &value)
{
    // Intended: a range that does not cross the date line never starts to.
    if (!crossesDateLine()) {
        KRRange<KRLongitude>::expandTo(value);
    } else if (!contains(value)) {
        if (value.isInEasternHemisphere())
            setMinimum(value);
        else
            setMaximum(value);
    }
}

void KRLongitudeRange::blowUp(const KRLongitude &margin)
{
    setMinimum((west() - margin).bounded());
    setMaximum((east() + margin).bounded());
}

QString KRLongitudeRange::toString(bool inDegreesMinutesSeconds) const
{
    return west().toString(inDegreesMinutesSeconds) + QStringLiteral(" - ") + east().toString(inDegreesMinutesSeconds);
}

void KRLongitudeRange::writeTo(QUrlQuery &query) const
{
    east().writeTo(query, eastKey());
    west().writeTo(query, westKey());
}

QDebug operator<<(QDebug debug, const KRLongitudeRange &range)
{
    const QDebugStateSaver saver(debug);
    debug.noquote() << range.toString(false);
    return debug;
}
