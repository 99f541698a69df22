#include "KRGPXTrack.h"

#include "KRGPXStreamReader.h"
#include "KRGPXTrackFileRegistry.h"
#include "KRGPXTrackImpl.h"
#include "KRGPXVocabulary.h"

#include <KRCore/KRXMLLoader.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>

namespace {

const QString gpxRoot = QStringLiteral("gpx");

QList<KRGPXTrackSegment> validSegments(const KRGPXTrackSegment &segment)
{
    return segment.isValid() ? QList<KRGPXTrackSegment>{segment} : QList<KRGPXTrackSegment>{};
}

} // namespace

KRGPXTrack::KRGPXTrack() : d(new KRGPXTrackImpl) { }

KRGPXTrack::KRGPXTrack(const KRGPXTrackPoint &point)
    : KRGPXTrack(point.description(), QString(),
                 point.position().isValid() ? validSegments(KRGPXTrackSegment(point)) : QList<KRGPXTrackSegment>{},
                 PointTrackShape)
{ }

KRGPXTrack::KRGPXTrack(const QDomElement &trk, const QDir &dir) : KRGPXTrack()
{
    fromXml(trk, dir);
}

KRGPXTrack::KRGPXTrack(const QString &name, const QString &description, const QList<KRGPXTrackSegment> &segments,
                       const KRGPXTrackShape &shape)
    : d(new KRGPXTrackImpl(name, description, segments, shape))
{ }

KRGPXTrack::KRGPXTrack(const QSharedDataPointer<KRGPXTrackImpl> &impl) : d(impl) { }

KRGPXTrack::KRGPXTrack(const KRGPXTrack &other) = default;
KRGPXTrack::KRGPXTrack(KRGPXTrack &&other) noexcept = default;
KRGPXTrack &KRGPXTrack::operator=(const KRGPXTrack &other) = default;
KRGPXTrack &KRGPXTrack::operator=(KRGPXTrack &&other) noexcept = default;
KRGPXTrack::~KRGPXTrack() = default;

KRGPXTrack KRGPXTrack::decodeKml(const QString &name, const QString &description, const QString &coordinates,
                                 const KRGPXTrackShape &shape)
{
    return KRGPXTrack(name, description, validSegments(KRGPXTrackSegment::decodeKml(coordinates.trimmed())), shape);
}

KRGPXTrackShape KRGPXTrack::autoDetectShape(const QList<KRGPXTrackSegment> &segments)
{
    if (segments.isEmpty())
        return UnknownTrackShape;
    if (segments.size() == 1 && segments.first().isSinglePoint())
        return PointTrackShape;
    return segments.first().firstPoint() == segments.last().lastPoint() ? PolygonTrackShape : LineStringTrackShape;
}

QString KRGPXTrack::name() const
{
    return d->name();
}

QString KRGPXTrack::description() const
{
    return d->description();
}

QList<KRGPXTrackSegment> KRGPXTrack::segments() const
{
    return d->segments();
}

KRGPXTrackShape KRGPXTrack::shape() const
{
    return d->shape();
}

QList<KRGPXTrack> KRGPXTrack::enclaves() const
{
    return d->enclaves();
}

KRGPXTrackShape KRGPXTrack::naturalShape() const
{
    return autoDetectShape(d->segments());
}

int KRGPXTrack::countPoints() const
{
    return d->countPoints();
}

KRGeoPositionList KRGPXTrack::allPoints() const
{
    return d->allPoints();
}

QList<KRGeoPositionList> KRGPXTrack::chunkedPoints() const
{
    return d->chunkedPoints();
}

bool KRGPXTrack::isSinglePoint() const
{
    return d->isSinglePoint();
}

KRGeoPosition KRGPXTrack::firstPoint() const
{
    return d->firstPoint();
}

KRGeoPosition KRGPXTrack::lastPoint() const
{
    return d->lastPoint();
}

QList<QDateTime> KRGPXTrack::allTimeStamps() const
{
    return d->allTimeStamps();
}

void KRGPXTrack::visitPositions(const PositionVisitor &visit) const
{
    d->visitPositions(visit);
}

bool KRGPXTrack::isValid() const
{
    return d->isValid();
}

bool KRGPXTrack::hasShape(const KRGPXTrackShape &shape) const
{
    return d->shape() == shape;
}

