#include "KRTrackLook.h"

#include <KRCore/KRDistance.h>
#include <KRCore/KRPenStyle.h>

#include <QStringList>

namespace {

constexpr double widestPx = 1000.0;

/// True when every part of the comma list stands among the keys.
bool consistsOf(const QString &text, const QStringList &keys)
{
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        if (!keys.contains(part))
            return false;
    }
    return true;
}

const QStringList &markerKeys()
{
    static const QStringList keys =
        QStringLiteral("disk,circle,x,block,rhombus,star6,star9,star12,arrow").split(QLatin1Char(','));
    return keys;
}

const QStringList &shapeKeys()
{
    static const QStringList keys = QStringLiteral("auto,point,linestring,polygon,hop").split(QLatin1Char(','));
    return keys;
}

const QStringList &displayKeys()
{
    static const QStringList keys = QStringLiteral("stroke,fill").split(QLatin1Char(','));
    return keys;
}

/// In the order of the numbers of Qt::PenStyle, from Qt::SolidLine.
const QStringList &penStyleKeys()
{
    static const QStringList keys = QStringLiteral("solid,dash,dot,dashdot,dashdotdot").split(QLatin1Char(','));
    return keys;
}

} // namespace

QString KRTrackLook::addColor(const QString &text, bool (KRGPXTrackConfiguration::*set)(const QColor &))
{
    const QColor color(text);
    if (!color.isValid())
        return tr("„%1“ ist keine Farbe (#RRGGBB, #AARRGGBB oder ein Name wie „red“).").arg(text);
    m_changes.emplace_back([color, set](KRGPXTrackConfiguration &configuration) { (configuration.*set)(color); });
    return QString();
}

QString KRTrackLook::addWidth(const QString &text, bool (KRGPXTrackConfiguration::*set)(const KRDistance &))
{
    bool isNumber = false;
    const double width = text.toDouble(&isNumber);
    if (!isNumber || !(width >= 0.0) || width > widestPx)
        return tr("„%1“ ist keine Breite in Pixeln (0 bis %2).").arg(text, QString::number(widestPx));
    m_changes.emplace_back(
        [width, set](KRGPXTrackConfiguration &configuration) { (configuration.*set)(KRDistance(width)); });
    return QString();
}

QString KRTrackLook::setLineColor(const QString &text)
{
    return addColor(text, &KRGPXTrackConfiguration::setLineColor);
}

QString KRTrackLook::setLineWidth(const QString &text)
{
    return addWidth(text, &KRGPXTrackConfiguration::setLineWidth);
}

QString KRTrackLook::setFillColor(const QString &text)
{
    return addColor(text, &KRGPXTrackConfiguration::setFillColor);
}

QString KRTrackLook::setHaloWidth(const QString &text)
{
    return addWidth(text, &KRGPXTrackConfiguration::setHaloWidth);
}

QString KRTrackLook::setMarkerShape(const QString &text)
{
    if (!markerKeys().contains(text))
        return tr("„%1“ ist kein Marker (%2).").arg(text, markerKeys().join(QStringLiteral(", ")));
    m_changes.emplace_back(
        [text](KRGPXTrackConfiguration &configuration) { configuration.setMarkerShape(KRGPXMarkerShape(text)); });
    return QString();
}

QString KRTrackLook::setTrackShape(const QString &text)
{
    if (!shapeKeys().contains(text))
        return tr("„%1“ ist keine Form (%2).").arg(text, shapeKeys().join(QStringLiteral(", ")));
    m_changes.emplace_back(
        [text](KRGPXTrackConfiguration &configuration) { configuration.setTrackShape(KRGPXTrackShape(text)); });
    return QString();
}

QString KRTrackLook::setDisplayOptions(const QString &text)
{
    if (!consistsOf(text, displayKeys()))
        return tr("„%1“ ist keine Darstellung (%2, auch beides mit Komma).")
            .arg(text, displayKeys().join(QStringLiteral(", ")));
    m_changes.emplace_back([text](KRGPXTrackConfiguration &configuration) {
        configuration.setCurrentDisplayOptions(KRGPXTrackDisplayOptions(text));
    });
    return QString();
}

QString KRTrackLook::setPenStyle(const QString &text)
{
    const int index = penStyleKeys().indexOf(text);
    if (index < 0)
        return tr("„%1“ ist keine Linienart (%2).").arg(text, penStyleKeys().join(QStringLiteral(", ")));
    m_changes.emplace_back([index](KRGPXTrackConfiguration &configuration) {
        configuration.setPenStyle(KRPenStyle(Qt::SolidLine + index));
    });
    return QString();
}

QString KRTrackLook::setSmoothing(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    bool strengthIsNumber = false;
    bool stepsAreNumber = true;
    const int strength = parts.at(0).toInt(&strengthIsNumber);
    const int steps = parts.size() > 1 ? parts.at(1).toInt(&stepsAreNumber) : 1;
    const bool isReadable = parts.size() <= 2 && strengthIsNumber && stepsAreNumber;
    if (!isReadable || strength < 0 || strength > 100 || steps < 1)
        return tr("„%1“ ist keine Glättung (Stärke 0 bis 100, wobei 100 nichts ändert, und nach einem Komma "
                  "die Zahl der Abschnitte).")
            .arg(text);
    m_changes.emplace_back([strength, steps](KRGPXTrackConfiguration &configuration) {
        configuration.setSmoothingStrength(strength);
        configuration.setSmoothingSteps(steps);
    });
    return QString();
}

KRGPXTrackConfiguration KRTrackLook::appliedTo(const KRGPXTrackConfiguration &configuration) const
{
    KRGPXTrackConfiguration changed = configuration;
    for (const Change &change : m_changes)
        change(changed);
    return changed;
}
