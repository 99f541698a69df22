#include "KRTrackTable.h"

#include "KRImportReport.h"
#include "KRTextTable.h"
#include "KRTrackFigures.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRMessageText.h>
#include <KRGeoLocation/KRGPXTrackShape.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace {

constexpr int mostLettersOfName = 60;

/// A name that leaves the table readable, whatever else is in it.
QString nameText(const QString &name)
{
    const QString line = KRMessageText::printable(name.simplified());
    if (line.size() <= mostLettersOfName)
        return line;
    const int letters = mostLettersOfName - 1;
    const bool splitsPair = line.at(letters - 1).isHighSurrogate();
    return line.left(splitsPair ? letters - 1 : letters) + QChar(0x2026);
}

QString utcText(const QDateTime &time)
{
    return time.isValid() ? time.toUTC().toString(Qt::ISODate) : QString();
}

QString areaText(const KRGeoPositionRect &area)
{
    if (!area.isValid())
        return QString();
    return QStringLiteral("%1 %2 .. %3 %4")
        .arg(KRTextTable::degrees(area.north()), KRTextTable::degrees(area.west()), KRTextTable::degrees(area.south()),
             KRTextTable::degrees(area.east()));
}

QJsonValue positionValue(const KRGeoPosition &position)
{
    if (!position.isValid())
        return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("latitude"), position.latitude().decimalDegrees()},
                       {QStringLiteral("longitude"), position.longitude().decimalDegrees()}};
}

QJsonValue areaValue(const KRGeoPositionRect &area)
{
    if (!area.isValid())
        return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("south"), area.south().decimalDegrees()},
                       {QStringLiteral("west"), area.west().decimalDegrees()},
                       {QStringLiteral("north"), area.north().decimalDegrees()},
                       {QStringLiteral("east"), area.east().decimalDegrees()}};
}

QJsonValue timeValue(const QDateTime &time)
{
    return time.isValid() ? QJsonValue(utcText(time)) : QJsonValue(QJsonValue::Null);
}

QJsonValue knownValue(bool isKnown, double value)
{
    return isKnown ? QJsonValue(value) : QJsonValue(QJsonValue::Null);
}

QJsonObject trackValue(const KRGPXConfiguredTrack &track)
{
    const KRTrackFigures figures(track);
    return QJsonObject{
        {QStringLiteral("name"), track.name()},
        {QStringLiteral("description"), track.description()},
        {QStringLiteral("shape"), track.effectiveShape().keys()},
        {QStringLiteral("segments"), figures.segmentCount()},
        {QStringLiteral("points"), figures.pointCount()},
        {QStringLiteral("lengthKm"), figures.lengthKm()},
        {QStringLiteral("climbMetres"), knownValue(figures.hasElevation(), double(figures.climbMetres()))},
        {QStringLiteral("descentMetres"), knownValue(figures.hasElevation(), double(figures.descentMetres()))},
        {QStringLiteral("averageKmh"), knownValue(figures.hasSpeed(), figures.averageSpeedKmh())},
        {QStringLiteral("maximumKmh"), knownValue(figures.hasSpeed(), figures.maximumSpeedKmh())},
        {QStringLiteral("first"), positionValue(figures.firstPosition())},
        {QStringLiteral("last"), positionValue(figures.lastPosition())},
        {QStringLiteral("from"), timeValue(figures.from())},
        {QStringLiteral("to"), timeValue(figures.to())},
        {QStringLiteral("boundingBox"), areaValue(figures.boundingBox())},
    };
}

/// Line and column are 0 where they are not known.
QJsonObject problemObject(const QString &fileName, int line, int column, const QString &reason)
{
    return {{QStringLiteral("file"), fileName},
            {QStringLiteral("line"), line},
            {QStringLiteral("column"), column},
            {QStringLiteral("reason"), reason}};
}

} // namespace

QString KRTrackTable::toText() const
{
    QList<QStringList> rows{{tr("Nr."), tr("Name"), tr("Form"), tr("Segmente"), tr("Punkte"), tr("Länge (km)"),
                             tr("Anstieg (m)"), tr("von"), tr("bis"), tr("Ausschnitt (NW .. SO)")}};
    for (int i = 0; i < m_tracks.size(); ++i) {
        const KRGPXConfiguredTrack &track = m_tracks.at(i);
        const KRTrackFigures figures(track);
        rows.append({QString::number(i + 1), nameText(track.name()), track.effectiveShape().keys(),
                     QString::number(figures.segmentCount()), QString::number(figures.pointCount()),
                     QString::number(figures.lengthKm(), 'f', 2),
                     figures.hasElevation() ? QString::number(figures.climbMetres()) : QString(),
                     utcText(figures.from()), utcText(figures.to()), areaText(figures.boundingBox())});
    }
    return KRTextTable::aligned(rows, {0, 3, 4, 5, 6});
}

QByteArray KRTrackTable::toJson(const KRErrorHistory &problems, const QList<KRImportReport> &reports) const
{
    QJsonArray tracks;
    for (const KRGPXConfiguredTrack &track : m_tracks)
        tracks.append(trackValue(track));

    QJsonArray problemValues;
    for (const KRErrorHistory::Entry &problem : problems.entries())
        problemValues.append(problemObject(problem.fileName, problem.line, problem.column, problem.reason));
    for (const KRImportReport &report : reports) {
        for (const KRImportReport::Item &item : report.items()) {
            QJsonObject problem = problemObject(report.fileName(), item.line, 0, KRImportReport::describe(item));
            problem.insert(QStringLiteral("kind"), KRImportReport::key(item.kind));
            problem.insert(QStringLiteral("name"), item.name);
            problem.insert(QStringLiteral("count"), item.count);
            problemValues.append(problem);
        }
    }
    const QJsonObject root{{QStringLiteral("tracks"), tracks}, {QStringLiteral("problems"), problemValues}};
    return QJsonDocument(root).toJson();
}
