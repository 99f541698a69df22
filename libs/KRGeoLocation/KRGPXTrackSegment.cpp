#include "KRGPXTrackSegment.h"

#include "KRGPXCommaText.h"
#include "KRGPXTrackPointColumns.h"
#include "KRGPXVocabulary.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRIntRange.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDomElement>
#include <QStringList>

#include <algorithm>

namespace {

constexpr int mostBytesPerPoint = 64; // of a comma text, with the line break
/// How many points one text holds at most, so that it is half as long as readers take.
constexpr auto pointsPerText = int(KRInputLimits::tokenBytes / mostBytesPerPoint / 2);
static_assert(pointsPerText <= KRInputLimits::textPoints);
static_assert(pointsPerText * mostBytesPerPoint <= KRInputLimits::bulkBytes);

/// So few that no other thread is worth starting for their texts.
constexpr int fewPoints = 2000;

/// Reads comma texts separated by white space and hands over those that are no null points.
template <typename Taker>
void forEachCommaText(const QString &text, const Taker &take)
{
    auto end = text.cbegin();
    while (end != text.cend()) {
        const auto begin = std::find_if_not(end, text.cend(), KRGPXCommaText::isSeparator);
        end = std::find_if(begin, text.cend(), KRGPXCommaText::isSeparator);
        const auto point = KRGPXCommaText::decode(QStringView(text).mid(begin - text.cbegin(), end - begin));
        if (point.latitude != 0.0 || point.longitude != 0.0)
            take(point);
    }
}

} // namespace

KRGPXTrackSegment::KRGPXTrackSegment() : d(new KRGPXTrackPointColumns) { }

KRGPXTrackSegment::KRGPXTrackSegment(const QList<KRGPXTrackPoint> &points) : KRGPXTrackSegment()
{
    d->reserve(points.size());
    for (const KRGPXTrackPoint &point : points)
        append(point);
    d->squeeze();
}

KRGPXTrackSegment::KRGPXTrackSegment(const KRGPXTrackPoint &point) : KRGPXTrackSegment()
{
    append(point);
}

KRGPXTrackSegment::KRGPXTrackSegment(const QDomElement &trkseg) : KRGPXTrackSegment()
{
    for (QDomElement child = trkseg.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() == KRGPXVocabulary::compressedPointsElement)
            appendCompressed(child.text());
        else if (child.tagName() == KRGPXVocabulary::pointElement)
            append(KRGPXTrackPoint(child));
    }
    d->squeeze();
}

KRGPXTrackSegment::KRGPXTrackSegment(const KRGPXTrackSegment &other) = default;
KRGPXTrackSegment::KRGPXTrackSegment(KRGPXTrackSegment &&other) noexcept = default;
KRGPXTrackSegment &KRGPXTrackSegment::operator=(const KRGPXTrackSegment &other) = default;
KRGPXTrackSegment &KRGPXTrackSegment::operator=(KRGPXTrackSegment &&other) noexcept = default;
KRGPXTrackSegment::~KRGPXTrackSegment() = default;

QList<KRGPXTrackPoint> KRGPXTrackSegment::decodeTrackPoints(const QString &text)
{
    return decodeKml(text).trackPoints();
}

KRGPXTrackSegment KRGPXTrackSegment::decodeKml(const QString &text)
{
    KRGPXTrackSegment segment;
    segment.appendCompressed(text);
    segment.squeeze();
    return segment;
}

QList<KRGPXTrackPoint> KRGPXTrackSegment::trackPoints() const
{
    QList<KRGPXTrackPoint> points;
    points.reserve(count());
    for (int i = 0; i < count(); ++i)
        points.append(d->point(i));
    return points;
}

KRGPXTrackPoint KRGPXTrackSegment::trackPoint(int index) const
{
    return d->point(index);
}

int KRGPXTrackSegment::elevation(int index) const
{
    return d->elevation(index);
}

QDateTime KRGPXTrackSegment::timeStamp(int index) const
{
    return d->timeStamp(index);
}

KRGPXTime KRGPXTrackSegment::time(int index) const
{
    return d->time(index);
}

QString KRGPXTrackSegment::description(int index) const
{
    return d->description(index);
}

qint64 KRGPXTrackSegment::secondsOfCommaText(int index) const
{
    return d->secondsOfCommaText(index);
}

int KRGPXTrackSegment::count() const
{
    return d->count();
}

KRGeoPositionSpan KRGPXTrackSegment::positions() const
{
    return d->positions();
}

KRGeoPositionList KRGPXTrackSegment::allPoints() const
{
    return collectBlock(KRIntRange(0, count() - 1));
}

