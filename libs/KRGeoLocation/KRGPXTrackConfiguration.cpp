#include "KRGPXTrackConfiguration.h"

#include "KRGeoLocationSettings.h"

#include <KRCore/KRDistanceUnit.h>
#include <KRCore/KRMath.h>
#include <KRCore/KRValue.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QDebug>
#include <QDomDocument>
#include <QDomElement>

#include <cmath>

using KRValue::replaceIfDifferent;

namespace {

const QString lineWidthElement = QStringLiteral("pensize");
const QString lineColorElement = QStringLiteral("color");
const QString fillColorElement = QStringLiteral("fillcolor");
const QString haloWidthElement = QStringLiteral("halosize");
const QString smoothingStrengthAttribute = QStringLiteral("smoothing");
const QString smoothingStepsAttribute = QStringLiteral("smoothingSteps");

constexpr int longestText = 4096; // characters
constexpr double pixelsPerKmlWidth = 6.0;
constexpr double thinnestKmlLine = 0.1; // pixels
constexpr double widthOfThinKmlLines = 7.7;

// As wide as KML and our own documents leave it to the program when they do not name a halo.
KRDistance automaticHaloWidth(const KRDistance &lineWidth, const KRGPXTrackDisplayOptions &options)
{
    return (options & FillDisplayOption) != 0 ? lineWidth : lineWidth * 2.0;
}

QString wholePixels(const KRDistance &width)
{
    return QString::number(KRMath::toInt(width.toDouble()));
}

KRDistance widthFromText(const QString &text)
{
    bool isNumber = false;
    const double width = text.toDouble(&isNumber);
    return isNumber && std::isfinite(width) ? width : 0.0;
}

QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(qMin(alpha, 255));
    return color;
}

// Fills in what a KML style leaves out: a colour that is wholly transparent is as good as none.
void completeKmlColors(QColor &line, QColor &fill)
{
    const bool hasLine = line.alpha() != 0;
    const bool hasFill = fill.alpha() != 0;
    if (!hasLine && !hasFill) {
        line = Qt::black;
        fill = withAlpha(Qt::black, 128);
    } else if (!hasLine) {
        line = withAlpha(fill, 2 * fill.alpha());
    } else if (!hasFill) {
        // Intended: half of an opaque line is 127 here, but 128 where fromXml() halves.
        fill = withAlpha(line, line.alpha() / 2);
    }
}

} // namespace

KRGPXTrackConfiguration::KRGPXTrackConfiguration() = default;
KRGPXTrackConfiguration::KRGPXTrackConfiguration(const QColor &lineColor, const KRDistance &lineWidth,
                                                 const QColor &fillColor, const KRDistance &haloWidth,
                                                 const KRGPXTrackDisplayOptions &displayOptions,
                                                 const KRGPXMarkerShape &markerShape, const KRGPXTrackShape &trackShape,
                                                 const KRPenStyle &penStyle, int smoothingStrength, int smoothingSteps)
    : m_lineColor(lineColor), m_lineWidth(lineWidth), m_penStyle(penStyle), m_fillColor(fillColor),
      m_haloWidth(haloWidth), m_displayOptions(displayOptions), m_markerShape(markerShape), m_trackShape(trackShape),
      m_smoothingStrength(smoothingStrength), m_smoothingSteps(smoothingSteps)
{ }
KRGPXTrackConfiguration::KRGPXTrackConfiguration(const KRGPXTrackConfiguration &other) = default;
KRGPXTrackConfiguration::KRGPXTrackConfiguration(KRGPXTrackConfiguration &&other) noexcept = default;
KRGPXTrackConfiguration &KRGPXTrackConfiguration::operator=(const KRGPXTrackConfiguration &other) = default;
KRGPXTrackConfiguration &KRGPXTrackConfiguration::operator=(KRGPXTrackConfiguration &&other) noexcept = default;
KRGPXTrackConfiguration::~KRGPXTrackConfiguration() = default;

KRGPXTrackConfiguration KRGPXTrackConfiguration::defaultValue()
{
    return {};
}

