#include "KRGPXTrackElement.h"

#include <QString>

bool KRGPXTrackElement::isSinglePoint() const
{
    return allPoints().size() == 1;
}

KRGeoPositionRect KRGPXTrackElement::boundingBox() const
{
    return allPoints().boundingBox();
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
    return safeDouble(QStringRef(&text));
}

double KRGPXTrackElement::safeDouble(const QStringRef &text)
{
    bool isNumber = false;
    // Intended: without a decimal point indexOf() gives -1, which leaves seven characters.
    const double value = text.left(text.indexOf(QLatin1Char('.')) + 8).toDouble(&isNumber);
    return isNumber ? value : 0.0;
}
