#include "KRGPXTrackShape.h"

#include "KRGPXMarkerShape.h"
#include "KRGPXTrackDisplayOptions.h"

#include <KRXML/KRXMLBuilder.h>

#include <QDomElement>

namespace {

const QString trackShapeElement = QStringLiteral("trackShape");

} // namespace

KRGPXTrackShape::KRGPXTrackShape(const QString &keys)
{
    setValue(enumToStringTable().decodeCSV(keys));
}

KRGPXTrackShape KRGPXTrackShape::fromXml(const QDomElement &parent)
{
    const QDomElement child = parent.firstChildElement(trackShapeElement);
    return child.isNull() ? KRGPXTrackShape(AutoTrackShape) : KRGPXTrackShape(child.text());
}

KRGPXTrackShape KRGPXTrackShape::decodeKml(const QDomElement &placemark)
{
    const auto hasChild = [&](const QString &name) { return !placemark.firstChildElement(name).isNull(); };
    if (hasChild(QStringLiteral("Polygon")))
        return PolygonTrackShape;
    if (hasChild(QStringLiteral("LineString")))
        return LineStringTrackShape;
    if (hasChild(QStringLiteral("Point")))
        return PointTrackShape;
    const QDomElement shape = placemark.firstChildElement(QStringLiteral("shape"));
    return shape.isNull() ? KRGPXTrackShape(AutoTrackShape) : KRGPXTrackShape(shape.text());
}

KRGPXTrackDisplayOptions KRGPXTrackShape::defaultDisplayOptions() const
{
    return StrokeDisplayOption;
}

KRGPXTrackDisplayOptions KRGPXTrackShape::availableDisplayOptions() const
{
    const KRGPXTrackDisplayOptions stroke = StrokeDisplayOption;
    switch (value()) {
    case PointTrackShape:
        return AllDisplayOptions;
    case HopTrackShape:
        return stroke | MarkDisplayOption;
    case LineStringTrackShape:
        return stroke;
    case PolygonTrackShape:
        return stroke | FillDisplayOption;
    case UnknownTrackShape:
    case AutoTrackShape:
        break;
    }
    return NoDisplayOption;
}

QList<KRGPXTrackShape> KRGPXTrackShape::possibleShapes() const
{
    // Intended: a line may become an area and an area a point, but never the other way round.
    switch (value()) {
    case PointTrackShape:
        return {PointTrackShape};
    case HopTrackShape:
        return {HopTrackShape};
    case LineStringTrackShape:
        return {PolygonTrackShape, LineStringTrackShape};
    case PolygonTrackShape:
        return {PointTrackShape, PolygonTrackShape};
    case UnknownTrackShape:
    case AutoTrackShape:
        break;
    }
    return {};
}

QList<KRGPXMarkerShape> KRGPXTrackShape::createMarkerShapes() const
{
    if (*this == LineStringTrackShape)
        return KRGPXMarkerShape::allLineStringShapes();
    if (*this == PointTrackShape)
        return KRGPXMarkerShape::allPointShapes();
    return {NoMarkerShape};
}

void KRGPXTrackShape::fillTable(KREnumToStringTable<KRGPXTrackShapeEnum> *table) const
{
    table->add(PointTrackShape, QStringLiteral("point"));
    table->add(LineStringTrackShape, QStringLiteral("linestring"));
    table->add(PolygonTrackShape, QStringLiteral("polygon"));
    table->add(HopTrackShape, QStringLiteral("hop"));
    table->add(AutoTrackShape, QStringLiteral("auto"));
    table->add(UnknownTrackShape, QStringLiteral("unknown"));
}

QString KRGPXTrackShape::humanReadable(const KRGPXMarkerShape &marker) const
{
    switch (value()) {
    case UnknownTrackShape:
        return tr("unbekannt");
    case PointTrackShape:
        return tr("Punkt");
    case HopTrackShape:
        return tr("Fluglinie");
    case LineStringTrackShape:
        return (marker & ArrowMarkerShape) != 0 ? tr("Pfeil") : tr("Strecke");
    case PolygonTrackShape:
        return tr("Fläche");
    case AutoTrackShape:
        return tr("Automatisch erkannt");
    }
    return {};
}

QString KRGPXTrackShape::toolTip() const
{
    switch (value()) {
    case UnknownTrackShape:
        return tr("Wir wissen die Form nicht.");
    case PointTrackShape:
        return tr("Ein Punkt kann als verschiedene vorgefertigte Formen gezeichnet werden.");
    case HopTrackShape:
        // Intended: the wording is settled, translations are filed under it.
        return tr("Die beiden Punkt werden als Fluglinie betrachtet.");
    case LineStringTrackShape:
        return tr("Alle Punkte werden zu einer Strecke verbunden.");
    case PolygonTrackShape:
        return tr("Alle Punkte werden als Außenlinie einer Fläche betrachtet.");
    case AutoTrackShape:
        return tr("Die Form wird automatisch erkannt.");
    }
    return {};
}

void KRGPXTrackShape::toXml(QDomElement &parent) const
{
    KRXMLBuilder::buildDomElement(parent, trackShapeElement, keys());
}
