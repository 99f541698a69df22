#include "KRGPXTrackElement.h"

#include "KRGeoPositionSpan.h"

#include <KRCore/KRMath.h>

#include <QString>

#include <vector>

bool KRGPXTrackElement::isSinglePoint() const
{
    return allPoints().size() == 1;
}

void KRGPXTrackElement::visitPositions(const PositionVisitor &visit) const
{
    const KRGeoPositionList positions = allPoints();
    std::vector<double> latitudes;
    std::vector<double> longitudes;
    for (const KRGeoPosition &position : positions) {
        const QPointF degrees = position.toPointF();
        latitudes.push_back(degrees.y());
        longitudes.push_back(degrees.x());
    }
    visit({latitudes.data(), longitudes.data(), int(positions.size())});
}

KRGeoPositionRect KRGPXTrackElement::boundingBox() const
{
    KRGeoPositionRect box;
    visitPositions([&](const KRGeoPositionSpan &positions) { box.expandTo(positions); });
    return box;
}

KRRange<QDateTime> KRGPXTrackElement::timeFrame() const
{
    KRRange<QDateTime> frame;
    const QList<QDateTime> timeStamps = allTimeStamps();
    for (const QDateTime &timeStamp : timeStamps)
        frame.expandTo(timeStamp);
    return frame;
}

double KRGPXTrackElement::safeDouble(const QString &text)
{
    return safeDouble(QStringView(text));
}

double KRGPXTrackElement::safeDouble(QStringView text)
{
    // Intended: without a decimal point indexOf() gives -1, which leaves seven characters.
    return KRMath::toDouble(text.left(text.indexOf(QLatin1Char('.')) + 8), 0.0);
}
