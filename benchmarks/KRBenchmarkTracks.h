#pragma once

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPositionList.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QByteArray>
#include <QSize>

#include <utility>
#include <vector>

/// The same inputs in every run and for every way to do the work: all random numbers come from one fixed seed.
namespace KRBenchmarkTracks {

/// The sizes that every benchmark of tracks goes through, points per track.
constexpr int smallest = 1000;
constexpr int largest = 1000000;

/// The area of one degree round which the tracks wander.
KRGeoPositionRect area();

/// Latitudes and longitudes of a walk that turns a little with every step and never leaves area().
std::vector<std::pair<double, double>> randomWalk(int count);
KRGeoPositionList randomPositions(int count);

/// One track as line of 10 pixels in the default colours.
KRGPXTrackSelection selectionOf(const KRGeoPositionList &positions);

/// A GPX document of about 98 bytes a point: latitude, longitude, elevation and time.
QByteArray gpxDocument(int count);

} // namespace KRBenchmarkTracks

/// Draws area() in the Mercator projection.
class KRBenchmarkRenderer : public KRGPXTrackRenderer
{
public:
    KRBenchmarkRenderer(const KRGPXTrackSelection &selection, const QSize &size)
        : KRGPXTrackRenderer(selection, size, 1.0), m_projection(KRBenchmarkTracks::area(), size)
    { }

    QPointF projectPosition(const KRGeoPosition &position) const override { return m_projection.projectate(position); }
    void projectPositions(const KRGeoPositionSpan &positions, QPointF *pixels) const override
    {
        m_projection.projectate(positions, pixels);
    }

private:
    KRMapProjection m_projection;
};
