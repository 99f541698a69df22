#include "KRNumberedRoutes.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QDateTime>
#include <QFileInfo>

namespace {

constexpr int trackCount = 6;
constexpr int pointCount = 400;
constexpr int opacities = 200;

} // namespace

QString KRNumberedRoutes::labelOf(const QString &writer, int number)
{
    return writer + QLatin1Char('/') + QString::number(number);
}

KRGPXTrackSelection KRNumberedRoutes::make(const QString &writer, int number)
{
    KRGPXTrackSelection selection;
    for (int i = 0; i < trackCount; ++i) {
        const bool isShared = i % 2 == 1;
        KRGPXTrackSegment segment;
        for (int k = 0; k < pointCount; ++k)
            segment.append(1.0 + 0.1 * i + 0.0001 * k, isShared ? 8.0 : 0.001 * (number + 1), i, QDateTime(),
                           QString());
        const QString label = isShared ? writer : KRNumberedRoutes::labelOf(writer, number);
        const KRGPXTrack track(label, isShared ? QString() : label, {segment}, LineStringTrackShape);
        selection.addTrack(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration::defaultValue()));
    }
    selection.setCroppingOpacity(number % opacities);
    return selection;
}

QString KRNumberedRoutes::whole(const KRGPXTrackSelection &selection)
{
    const QString label = selection.value(0).name();
    const QString writer = label.section(QLatin1Char('/'), 0, 0);
    const int number = label.section(QLatin1Char('/'), 1).toInt();
    const KRGPXTrackSelection expected = make(writer, number);
    if (selection.count() != trackCount || selection.nominalCroppingOpacity() != number % opacities)
        return QStringLiteral("!%1 tracks of %2, cropped by %3")
            .arg(QString::number(selection.count()), label, QString::number(selection.nominalCroppingOpacity()));
    for (int i = 0; i < trackCount; ++i) {
        if (!(selection.value(i).track() == expected.value(i).track()))
            return QStringLiteral("!track %1 of %2 is \"%3\" (\"%4\") with %5 points")
                .arg(QString::number(i), label, selection.value(i).name(), selection.value(i).track().description(),
                     QString::number(selection.value(i).track().countPoints()));
    }
    return label;
}

QString KRNumberedRoutes::wholeFile(const QString &fileName)
{
    KRRouteDocument document;
    KRErrorHistory history;
    const bool isRead = document.load(QFileInfo(fileName), &history);
    if (!isRead || !history.isEmpty())
        return QLatin1Char('!') + (history.isEmpty() ? fileName : history.entries().first().toString());
    return whole(document.selection());
}