QList<KRGeoPositionList> KRGPXTrackSegment::chunkedPoints() const
{
    const KRIntRange range(0, count() - 1);
    if (!weAreaRunningInMainThread())
        return {collectBlock(range)};
    return KRConcurrent::blockingMapped(range.splitEvenlyForCpuCores(),
                                        [this](const KRIntRange &part) { return collectBlock(part); });
}

KRGeoPosition KRGPXTrackSegment::firstPoint() const
{
    return isValid() ? d->positions().at(0) : KRGPXTrackPoint().position();
}

KRGeoPosition KRGPXTrackSegment::lastPoint() const
{
    return isValid() ? d->positions().at(count() - 1) : KRGeoPosition();
}

QList<QDateTime> KRGPXTrackSegment::allTimeStamps() const
{
    QList<QDateTime> timeStamps;
    timeStamps.reserve(count());
    for (int i = 0; i < count(); ++i)
        timeStamps.append(d->timeStamp(i));
    return timeStamps;
}

void KRGPXTrackSegment::visitPositions(const PositionVisitor &visit) const
{
    visit(d->positions());
}

bool KRGPXTrackSegment::operator==(const KRGPXTrackSegment &other) const
{
    return d == other.d || *d == *other.d;
}

bool KRGPXTrackSegment::weAreaRunningInMainThread() const
{
    return KRConcurrent::isMainThread();
}

KRGeoPositionList KRGPXTrackSegment::collectBlock(const KRIntRange &range) const
{
    const KRGeoPositionSpan columns = d->positions();
    KRGeoPositionList positions;
    positions.reserve(range.lastIndexEvenIfUnvalid() - range.minimum());
    for (int i = range.minimum(); i < range.lastIndexEvenIfUnvalid(); ++i)
        positions.append(columns.at(i));
    return positions;
}

void KRGPXTrackSegment::append(const KRGPXTrackPoint &point)
{
    const QPointF degrees = point.position().toPointF();
    append(degrees.y(), degrees.x(), point.elevation(), point.timeStamp(), point.description());
}

void KRGPXTrackSegment::append(const KRGPXTrackSegment &other, int index)
{
    const KRGeoPositionSpan columns = other.positions();
    d->append(columns.latitudes[index], columns.longitudes[index], other.elevation(index), other.time(index),
              other.description(index));
}

void KRGPXTrackSegment::append(double latitude, double longitude, int elevation, const QDateTime &timeStamp,
                               const QString &description)
{
    d->append(latitude, longitude, elevation, KRGPXTime::of(timeStamp), description);
}

void KRGPXTrackSegment::append(double latitude, double longitude, int elevation, const KRGPXTime &time,
                               const QString &description)
{
    d->append(latitude, longitude, elevation, time, description);
}

void KRGPXTrackSegment::append(double latitude, double longitude, int elevation, qint64 milliseconds)
{
    d->append(latitude, longitude, elevation, {milliseconds, KRGPXTime::utcZone, QDateTime()}, QString());
}

void KRGPXTrackSegment::appendCompressed(const QString &text)
{
    KRGPXTrackPointColumns *const columns = d.data();
    const int added = KRGPXCommaText::count(text);
    // A long text alone may fill the memory: no room is left over then. Short ones let the columns grow by themselves.
    if (added > columns->count())
        columns->reserve(columns->count() + added);
    forEachCommaText(text, [&](const KRGPXCommaText &point) {
        columns->appendCommaText(point.latitude, point.longitude, point.elevation, point.milliseconds);
    });
}

void KRGPXTrackSegment::squeeze()
{
    d->squeeze();
}

QString KRGPXTrackSegment::toKml() const
{
    return commaTexts(0, count());
}

void KRGPXTrackSegment::toXml(QDomElement &parent) const
{
    QDomElement trkseg = KRXMLBuilder::buildDomElement(parent, KRGPXVocabulary::segmentElement);
    int first = 0;
    do {
        const int end = std::min(first + pointsPerText, count());
        KRXMLBuilder::buildDomElement(trkseg, KRGPXVocabulary::compressedPointsElement, commaTexts(first, end));
        first = end;
    } while (first < count());
}

/// One per line, from @p first up to but without @p end.
QString KRGPXTrackSegment::commaTexts(int first, int end) const
{
    constexpr int usualTextLength = 40;
    const auto textOf = [this](const KRIntRange &range) {
        QString text;
        text.reserve((range.maximum() - range.minimum() + 1) * usualTextLength);
        for (int i = range.minimum(); i <= range.maximum(); ++i) {
            if (i != range.minimum())
                text += QLatin1Char('\n');
            d->commaText(i).appendTo(&text);
        }
        return text;
    };
    const KRIntRange whole(first, end - 1);
    if (end - first < fewPoints)
        return textOf(whole);
    const QList<QString> parts = KRConcurrent::blockingMapped(whole.splitEvenlyForCpuCores(), textOf);
    return QStringList(parts).join(QLatin1Char('\n'));
}
