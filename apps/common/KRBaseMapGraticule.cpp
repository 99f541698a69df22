#include "KRBaseMapGraticule.h"

#include "KRBaseMapView.h"

#include <QRectF>

#include <cmath>

namespace {

/// The smallest distance of two lines in pixels of a normal screen.
constexpr double smallestDistance = 110.0;

constexpr qint64 minute = 60;
constexpr qint64 degree = 60 * minute;
constexpr qint64 halfTurn = 180 * degree;

/// In arc seconds; ascending.
constexpr qint64 steps[] = {1,           2,           5,          10,          20,          30, //
                            minute,      2 * minute,  5 * minute, 10 * minute, 20 * minute, 30 * minute, //
                            degree,      2 * degree,  5 * degree, 10 * degree, 20 * degree, 30 * degree, 60 * degree, //
                            90 * degree, 180 * degree};

/// The finest step whose lines lie at least @p distance pixels apart; 0 when there is none.
qint64 stepFor(double pixelsPerDegree, double distance)
{
    for (const qint64 step : steps) {
        if (pixelsPerDegree * double(step) / degree >= distance)
            return step;
    }
    return 0;
}

/// @p arcSeconds from 0, with as many parts as the step needs; without a hemisphere where there is none.
QString angleText(qint64 arcSeconds, qint64 step, const QString &hemisphere)
{
    const auto twoDigits = [](qint64 value) { return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0')); };
    QString text = QStringLiteral("%1°").arg(arcSeconds / degree);
    if (step % degree != 0)
        text += QStringLiteral(" %1′").arg(twoDigits(arcSeconds % degree / minute));
    if (step % minute != 0)
        text += QStringLiteral(" %1″").arg(twoDigits(arcSeconds % minute));
    return arcSeconds % halfTurn == 0 ? text : text + QLatin1Char(' ') + hemisphere;
}

} // namespace

KRBaseMapGraticule::KRBaseMapGraticule(const KRBaseMapView &view)
{
    if (view.mapRect().isEmpty())
        return;
    addMeridians(view);
    addParallels(view);
}

void KRBaseMapGraticule::addMeridians(const KRBaseMapView &view)
{
    const QRectF map = view.mapRect();
    const qint64 step = stepFor(view.worldSize() / 360.0, smallestDistance * view.factor());
    if (step == 0)
        return;
    const auto first = qint64(std::ceil(view.longitudeAt(map.left()) * degree / double(step)));
    const auto last = qint64(std::floor(view.longitudeAt(map.right()) * degree / double(step)));
    for (qint64 line = first; line <= last; ++line) {
        const qint64 arcSeconds = line * step;
        const qint64 turns = qint64(std::floor(double(arcSeconds + halfTurn) / (2 * halfTurn)));
        const qint64 folded = arcSeconds - turns * 2 * halfTurn;
        const QString hemisphere = folded < 0 ? tr("W", "short for 'west'") : tr("O", "short for 'east'");
        m_meridians.append(
            {view.toPixel(0.0, double(arcSeconds) / degree).x(), angleText(qAbs(folded), step, hemisphere)});
    }
}

void KRBaseMapGraticule::addParallels(const KRBaseMapView &view)
{
    const QRectF map = view.mapRect();
    // On the Mercator map a degree of latitude grows like one of longitude shrinks on the globe.
    const double middleDegrees = view.latitudeAt(map.center().y());
    const double pixelsPerDegree = view.worldSize() / 360.0 / std::cos(middleDegrees * 3.141592653589793 / 180.0);
    const qint64 step = stepFor(pixelsPerDegree, smallestDistance * view.factor());
    if (step == 0)
        return;
    const auto first = qint64(std::ceil(view.latitudeAt(map.bottom()) * degree / double(step)));
    const auto last = qint64(std::floor(view.latitudeAt(map.top()) * degree / double(step)));
    for (qint64 line = first; line <= last; ++line) {
        const qint64 arcSeconds = line * step;
        const QString hemisphere = arcSeconds < 0 ? tr("S", "short for 'south'") : tr("N", "short for 'north'");
        m_parallels.append(
            {view.toPixel(double(arcSeconds) / degree, 0.0).y(), angleText(qAbs(arcSeconds), step, hemisphere)});
    }
}