KRGPXTrackConfiguration KRGPXTrackConfiguration::currentDefaultConfiguration()
{
    return KRGeoLocationSettings::instance()->defaultTrackConfiguration();
}

KRGPXTrackConfiguration KRGPXTrackConfiguration::fromXml(const QDomElement &parent)
{
    KRGPXTrackConfiguration configuration;
    configuration.m_displayOptions = KRGPXTrackDisplayOptions::fromXml(parent);
    configuration.m_markerShape = KRGPXMarkerShape::fromXml(parent);
    configuration.m_trackShape = KRGPXTrackShape::fromXml(parent);
    configuration.m_penStyle = KRPenStyle::fromXml(parent);

    const QDomElement lineWidth = parent.firstChildElement(lineWidthElement);
    if (!lineWidth.isNull())
        configuration.m_lineWidth = widthFromText(lineWidth.text());
    configuration.m_lineColor = KRXMLParser::readColor(parent.firstChildElement(lineColorElement).text());

    const QDomElement fillColor = parent.firstChildElement(fillColorElement);
    configuration.m_fillColor =
        fillColor.isNull() ? multiplyAlpha(configuration.m_lineColor, 0.5) : KRXMLParser::readColor(fillColor.text());
    const QDomElement haloWidth = parent.firstChildElement(haloWidthElement);
    configuration.m_haloWidth = haloWidth.isNull()
                                    ? automaticHaloWidth(configuration.m_lineWidth, configuration.m_displayOptions)
                                    : widthFromText(haloWidth.text());

    configuration.m_smoothingStrength = KRXMLParser::intAttribute(parent, smoothingStrengthAttribute, 100);
    configuration.m_smoothingSteps = KRXMLParser::intAttribute(parent, smoothingStepsAttribute, 1);
    return configuration;
}

KRGPXTrackConfiguration KRGPXTrackConfiguration::deserialize(const QString &text)
{
    QDomDocument document;
    if (text.size() <= longestText)
        document.setContent(text);
    return fromXml(document.documentElement());
}

KRGPXTrackConfiguration KRGPXTrackConfiguration::fromKml(const QDomElement &style)
{
    const QDomElement lineStyle = style.firstChildElement(QStringLiteral("LineStyle"));
    const QDomElement polyStyle = style.firstChildElement(QStringLiteral("PolyStyle"));
    KRGPXTrackConfiguration configuration;
    if (!polyStyle.isNull()) {
        configuration.m_displayOptions = FillDisplayOption;
        if (!lineStyle.isNull())
            configuration.m_displayOptions.expandTo(StrokeDisplayOption);
    }

    configuration.m_lineColor = decodeColor(lineStyle);
    configuration.m_fillColor = decodeColor(polyStyle);
    completeKmlColors(configuration.m_lineColor, configuration.m_fillColor);

    const double lineWidth = decodeWidth(lineStyle) * pixelsPerKmlWidth;
    const bool isUsable = std::isfinite(lineWidth) && lineWidth >= thinnestKmlLine;
    configuration.m_lineWidth = isUsable ? lineWidth : widthOfThinKmlLines;
    configuration.m_haloWidth = automaticHaloWidth(configuration.m_lineWidth, configuration.m_displayOptions);
    return configuration;
}

QColor KRGPXTrackConfiguration::decodeColor(const QDomElement &element)
{
    const QString text = element.firstChildElement(lineColorElement).text().trimmed();
    if (text.startsWith(QLatin1Char('#')))
        return KRXMLParser::readColor(text);
    return KRXMLParser::readColor(QLatin1Char('#') + text, AbgrByteOrder);
}

double KRGPXTrackConfiguration::decodeWidth(const QDomElement &element)
{
    return KRXMLParser::doubleText(element, QStringLiteral("width"), 0.0);
}

QColor KRGPXTrackConfiguration::multiplyAlpha(const QColor &color, double factor)
{
    QColor result = color;
    result.setAlphaF(qBound(0.0, color.alphaF() * factor, 1.0));
    return result;
}

bool KRGPXTrackConfiguration::hasDrawOption(const KRGPXTrackDisplayOptions &options) const
{
    return (m_displayOptions & options) != 0;
}