bool KRGPXTrack::isEnclave(const KRGPXTrack &other) const
{
    return d->isEnclave(*other.d);
}

bool KRGPXTrack::operator==(const KRGPXTrack &other) const
{
    return d == other.d || *d == *other.d;
}

bool KRGPXTrack::operator<(const KRGPXTrack &other) const
{
    return *d < *other.d;
}

bool KRGPXTrack::setName(const QString &name)
{
    if (name == this->name())
        return false;
    return d->setName(name);
}

bool KRGPXTrack::setShape(const KRGPXTrackShape &shape)
{
    if (shape == this->shape())
        return false;
    return d->setShape(shape);
}

void KRGPXTrack::addEnclave(const KRGPXTrack &enclave)
{
    // A track may become an enclave of itself, as it was before: copied before this one gets data of its own.
    const KRGPXTrack copy = enclave; // NOLINT(performance-unnecessary-copy-initialization)
    d->addEnclave(copy);
}

void KRGPXTrack::fromXml(const QDomElement &trk, const QDir &dir)
{
    QString includedFile;
    bool hasInclude = false;
    for (QDomElement child = trk.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        const QString name = child.tagName();
        if (name == KRGPXVocabulary::includeElement && KRGPXTrackFileRegistryKey::namesDirectory(dir)) {
            hasInclude = true;
            includedFile = child.text();
            includeFile(QFileInfo(dir, includedFile));
        } else if (name == KRGPXVocabulary::nameElement) {
            d->setName(child.text());
        } else if (name == KRGPXVocabulary::descriptionElement) {
            d->setDescription(child.text());
        } else if (name == KRGPXVocabulary::segmentElement) {
            d->addSegment(KRGPXTrackSegment(child));
        } else if (name == KRGPXVocabulary::shapeElement) {
            d->setShape(KRGPXTrackShape(child.text()));
        } else if (name == KRGPXVocabulary::enclavesElement) {
            readEnclaves(child);
        }
    }
    d->replaceAutoShape();
    // Intended: also when the file could not be read, so that its name stays with the track.
    if (hasInclude)
        KRGPXTrackFileRegistry::instance().registerFile(KRGPXTrackFileRegistryKey(*this, dir), includedFile);
}

void KRGPXTrack::toXml(QDomElement &parent, const QDir &dir) const
{
    QDomElement trk = buildTrackElement(parent);
    if (KRGPXTrackFileRegistryKey::namesDirectory(dir) && dir.exists()) {
        const QString fileName =
            KRGPXTrackFileRegistry::instance().createAssignedFile(KRGPXTrackFileRegistryKey(*this, dir));
        KRXMLBuilder::buildDomElement(trk, KRGPXVocabulary::includeElement, fileName);
    } else {
        buildXmlBody(trk);
    }
}

QDomElement KRGPXTrack::buildTrackElement(QDomElement &parent) const
{
    return KRXMLBuilder::buildDomElement(parent, KRGPXVocabulary::trackElement);
}

void KRGPXTrack::buildXmlBody(QDomElement &trk) const
{
    d->buildXmlBody(trk);
}

void KRGPXTrack::saveAsGpxFile(const QFileInfo &file) const
{
    QDomDocument document;
    QDomElement gpx = KRXMLBuilder::buildRootElement(document, gpxRoot);
    QDomElement trk = buildTrackElement(gpx);
    buildXmlBody(trk);
    KRXMLBuilder::saveUTF8(document, file, nullptr);
}

void KRGPXTrack::includeFile(const QFileInfo &file)
{
    QSharedDataPointer<KRGPXTrackImpl> merged = d;
    const KRGPXStreamResult result = KRGPXStreamReader::readFile(
        file, nullptr, [&](KRGPXStreamReader &reader) { return reader.readFirstTrack(merged.data()); });
    if (result == StreamWasRead) {
        d = merged;
    } else if (result == StreamNeedsDom) {
        const QDomElement root = KRXMLLoader::loadDocumentElement(file);
        fromXml(root.firstChildElement(KRGPXVocabulary::trackElement), QDir(QString()));
    }
    // Also where there was no track to read.
    d->replaceAutoShape();
}

void KRGPXTrack::readEnclaves(const QDomElement &enclaves)
{
    for (QDomElement child = enclaves.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        d->addEnclave(KRGPXTrack(child, QDir(QString())));
}
