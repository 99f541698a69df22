#include "KRGPXTrackStyle.h"

#include <QDomElement>

KRGPXTrackStyle::KRGPXTrackStyle(const QString &styleId, const KRGPXTrackConfiguration &styleValues)
    : m_styleId(styleId), m_styleValues(styleValues)
{ }

KRGPXTrackStyle::KRGPXTrackStyle(const KRGPXTrackStyle &other) = default;
KRGPXTrackStyle::KRGPXTrackStyle(KRGPXTrackStyle &&other) noexcept = default;
KRGPXTrackStyle &KRGPXTrackStyle::operator=(const KRGPXTrackStyle &other) = default;
KRGPXTrackStyle &KRGPXTrackStyle::operator=(KRGPXTrackStyle &&other) noexcept = default;
KRGPXTrackStyle::~KRGPXTrackStyle() = default;

KRGPXTrackStyle KRGPXTrackStyle::fromKml(const QDomElement &style)
{
    return KRGPXTrackStyle(style.attribute(QStringLiteral("id")), KRGPXTrackConfiguration::fromKml(style));
}