bool KRGPXTrackConfiguration::wouldChangeHaloToVisibleAgainst(const KRGPXTrackConfiguration &old) const
{
    return old.m_haloWidth.isNull() && !m_haloWidth.isNull();
}

bool KRGPXTrackConfiguration::operator==(const KRGPXTrackConfiguration &other) const
{
    return m_lineColor == other.m_lineColor && m_lineWidth == other.m_lineWidth && m_penStyle == other.m_penStyle
           && m_fillColor == other.m_fillColor && m_haloWidth == other.m_haloWidth
           && m_displayOptions == other.m_displayOptions && m_markerShape == other.m_markerShape
           && m_trackShape == other.m_trackShape && m_smoothingStrength == other.m_smoothingStrength
           && m_smoothingSteps == other.m_smoothingSteps;
}

bool KRGPXTrackConfiguration::setLineColor(const QColor &color)
{
    return replaceIfDifferent(m_lineColor, color);
}

bool KRGPXTrackConfiguration::setLineWidth(const KRDistance &width)
{
    return replaceIfDifferent(m_lineWidth, width);
}

bool KRGPXTrackConfiguration::setPenStyle(const KRPenStyle &style)
{
    return replaceIfDifferent(m_penStyle, style);
}

bool KRGPXTrackConfiguration::setFillColor(const QColor &color)
{
    return replaceIfDifferent(m_fillColor, color);
}

bool KRGPXTrackConfiguration::setHaloWidth(const KRDistance &width)
{
    return replaceIfDifferent(m_haloWidth, width);
}

bool KRGPXTrackConfiguration::setCurrentDisplayOptions(const KRGPXTrackDisplayOptions &options)
{
    return replaceIfDifferent(m_displayOptions, options);
}

bool KRGPXTrackConfiguration::setMarkerShape(const KRGPXMarkerShape &shape)
{
    return replaceIfDifferent(m_markerShape, shape);
}

bool KRGPXTrackConfiguration::setTrackShape(const KRGPXTrackShape &shape)
{
    return replaceIfDifferent(m_trackShape, shape);
}

bool KRGPXTrackConfiguration::setSmoothingStrength(int strength)
{
    return replaceIfDifferent(m_smoothingStrength, strength);
}

bool KRGPXTrackConfiguration::setSmoothingSteps(int steps)
{
    return replaceIfDifferent(m_smoothingSteps, steps);
}

void KRGPXTrackConfiguration::toXml(QDomElement &parent) const
{
    // Intended: widths are cut to whole pixels here, although fromXml() reads fractions.
    KRXMLBuilder::buildDomElement(parent, lineWidthElement, wholePixels(m_lineWidth));
    KRXMLBuilder::buildDomElement(parent, lineColorElement, m_lineColor.name(QColor::HexArgb));
    KRXMLBuilder::buildDomElement(parent, fillColorElement, m_fillColor.name(QColor::HexArgb));
    KRXMLBuilder::buildDomElement(parent, haloWidthElement, wholePixels(m_haloWidth));
    m_displayOptions.write(parent);
    m_markerShape.toXml(parent);
    m_trackShape.toXml(parent);
    m_penStyle.toXml(parent);
    parent.setAttribute(smoothingStrengthAttribute, m_smoothingStrength);
    parent.setAttribute(smoothingStepsAttribute, m_smoothingSteps);
}

QString KRGPXTrackConfiguration::serialize() const
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("config"));
    toXml(root);
    return KRXMLBuilder::toText(document);
}

QDebug operator<<(QDebug debug, const KRGPXTrackConfiguration &configuration)
{
    const auto describe = [](const KRDistance &width) { return width.describe(KRDistanceUnit::pixel(), 1, true); };
    const QDebugStateSaver saver(debug);
    debug.noquote() << QStringLiteral("KRGPXTrackConfiguration -- %1; %2; %3; %4; %5; %6; %7")
                           .arg(configuration.lineColor().name(), describe(configuration.lineWidth()),
                                configuration.fillColor().name(), describe(configuration.haloWidth()),
                                configuration.currentDisplayOptions().keys(), configuration.markerShape().keys(),
                                configuration.trackShape().keys());
    return debug;
}
