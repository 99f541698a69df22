#include "KRGpxNames.h"

#include "KRXmlStream.h"

KRGpxNames::KRGpxNames(const KRXmlStream &document)
{
    for (const QXmlStreamAttribute &attribute : document.attributes()) {
        const QStringView name = attribute.qualifiedName();
        if (name.startsWith(QLatin1String("xmlns:"))
            && attribute.value().startsWith(QLatin1String("http://www.topografix.com/GPX/1/")))
            m_prefixes.append(name.mid(6).toString());
    }
    // Also without a declaration.
    const qsizetype colon = document.qualifiedName().indexOf(QLatin1Char(':'));
    if (colon > 0)
        m_prefixes.append(document.qualifiedName().left(colon).toString());
}

QStringView KRGpxNames::name(const KRXmlStream &stream) const
{
    return isPrefixed(stream) ? stream.name() : stream.qualifiedName();
}

bool KRGpxNames::isPrefixed(const KRXmlStream &stream) const
{
    const QStringView qualifiedName = stream.qualifiedName();
    const qsizetype colon = qualifiedName.indexOf(QLatin1Char(':'));
    return colon > 0 && m_prefixes.contains(qualifiedName.left(colon));
}
