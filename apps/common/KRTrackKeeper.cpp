#include "KRTrackKeeper.h"

#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>
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
        const KRGeoPositionSpan positions = segment.positions();
        for (int k = 0; k < segment.count(); ++k) {
            if (positions.latitudes[k] == 0.0 && positions.longitudes[k] == 0.0)
                continue;
            ++number;
            const QString description = segment.description(k);
            if (description.isEmpty())
                continue;
            QDomElement kept = KRXMLBuilder::buildDomElement(element, pointElement, description);
            kept.setAttribute(segmentAttribute, i);
            kept.setAttribute(KRTrackKeeper::numberAttribute, number);
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
                      KRXMLParser::intAttribute(point, KRTrackKeeper::numberAttribute, -1)},
                     point.text());
    }
    return texts;
}

KRGPXTrackSegment restoredSegment(const KRGPXTrackSegment &segment, int number, const PointTexts &texts)
{
    KRGPXTrackSegment restored;
    const KRGeoPositionSpan positions = segment.positions();
    for (int i = 0; i < segment.count(); ++i) {
        // Comma texts are written with milliseconds, and those are read as seconds.
        const qint64 milliseconds = segment.secondsOfCommaText(i);
        const bool isFromCommaText = milliseconds != KRGPXTrackSegment::noTime;
        const KRGPXTime time =
            isFromCommaText ? KRGPXTime{milliseconds, KRGPXTime::utcZone, QDateTime()} : segment.time(i);
        restored.append(positions.latitudes[i], positions.longitudes[i], segment.elevation(i), time,
                        texts.value({number, i}, segment.description(i)));
    }
    restored.squeeze();
    return restored;
}

/// By their numbers.
QHash<int, QDomElement> keptEnclaves(const QDomElement &element)
{
    QHash<int, QDomElement> enclaves;
    for (QDomElement enclave = element.firstChildElement(enclaveElement); !enclave.isNull();
         enclave = enclave.nextSiblingElement(enclaveElement))
        enclaves.insert(KRXMLParser::intAttribute(enclave, KRTrackKeeper::numberAttribute, -1), enclave);
    return enclaves;
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
        enclave.setAttribute(KRTrackKeeper::numberAttribute, i);
        if (keep(enclaves.at(i), enclave))
            isAnyKept = true;
        else
            element.removeChild(enclave);
    }
    return isAnyKept;
}

bool KRTrackKeeper::holdsPoints(const QDomElement &element)
{
    return !element.firstChildElement(pointElement).isNull();
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
    const QHash<int, QDomElement> kept = keptEnclaves(element);
    for (int i = 0; i < enclaves.size(); ++i)
        restored.addEnclave(KRTrackKeeper::restored(enclaves.at(i), kept.value(i)));
    return restored;
}
