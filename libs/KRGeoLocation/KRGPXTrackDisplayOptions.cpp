#include "KRGPXTrackDisplayOptions.h"

#include <KRXML/KRXMLBuilder.h>

#include <QDomElement>

namespace {

const QString displayOptionsElement = QStringLiteral("displayOptions");

} // namespace

KRGPXTrackDisplayOptions::KRGPXTrackDisplayOptions(const QString &keys)
{
    setValue(enumToStringTable().decodeCSV(keys));
}

KRGPXTrackDisplayOptions KRGPXTrackDisplayOptions::fromXml(const QDomElement &parent)
{
    const QDomElement child = parent.firstChildElement(displayOptionsElement);
    return child.isNull() ? KRGPXTrackDisplayOptions(StrokeDisplayOption) : KRGPXTrackDisplayOptions(child.text());
}

void KRGPXTrackDisplayOptions::fillTable(KREnumToStringTable<KRGPXTrackDisplayOptionsEnum> *table) const
{
    table->add(StrokeDisplayOption, QStringLiteral("stroke"));
    table->add(FillDisplayOption, QStringLiteral("fill"));
}

void KRGPXTrackDisplayOptions::write(QDomElement &parent) const
{
    KRXMLBuilder::buildDomElement(parent, displayOptionsElement, keys());
}
