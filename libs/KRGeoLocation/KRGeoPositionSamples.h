#pragma once

#include "KRGeoLocationExport.h"
#include "KRGeoPosition.h"

#include <KRCore/KRSingleton.h>

#include <QHash>

/// The places of KRGeoPositionSamples.
enum KRGeoPositionSamplesEnum : int {
    OldenburgSample = 0,
    BremenSample = 1,
    WellingtonSample = 2,
    SydneySample = 3,
    NewYorkSample = 4,
    LosAngelesSample = 5,
    HonoluluSample = 6,
    PolynesiaSample = 7,
    GreenwichSample = 8, ///< exactly on the prime meridian
    WindhoekSample = 9,
    HelsinkiSample = 10,
    GibraltarSample = 11,
    PassauSample = 12,
};

/**
 * Named places on both sides of the equator, of the prime meridian and of the date line, for demonstrations and tests.
 *
 * A number without a place gives a null name and an invalid position, whose components are
 * KRGeoArc::invalidDegrees. The table never changes: any thread may read it.
 */
class KRGEOLOCATION_EXPORT KRGeoPositionSamples : public KRSingleton<KRGeoPositionSamples>
{
public:
    KRGeoPositionSamples();
    virtual ~KRGeoPositionSamples();

    KRGeoPosition position(const KRGeoPositionSamplesEnum &sample) const;
    KRLatitude latitude(const KRGeoPositionSamplesEnum &sample) const;
    KRLongitude longitude(const KRGeoPositionSamplesEnum &sample) const;
    /// The same in every language.
    QString name(const KRGeoPositionSamplesEnum &sample) const;

private:
    QHash<KRGeoPositionSamplesEnum, KRGeoPosition> m_positions;
};
