#include "KRKmlPreparation.h"

#include "KRXmlStream.h"

#include <KRCore/KRInputLimits.h>

namespace {

constexpr int mostFiguresAtOnce = 10000;
constexpr int mostCharactersAtOnce = 4000000;

QString element(const char *name, const QString &text)
{
    return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(name), text);
}

QString geometryXml(const KRKmlFigure &figure)
{
    const KRKmlCoordinates &first = figure.parts.first();
    const QString coordinates = element("coordinates", figure.isCompletedLater() ? first.toText(1) : first.toText());
    switch (figure.geometry) {
    case KRKmlFigure::Point:
        return element("Point", coordinates);
    case KRKmlFigure::Line:
        return element("LineString", coordinates);
    case KRKmlFigure::Area:
        return element("Polygon", coordinates);
    case KRKmlFigure::NamedShape:
        break;
    }
    return figure.shape.isEmpty() ? coordinates : element("shape", figure.shape.toHtmlEscaped()) + coordinates;
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
        const QString id = stream.attribute("id");
        m_styles.add(id, KRKmlStyleTable::readLook(stream));
    } else if (!readUndrawable(stream)) {
        while (stream.readNextChild())
            readElement(stream);
    }
}

void KRKmlPreparation::readPlacemark(KRXmlStream &stream)
{
    const int countBefore = m_figures.size();
    KRKmlPlacemarkReader(stream, &m_figures, &m_report).read();
    // No single figure has more than the limit, so the sum does not overflow before it is compared.
    for (int i = countBefore; i < m_figures.size() && m_positionCount < KRInputLimits::positions; ++i) {
        for (const KRKmlCoordinates &part : m_figures.at(i).parts)
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
    while (next < m_figures.size() && next - first < mostFiguresAtOnce && text.size() < mostCharactersAtOnce) {
        const KRKmlFigure &figure = m_figures.at(next++);
        QString placemark = geometryXml(figure);
        if (!figure.hasLongTexts())
            placemark += element("name", figure.name.toHtmlEscaped())
                         + element("description", figure.description.toHtmlEscaped());
        if (const std::optional<KRKmlStyle> style = m_styles.resolved(figure.look)) {
            const QString xml = style->toXml(figure.use());
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
