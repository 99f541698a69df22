#include "KRKmlStyle.h"

#include "KRXmlStream.h"

namespace {

template <typename Value>
void overrideValue(std::optional<Value> &value, const std::optional<Value> &other)
{
    if (other)
        value = other;
}

/// KML's booleans; what is none counts as true, which is the default of all that are read here.
bool isTrue(const QString &text)
{
    return text != QLatin1String("0") && text.compare(QLatin1String("false"), Qt::CaseInsensitive) != 0;
}

void appendElement(QString *xml, const char *name, const std::optional<QString> &text)
{
    if (text)
        *xml += QStringLiteral("<%1>%2</%1>").arg(QLatin1String(name), text->toHtmlEscaped());
}

QString lineStyle(const std::optional<QString> &color, const std::optional<QString> &width)
{
    QString xml;
    appendElement(&xml, "color", color);
    appendElement(&xml, "width", width);
    return QStringLiteral("<LineStyle>%1</LineStyle>").arg(xml);
}

QString polyStyle(const std::optional<QString> &color)
{
    QString xml;
    appendElement(&xml, "color", color);
    return QStringLiteral("<PolyStyle>%1</PolyStyle>").arg(xml);
}

} // namespace

KRKmlStyle KRKmlStyle::read(KRXmlStream &stream)
{
    KRKmlStyle style;
    while (stream.readNextChild()) {
        if (stream.isAt("LineStyle"))
            style.readLineStyle(stream);
        else if (stream.isAt("PolyStyle"))
            style.readPolyStyle(stream);
        else if (stream.isAt("IconStyle"))
            style.readIconStyle(stream);
        else
            stream.skipElement();
    }
    return style;
}

void KRKmlStyle::readLineStyle(KRXmlStream &stream)
{
    m_hasLineStyle = true;
    while (stream.readNextChild()) {
        if (stream.isAt("color"))
            m_lineColor = stream.readText().trimmed();
        else if (stream.isAt("width"))
            m_lineWidth = stream.readText().trimmed();
        else
            stream.skipElement();
    }
}

void KRKmlStyle::readPolyStyle(KRXmlStream &stream)
{
    m_hasPolyStyle = true;
    while (stream.readNextChild()) {
        if (stream.isAt("color"))
            m_polyColor = stream.readText().trimmed();
        else if (stream.isAt("fill"))
            m_isFilled = isTrue(stream.readText().trimmed());
        else if (stream.isAt("outline"))
            m_isOutlined = isTrue(stream.readText().trimmed());
        else
            stream.skipElement();
    }
}

void KRKmlStyle::readIconStyle(KRXmlStream &stream)
{
    while (stream.readNextChild()) {
        if (stream.isAt("color"))
            m_iconColor = stream.readText().trimmed();
        else
            stream.skipElement();
    }
    // White leaves the icon as it is: a colour of the icon's picture, which is not drawn.
    if (m_iconColor && m_iconColor->endsWith(QLatin1String("ffffff"), Qt::CaseInsensitive))
        m_iconColor.reset();
}

bool KRKmlStyle::saysNothing() const
{
    return !m_hasLineStyle && !m_hasPolyStyle && !m_iconColor;
}

void KRKmlStyle::override(const KRKmlStyle &style)
{
    m_hasLineStyle = m_hasLineStyle || style.m_hasLineStyle;
    m_hasPolyStyle = m_hasPolyStyle || style.m_hasPolyStyle;
    overrideValue(m_lineColor, style.m_lineColor);
    overrideValue(m_lineWidth, style.m_lineWidth);
    overrideValue(m_polyColor, style.m_polyColor);
    overrideValue(m_iconColor, style.m_iconColor);
    overrideValue(m_isFilled, style.m_isFilled);
    overrideValue(m_isOutlined, style.m_isOutlined);
}

QString KRKmlStyle::toXml(Use use) const
{
    if (use == UseForPoint && m_iconColor && !m_lineColor)
        return lineStyle(m_iconColor, m_lineWidth) + polyStyle(m_iconColor);

    const bool isFilled = m_hasPolyStyle && m_isFilled.value_or(true);
    if (use == UseForArea && m_hasPolyStyle && !m_isOutlined.value_or(true) && isFilled)
        return polyStyle(m_polyColor);

    QString xml;
    if (m_hasLineStyle)
        xml += lineStyle(m_lineColor, m_lineWidth);
    // The importer would take a closed line for an area and fill it.
    if (isFilled && use != UseForClosedLine)
        xml += polyStyle(m_polyColor);
    return xml;
}
