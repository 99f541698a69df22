#include "KRSamplePlaces.h"

#include <KRGeoLocation/KRGeoPositionSamples.h>

QVector<KRBaseMapPlace> KRSamplePlaces::all()
{
    QVector<KRBaseMapPlace> places;
    const KRGeoPositionSamples *const samples = KRGeoPositionSamples::instance();
    for (int i = OldenburgSample; i <= PassauSample; ++i) {
        const auto sample = static_cast<KRGeoPositionSamplesEnum>(i);
        places.append({samples->name(sample), samples->position(sample)});
    }
    return places;
}

KRBaseMapPlace KRSamplePlaces::find(const QString &text)
{
    const QString wanted = text.trimmed();
    const QVector<KRBaseMapPlace> places = all();
    for (const KRBaseMapPlace &place : places) {
        if (place.name.compare(wanted, Qt::CaseInsensitive) == 0)
            return place;
    }
    const KRGeoPosition position = KRGeoPosition::parse(wanted);
    return {wanted, position.isValid() ? position : KRGeoPosition::fromString(wanted)};
}
