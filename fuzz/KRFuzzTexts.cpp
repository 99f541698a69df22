#include "KRFuzzLaws.h"
#include "KRFuzzTargets.h"

#include <KRGeoLocation/KRGPXTrackListModel.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QDataStream>
#include <QDomDocument>
#include <QMimeData>
#include <QUrlQuery>

#include <algorithm>

namespace {

/// Degrees, minutes and seconds make up the angle again.
QString brokenByParts(const KRGeoArc &angle)
{
    // Mostly to have every digit computed: none of this may overflow, whatever the angle.
    const QString texts = angle.toString() + angle.toExifRational();
    if (!angle.isValid())
        return QString();
    const bool isWhole = std::abs(angle.minute()) < 60 && std::abs(angle.second()) < 60.0001;
    KRGeoArc sum;
    sum.setDegree(angle.degree(), angle.minute(), angle.second());
    return isWhole && sum == angle && !texts.isEmpty()
               ? QString()
               : QStringLiteral("Degrees, minutes and seconds make up the angle.");
}

/// The texts for users can be read again, and what is brought into range lies there.
template <typename Coordinate>
QString brokenByCoordinate(const Coordinate &coordinate, const Coordinate &safe)
{
    const QString broken = brokenByParts(coordinate);
    if (!broken.isNull())
        return broken;
    if (safe.isValid() && std::abs(safe.decimalDegrees()) > Coordinate::highestDegrees)
        return QStringLiteral("A coordinate that is brought into range lies there.");
    // Intended: a letter for the shorter way round the globe, with the plain number behind it.
    if (!coordinate.isInValidRange())
        return QString();
    // The same place: 180 West is written as 180 East.
    const KRGeoArc difference = Coordinate::parse(coordinate.toString(false)).absDistance(coordinate);
    return (difference == 0.0 || difference == 360.0) && !coordinate.toString(true).isEmpty()
               ? QString()
               : QStringLiteral("A coordinate reads as it was written.");
}

QString brokenByPosition(const KRGeoPosition &position)
{
    if (!position.isValid())
        return QString();
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("position"));
    position.writeToXml(element);
    const KRGeoPosition again = KRGeoPosition::fromXml(element);
    // QDom writes numbers with six significant digits or more.
    const bool isKept = std::abs((again.latitude() - position.latitude()).decimalDegrees()) < 1e-3
                        && std::abs((again.longitude() - position.longitude()).decimalDegrees()) < 1e-3;
    if (!isKept || position.toString(true).isEmpty() || position.toString(false).isEmpty())
        return QStringLiteral("A position reads as it was written.");
    return QString();
}

QString brokenByArea(const KRGeoPositionRect &area)
{
    QUrlQuery query;
    area.writeTo(query);
    const KRGeoPositionRect again = KRGeoPositionRect::parse(query);
    return !area.isValid() || again == area ? QString() : QStringLiteral("An area reads as it was written.");
}

QString firstOf(const QStringList &answers)
{
    const auto broken =
        std::find_if(answers.cbegin(), answers.cend(), [](const QString &answer) { return !answer.isNull(); });
    return broken == answers.cend() ? QString() : *broken;
}

} // namespace

QString KRFuzzTargets::position(const QByteArray &text)
{
    const QString input = QString::fromUtf8(text);
    const KRLatitude latitude = KRLatitude::parse(input);
    const KRLongitude longitude = KRLongitude::parse(input);
    const KRGeoArc angle = KRGeoArc::fromString(input);
    return firstOf({brokenByParts(angle),
                    brokenByCoordinate(latitude, KRLatitude::safeLatitude(latitude.decimalDegrees())),
                    brokenByCoordinate(longitude, KRLongitude::safeLongitude(longitude.decimalDegrees())),
                    brokenByCoordinate(KRLongitude(angle), KRLongitude(angle).normalized()),
                    brokenByPosition(KRGeoPosition::parse(input)), brokenByPosition(KRGeoPosition::fromString(input)),
                    brokenByArea(KRGeoPositionRect::parse(QUrlQuery(input)))});
}

QString KRFuzzTargets::commaText(const QByteArray &text)
{
    const QString input = QString::fromUtf8(text);
    const KRGPXTrack track = KRGPXTrack::decodeKml(QStringLiteral("name"), QString(), input, LineStringTrackShape);
    // Numbers are cut to some characters, of which a blank that separates nothing, as U+00A0, may be one.
    if (track.countPoints() != KRGPXTrackSegment::decodeTrackPoints(input.trimmed()).size())
        return QStringLiteral("Points read alike in a track and alone.");
    return firstOf({KRFuzzLaws::brokenBySize({track}, input.size()), KRFuzzLaws::brokenByXml(track)});
}

/// The tracks stay the same ones, in whatever order, and the one to be selected is among them.
QString KRFuzzTargets::drop(const QByteArray &payload)
{
    if (payload.size() < 3)
        return QString();
    // The number of tracks and the place of the drop come first.
    const int count = uchar(payload.at(0)) % 32;
    const int row = static_cast<signed char>(payload.at(1));
    const int column = static_cast<signed char>(payload.at(2)) % 3;

    const auto sortedNames = [](const KRGPXConfiguredTrackList &tracks) {
        QStringList names;
        for (const KRGPXConfiguredTrack &track : tracks)
            names.append(track.name());
        names.sort();
        return names;
    };
    KRGPXConfiguredTrackList tracks;
    for (int i = 0; i < count; ++i)
        tracks.append(KRGPXConfiguredTrack(KRGPXTrack(QString::number(i), QString(), {}, LineStringTrackShape),
                                           KRGPXTrackConfiguration()));
    KRGPXTrackListModel model;
    model.setSelection(KRGPXTrackSelection(tracks));
    QString broken;
    QObject::connect(&model, &KRGPXTrackListModel::pleaseSelectTrack, &model, [&](int selected) {
        if (!model.isValidRow(selected))
            broken = QStringLiteral("A row that there is becomes selected.");
    });
    QMimeData data;
    data.setData(model.mimeTypes().constFirst(), payload.mid(3));
    model.dropMimeData(&data, Qt::MoveAction, row, column, QModelIndex());
    if (sortedNames(model.tracks()) != sortedNames(tracks))
        return QStringLiteral("No track is lost or doubled by a drop.");
    return broken;
}
