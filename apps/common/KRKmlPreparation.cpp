#include "KRKmlPreparation.h"

#include "KRXmlStream.h"

#include <KRCore/KRInputLimits.h>

namespace {

constexpr int mostGeometriesAtOnce = 10000;
constexpr int mostCharactersAtOnce = 4000000;

QString element(const char *name, const QString &text)
{
    return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(name), text);
}

QString geometryXml(const KRKmlGeometry &geometry)
{
    const KRKmlCoordinates &first = geometry.parts.first();
    const QString coordinates = element("coordinates", geometry.isCompletedLater() ? first.toText(1) : first.toText());
    if (geometry.kind == KRKmlGeometry::Point)
        return element("Point", coordinates);
    if (geometry.kind == KRKmlGeometry::Line)
        return element("LineString", coordinates);
    if (geometry.kind == KRKmlGeometry::Area)
        return element("Polygon", coordinates);
    return geometry.shape.isEmpty() ? coordinates : element("shape", geometry.shape.toHtmlEscaped()) + coordinates;
}

} // namespace

bool KRKmlPreparation::read(const QByteArray &kml, KRErrorHistory *history)
{
    return KRXmlStream::read(kml, m_fileName, history, [this](KRXmlStream &stream) {
        *this = KRKmlPreparation(m_fileName);
        readElement(stream);
    });
}

/// Reads the current element, which is none of those in a placemark.
void KRKmlPreparation::readElement(KRXmlStream &stream)
{
    if (stream.isAt("Placemark")) {
        readPlacemark(stream);
    } else if (KRKmlStyleTable::isStyle(stream)) {
        const QString id = stream.attribute("id").toString();
        m_styles.add(id, KRKmlStyleTable::readLook(stream));
    } else if (!readUndrawable(stream)) {
        while (stream.readNextChild())
            readElement(stream);
    }
}

void KRKmlPreparation::readPlacemark(KRXmlStream &stream)
{
    const int countBefore = m_geometries.size();
    KRKmlPlacemarkReader(stream, &m_geometries, &m_countOfParts, &m_report).read();
    // No single geometry has more than the limit, so the sum does not overflow before it is compared.
    for (int i = countBefore; i < m_geometries.size() && m_positionCount < KRInputLimits::positions; ++i) {
        for (const KRKmlCoordinates &part : m_geometries.at(i).parts)
            m_positionCount += part.count();
    }
    if (m_positionCount >= KRInputLimits::positions)
        stream.refuse(tr("Die Datei hat mehr als %1 Positionen.").arg(KRInputLimits::positions));
}

bool KRKmlPreparation::readUndrawable(KRXmlStream &stream)
{
    static const struct {
        const char *element;
        KRImportReport::Kind kind;
    } undrawables[] = {
        {"NetworkLink", KRImportReport::NetworkLink},
        {"GroundOverlay", KRImportReport::GroundOverlay},
        {"ScreenOverlay", KRImportReport::ScreenOverlay},
        {"PhotoOverlay", KRImportReport::PhotoOverlay},
        {"Tour", KRImportReport::Tour},
    };
    for (const auto &undrawable : undrawables) {
        if (!stream.isAt(undrawable.element))
            continue;
        const int line = stream.line();
        QString name;
        while (stream.readNextChild()) {
            if (stream.isAt("name"))
                name = stream.readText();
            else
                stream.skipElement();
        }
        m_report.add(undrawable.kind, line, name);
        return true;
    }
    return false;
}

QString KRKmlPreparation::document(int first, int *count) const
{
    QHash<QString, int> styleNumbers; // by what stands in the style
    QString text = QStringLiteral("<kml><Document>");
    int next = first;
    while (next < m_geometries.size() && next - first < mostGeometriesAtOnce && text.size() < mostCharactersAtOnce) {
        const KRKmlGeometry &geometry = m_geometries.at(next++);
        QString placemark = geometryXml(geometry);
        if (!geometry.hasLongTexts())
            placemark += element("name", geometry.name.toHtmlEscaped())
                         + element("description", geometry.description.toHtmlEscaped());
        if (const std::optional<KRKmlStyle> style = m_styles.resolved(geometry.look)) {
            const QString xml = style->toXml(geometry.use());
            if (!styleNumbers.contains(xml))
                styleNumbers.insert(xml, styleNumbers.size());
            placemark += element("styleUrl", QStringLiteral("#%1").arg(styleNumbers.value(xml)));
        }
        text += element("Placemark", placemark);
    }
    for (auto style = styleNumbers.cbegin(); style != styleNumbers.cend(); ++style)
        text += QStringLiteral("<Style id=\"%1\">%2</Style>").arg(QString::number(style.value()), style.key());
    *count = next - first;
    return text + QStringLiteral("</Document></kml>");
}
