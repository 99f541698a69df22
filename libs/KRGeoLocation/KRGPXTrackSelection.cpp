#include "KRGPXTrackSelection.h"

#include "KRGPXTrackSelectionComparisonResult.h"

#include <KRCore/KRValue.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QDir>
#include <QDomElement>

#include <algorithm>

using KRValue::replaceIfDifferent;

namespace {

const QString croppingOpacityAttribute = QStringLiteral("croppingOpacity");
const QString tracksElement = QStringLiteral("gpxtrack");
const QString trackElement = QStringLiteral("configuredTrack");
const QString formerTrackElement = QStringLiteral("locationTrack");

int scaledComponent(int component, int factor)
{
    return static_cast<int>(std::clamp<qint64>(qint64(component) * factor / 128, 0, 255));
}

QColor scaledColor(const QColor &color, int factor)
{
    QColor result = color.toRgb();
    result.setRed(scaledComponent(result.red(), factor));
    result.setGreen(scaledComponent(result.green(), factor));
    result.setBlue(scaledComponent(result.blue(), factor));
    return result;
}

} // namespace

KRGPXTrackSelection::KRGPXTrackSelection() = default;

KRGPXTrackSelection::KRGPXTrackSelection(const KRGPXConfiguredTrackList &tracks) : m_tracks(tracks) { }

KRGPXTrackSelection::KRGPXTrackSelection(const QDomElement &element, const QDir &dir)
    : m_croppingOpacity(KRXMLParser::intAttribute(element, croppingOpacityAttribute, 255))
{
    // Intended: the former element is read, before all others, and never written.
    const QDomElement tracks = element.firstChildElement(tracksElement);
    m_tracks = KRGPXConfiguredTrackList(tracks, formerTrackElement, dir);
    m_tracks.append(KRGPXConfiguredTrackList(tracks, trackElement, dir));
}

KRGPXTrackSelection::KRGPXTrackSelection(const KRGPXTrackSelection &other) = default;
KRGPXTrackSelection::KRGPXTrackSelection(KRGPXTrackSelection &&other) noexcept = default;
KRGPXTrackSelection &KRGPXTrackSelection::operator=(const KRGPXTrackSelection &other) = default;
KRGPXTrackSelection &KRGPXTrackSelection::operator=(KRGPXTrackSelection &&other) noexcept = default;
KRGPXTrackSelection::~KRGPXTrackSelection() = default;

KRGPXConfiguredTrack KRGPXTrackSelection::value(int index) const
{
    return checkRange(index) ? m_tracks.at(index) : KRGPXConfiguredTrack();
}

int KRGPXTrackSelection::effectiveCroppingOpacity() const
{
    return isEmpty() ? 255 : m_croppingOpacity;
}

KRGeoPositionList KRGPXTrackSelection::allPoints() const
{
    KRGeoPositionList points;
    for (const KRGPXConfiguredTrack &track : m_tracks)
        points.append(track.allPoints());
    return points;
}

QList<KRGeoPositionList> KRGPXTrackSelection::chunkedPoints() const
{
    QList<KRGeoPositionList> chunks;
    for (const KRGPXConfiguredTrack &track : m_tracks)
        chunks.append(track.chunkedPoints());
    return chunks;
}

bool KRGPXTrackSelection::isSinglePoint() const
{
    return count() == 1 && m_tracks.first().isSinglePoint();
}

KRGeoPosition KRGPXTrackSelection::firstPoint() const
{
    return isEmpty() ? KRGeoPosition() : m_tracks.first().firstPoint();
}

KRGeoPosition KRGPXTrackSelection::lastPoint() const
{
    for (int index = count() - 1; index >= 0; --index) {
        const KRGeoPosition point = m_tracks.at(index).lastPoint();
        if (point.isValid())
            return point;
    }
    return {};
}

QList<QDateTime> KRGPXTrackSelection::allTimeStamps() const
{
    QList<QDateTime> timeStamps;
    for (const KRGPXConfiguredTrack &track : m_tracks)
        timeStamps.append(track.allTimeStamps());
    return timeStamps;
}

void KRGPXTrackSelection::visitPositions(const PositionVisitor &visit) const
{
    for (const KRGPXConfiguredTrack &track : m_tracks)
        track.visitPositions(visit);
}

KRGPXTrackSelection KRGPXTrackSelection::reduceToTrackNumber(int index) const
{
    KRGPXTrackSelection selection = *this;
    if (checkRange(index))
        selection.m_tracks = KRGPXConfiguredTrackList(m_tracks.at(index));
    return selection;
}

KRGPXTrackSelectionComparisonResult KRGPXTrackSelection::compare(const KRGPXTrackSelection &other) const
{
    KRGPXTrackSelectionComparisonResult result;
    result.setTrackCountChanges(count() != other.count());
    return result + m_tracks.compare(other.m_tracks);
}

bool KRGPXTrackSelection::wouldChangeHaloToVisibleAgainst(const KRGPXTrackSelection &old) const
{
    return m_tracks.wouldChangeHaloToVisibleAgainst(old.m_tracks);
}

bool KRGPXTrackSelection::operator==(const KRGPXTrackSelection &other) const
{
    return m_croppingOpacity == other.m_croppingOpacity && m_tracks == other.m_tracks;
}

bool KRGPXTrackSelection::setTracks(const KRGPXConfiguredTrackList &tracks)
{
    return replaceIfDifferent(m_tracks, tracks);
}

bool KRGPXTrackSelection::setCroppingOpacity(int opacity)
{
    return replaceIfDifferent(m_croppingOpacity, opacity);
}

void KRGPXTrackSelection::addTrack(const KRGPXTrack &track)
{
    m_tracks.append(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration::currentDefaultConfiguration()));
}

void KRGPXTrackSelection::addTrack(const KRGPXConfiguredTrack &track)
{
    m_tracks.append(track);
}

void KRGPXTrackSelection::addTracks(const KRGPXConfiguredTrackList &tracks)
{
    m_tracks.append(tracks);
}

void KRGPXTrackSelection::addSelection(const KRGPXTrackSelection &other)
{
    addTracks(other.m_tracks);
}

void KRGPXTrackSelection::removeAt(int index)
{
    if (checkRange(index))
        m_tracks.removeAt(index);
}

void KRGPXTrackSelection::moveTrack(int from, int to)
{
    m_tracks.moveTrack(from, to);
}

bool KRGPXTrackSelection::setConfiguration(int index, const KRGPXTrackConfiguration &configuration)
{
    if (!checkRange(index) || m_tracks.at(index).configuration() == configuration)
        return false;
    m_tracks[index].setConfiguration(configuration);
    // Intended: also true when nothing but an unknown shape differs, which the track does not take.
    return true;
}

bool KRGPXTrackSelection::setConfiguration(const KRGPXTrackConfiguration &configuration)
{
    bool changed = false;
    for (int index = 0; index < count(); ++index)
        changed = setConfiguration(index, configuration) || changed;
    return changed;
}

void KRGPXTrackSelection::overrideColorOfTrack(int index, int factor)
{
    if (!checkRange(index))
        return;
    KRGPXConfiguredTrack &track = m_tracks[index];
    track.setFillColor(scaledColor(track.fillColor(), factor));
    track.setLineColor(scaledColor(track.lineColor(), factor));
}

void KRGPXTrackSelection::toXml(QDomElement &parent, const QDir &dir) const
{
    parent.setAttribute(croppingOpacityAttribute, m_croppingOpacity);
    QDomElement tracks = KRXMLBuilder::buildDomElement(parent, tracksElement);
    m_tracks.toXml(tracks, trackElement, dir);
}
