#include "KRTrackKeeper.h"

#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QDateTime>
#include <QDomElement>
#include <QHash>

namespace {

const QString descriptionElement = QStringLiteral("description");
const QString pointElement = QStringLiteral("point");
const QString enclaveElement = QStringLiteral("enclave");
const QString segmentAttribute = QStringLiteral("segment");
const QString numberAttribute = QStringLiteral("number");

/// Descriptions of points by the number of the segment and the number of the point in it.
using PointTexts = QHash<QPair<int, int>, QString>;

bool keepPoints(const KRGPXTrack &track, QDomElement &element)
{
    bool isAnyKept = false;
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (int i = 0; i < segments.size(); ++i) {
        // The comma text drops null points: they do not count.
        int number = -1;
        const KRGPXTrackSegment &segment = segments.at(i);
        for (int k = 0; k < segment.count(); ++k) {
            const KRGPXTrackPoint point = segment.trackPoint(k);
            if (point.isNull())
                continue;
            ++number;
            if (point.description().isEmpty())
                continue;
            QDomElement kept = KRXMLBuilder::buildDomElement(element, pointElement, point.description());
            kept.setAttribute(segmentAttribute, i);
            kept.setAttribute(numberAttribute, number);
            isAnyKept = true;
        }
    }
    return isAnyKept;
}

PointTexts keptPoints(const QDomElement &element)
{
    PointTexts texts;
    for (QDomElement point = element.firstChildElement(pointElement); !point.isNull();
         point = point.nextSiblingElement(pointElement)) {
        texts.insert({KRXMLParser::intAttribute(point, segmentAttribute, -1),
                      KRXMLParser::intAttribute(point, numberAttribute, -1)},
                     point.text());
    }
    return texts;
}

QDateTime restoredTime(const QDateTime &time)
{
    // Comma text gives local times; any other kind was read from ISO text, which keeps them right.
    const bool cameAsMilliseconds = time.isValid() && time.timeSpec() == Qt::LocalTime;
    return cameAsMilliseconds ? QDateTime::fromMSecsSinceEpoch(time.toSecsSinceEpoch(), Qt::UTC) : time;
}

KRGPXTrackSegment restoredSegment(const KRGPXTrackSegment &segment, int number, const PointTexts &texts)
{
    KRGPXTrackSegment restored;
    for (int i = 0; i < segment.count(); ++i) {
        const KRGPXTrackPoint point = segment.trackPoint(i);
        restored.append(point.position().latitude().decimalDegrees(), point.position().longitude().decimalDegrees(),
                        point.elevation(), restoredTime(point.timeStamp()), texts.value({number, i}));
    }
    restored.squeeze();
    return restored;
}

QDomElement enclaveNumber(const QDomElement &element, int number)
{
    QDomElement enclave = element.firstChildElement(enclaveElement);
    while (!enclave.isNull() && KRXMLParser::intAttribute(enclave, numberAttribute, -1) != number)
        enclave = enclave.nextSiblingElement(enclaveElement);
    return enclave;
}

} // namespace

bool KRTrackKeeper::keep(const KRGPXTrack &track, QDomElement &element)
{
    bool isAnyKept = false;
    if (!track.description().isEmpty()) {
        KRXMLBuilder::buildDomElement(element, descriptionElement, track.description());
        isAnyKept = true;
    }
    isAnyKept |= keepPoints(track, element);

    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (int i = 0; i < enclaves.size(); ++i) {
        QDomElement enclave = KRXMLBuilder::buildDomElement(element, enclaveElement);
        enclave.setAttribute(numberAttribute, i);
        if (keep(enclaves.at(i), enclave))
            isAnyKept = true;
        else
            element.removeChild(enclave);
    }
    return isAnyKept;
}

KRGPXTrack KRTrackKeeper::restored(const KRGPXTrack &track, const QDomElement &element)
{
    const PointTexts texts = keptPoints(element);
    QList<KRGPXTrackSegment> segments = track.segments();
    for (int i = 0; i < segments.size(); ++i)
        segments[i] = restoredSegment(segments.at(i), i, texts);

    KRGPXTrack restored(track.name(), KRXMLParser::text(element, descriptionElement, track.description()), segments,
                        track.shape());
    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (int i = 0; i < enclaves.size(); ++i)
        restored.addEnclave(KRTrackKeeper::restored(enclaves.at(i), enclaveNumber(element, i)));
    return restored;
}
