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

QString KRTrackLook::readColor(const QString &text, QColor *color) const
{
    color->setNamedColor(text);
    return color->isValid() ? QString()
                            : tr("„%1“ ist keine Farbe (#RRGGBB, #AARRGGBB oder ein Name wie „red“).").arg(text);
}

QString KRTrackLook::readWidth(const QString &text, double *width) const
{
    bool isNumber = false;
    *width = text.toDouble(&isNumber);
    return isNumber && *width >= 0.0 && *width <= widestPx
               ? QString()
               : tr("„%1“ ist keine Breite in Pixeln (0 bis %2).").arg(text, QString::number(widestPx));
}

QString KRTrackLook::setLineColor(const QString &text)
{
    QColor color;
    const QString problem = readColor(text, &color);
    m_changes.emplace_back([color](KRGPXTrackConfiguration &configuration) { configuration.setLineColor(color); });
    return problem;
}

QString KRTrackLook::setLineWidth(const QString &text)
{
    double width = 0.0;
    const QString problem = readWidth(text, &width);
    m_changes.emplace_back(
        [width](KRGPXTrackConfiguration &configuration) { configuration.setLineWidth(KRDistance(width)); });
    return problem;
}

QString KRTrackLook::setFillColor(const QString &text)
{
    QColor color;
    const QString problem = readColor(text, &color);
    m_changes.emplace_back([color](KRGPXTrackConfiguration &configuration) { configuration.setFillColor(color); });
    return problem;
}

QString KRTrackLook::setHaloWidth(const QString &text)
{
    double width = 0.0;
    const QString problem = readWidth(text, &width);
    m_changes.emplace_back(
        [width](KRGPXTrackConfiguration &configuration) { configuration.setHaloWidth(KRDistance(width)); });
    return problem;
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
