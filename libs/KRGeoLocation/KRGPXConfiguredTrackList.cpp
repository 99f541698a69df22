#include "KRGPXConfiguredTrackList.h"

#include "KRGPXTrackSelectionComparisonResult.h"
#include "KRTrackSelectionFactory.h"

#include <QDir>
#include <QDomElement>

KRGPXConfiguredTrackList::KRGPXConfiguredTrackList() = default;

KRGPXConfiguredTrackList::KRGPXConfiguredTrackList(const KRGPXConfiguredTrack &track)
{
    append(track);
}

KRGPXConfiguredTrackList::KRGPXConfiguredTrackList(const QDomElement &parent, const QString &name, const QDir &dir)
{
    for (QDomElement child = parent.firstChildElement(name); !child.isNull(); child = child.nextSiblingElement(name))
        append(KRGPXConfiguredTrack(child, dir));
}

KRGPXConfiguredTrackList::KRGPXConfiguredTrackList(const KRGPXConfiguredTrackList &other) = default;
KRGPXConfiguredTrackList::KRGPXConfiguredTrackList(KRGPXConfiguredTrackList &&other) noexcept = default;
KRGPXConfiguredTrackList &KRGPXConfiguredTrackList::operator=(const KRGPXConfiguredTrackList &other) = default;
KRGPXConfiguredTrackList &KRGPXConfiguredTrackList::operator=(KRGPXConfiguredTrackList &&other) noexcept = default;
KRGPXConfiguredTrackList::~KRGPXConfiguredTrackList() = default;

KRGPXConfiguredTrackList KRGPXConfiguredTrackList::fromFile()
{
    return KRTrackSelectionFactory::instance()->askUserReadFile();
}

KRGPXTrackConfiguration KRGPXConfiguredTrackList::configuration(int index) const
{
    return checkRange(index) ? at(index).configuration() : KRGPXTrackConfiguration::currentDefaultConfiguration();
}

KRGPXTrackSelectionComparisonResult KRGPXConfiguredTrackList::compare(const KRGPXConfiguredTrackList &other) const
{
    KRGPXTrackSelectionComparisonResult result;
    for (int index = 0; index < qMin(count(), other.count()); ++index) {
        const KRGPXTrackAspect aspects = at(index).differentAspects(other.at(index));
        if (aspects != 0) {
            result.addChangingTrack(index);
            result.addChangingAspects(aspects);
        }
    }
    return result;
}

bool KRGPXConfiguredTrackList::wouldChangeHaloToVisibleAgainst(const KRGPXConfiguredTrackList &old) const
{
    for (int index = 0; index < qMin(count(), old.count()); ++index) {
        if (at(index).wouldChangeHaloToVisibleAgainst(old.at(index)))
            return true;
    }
    return false;
}

bool KRGPXConfiguredTrackList::setConfiguration(int index, const KRGPXTrackConfiguration &configuration)
{
    KRGPXTrackConfiguration wanted = configuration;
    if (!wanted.trackShape().isValid())
        wanted.setTrackShape(AutoTrackShape);
    if (!checkRange(index) || at(index).configuration() == wanted)
        return false;
    return (*this)[index].setConfiguration(wanted);
}

void KRGPXConfiguredTrackList::moveTrack(int from, int to)
{
    if (checkRange(from))
        move(from, qBound(0, to, count() - 1));
}

void KRGPXConfiguredTrackList::toXml(QDomElement &parent, const QString &name, const QDir &dir) const
{
    for (const KRGPXConfiguredTrack &track : *this)
        track.toXml(parent, name, dir);
}
