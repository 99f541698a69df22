#include "KRFuzzFile.h"
#include "KRFuzzLaws.h"
#include "KRFuzzTargets.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDir>
#include <QDomDocument>

namespace {

QString textOf(const KRGPXTrackSelection &selection)
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("selection"));
    selection.toXml(root, QDir(QString()));
    return KRXMLBuilder::toText(document);
}

/// Tracks have laws of their own.
KRGPXTrackSelection withoutPoints(const KRGPXTrackSelection &selection)
{
    KRGPXConfiguredTrackList tracks = selection.tracks();
    for (KRGPXConfiguredTrack &track : tracks)
        track.setTrack(KRGPXTrack(track.name(), QString(), {}, track.track().shape()));
    KRGPXTrackSelection result(tracks);
    result.setCroppingOpacity(selection.nominalCroppingOpacity());
    return result;
}

/// A selection that was written and read once is written alike from then on.
QString brokenBySelection(const KRGPXTrackSelection &selection)
{
    const auto read = [](const QString &text) {
        return KRGPXTrackSelection(KRXMLLoader::parseDocumentElement(text, QStringLiteral("selection")),
                                   QDir(QString()));
    };
    const QString once = textOf(read(textOf(withoutPoints(selection))));
    return textOf(read(once)) == once ? QString() : QStringLiteral("A selection is written as the same XML each time.");
}

} // namespace

QString KRFuzzTargets::document(const QByteArray &file)
{
    const QFileInfo input = KRFuzzFile::write(QStringLiteral("input.krroute"), file);
    KRErrorHistory history;
    KRRouteDocument document;
    if (!document.load(input, &history))
        return history.isEmpty() ? QStringLiteral("A document that cannot be read has a reason.") : QString();

    QString broken = brokenBySelection(document.selection());
    const QList<KRGPXTrack> tracks = KRFuzzLaws::tracksOf(document.selection().tracks());
    for (int i = 0; i < tracks.size() && broken.isNull(); ++i)
        broken = KRFuzzLaws::brokenByXml(tracks.at(i));
    return broken;
}

QString KRFuzzTargets::configuration(const QByteArray &xml)
{
    return KRFuzzLaws::brokenByXml(KRGPXTrackConfiguration::deserialize(QString::fromUtf8(xml)));
}
