#include "KRGPXTrackStyleList.h"

#include <QDomElement>

KRGPXTrackStyleList::KRGPXTrackStyleList() = default;
KRGPXTrackStyleList::KRGPXTrackStyleList(const KRGPXTrackStyleList &other) = default;
KRGPXTrackStyleList::KRGPXTrackStyleList(KRGPXTrackStyleList &&other) noexcept = default;
KRGPXTrackStyleList &KRGPXTrackStyleList::operator=(const KRGPXTrackStyleList &other) = default;
KRGPXTrackStyleList &KRGPXTrackStyleList::operator=(KRGPXTrackStyleList &&other) noexcept = default;
KRGPXTrackStyleList::~KRGPXTrackStyleList() = default;

KRGPXTrackStyleList KRGPXTrackStyleList::fromKml(const QDomElement &parent)
{
    const QString styleElement = QStringLiteral("Style");
    KRGPXTrackStyleList styles;
    for (QDomElement style = parent.firstChildElement(styleElement); !style.isNull();
         style = style.nextSiblingElement(styleElement))
        styles.add(KRGPXTrackStyle::fromKml(style));
    return styles;
}

KRGPXTrackConfiguration KRGPXTrackStyleList::findStyling(const QString &reference) const
{
    const auto style = m_styles.constFind(reference);
    return style != m_styles.constEnd() ? style->styleValues() : KRGPXTrackConfiguration::defaultValue();
}

void KRGPXTrackStyleList::add(const KRGPXTrackStyle &style)
{
    m_styles.insert(QLatin1Char('#') + style.styleId(), style);
}
