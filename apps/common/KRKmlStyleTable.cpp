#include "KRKmlStyleTable.h"

#include "KRXmlStream.h"

#include <KRCore/KRInputLimits.h>

#include <QVarLengthArray>

namespace {

/// The look under the key "normal" is that of the map; without such a key it is the first.
KRKmlLook readStyleMap(KRXmlStream &stream)
{
    KRKmlLook chosen;
    bool isFirst = true;
    while (stream.readNextChild()) {
        if (!stream.isAt("Pair")) {
            stream.skipElement();
            continue;
        }
        QString key;
        KRKmlLook look;
        while (stream.readNextChild()) {
            if (stream.isAt("key"))
                key = stream.readText().trimmed();
            else if (stream.isAt("styleUrl"))
                look.reference = KRKmlStyleTable::readReference(stream);
            else if (stream.isAt("Style"))
                look.style = KRKmlStyle::read(stream);
            else
                stream.skipElement();
        }
        if (isFirst || key == QLatin1String("normal"))
            chosen = look;
        isFirst = false;
    }
    return chosen;
}

KRKmlLook readCascadingStyle(KRXmlStream &stream)
{
    KRKmlLook look;
    while (stream.readNextChild()) {
        if (stream.isAt("styleUrl"))
            look.reference = KRKmlStyleTable::readReference(stream);
        else if (stream.isAt("Style"))
            look.style = KRKmlStyle::read(stream);
        else
            stream.skipElement();
    }
    return look;
}

} // namespace

bool KRKmlStyleTable::isStyle(const KRXmlStream &stream)
{
    return stream.isAt("Style") || stream.isAt("StyleMap") || stream.isAt("CascadingStyle");
}

QString KRKmlStyleTable::readReference(KRXmlStream &stream)
{
    const QString reference = stream.readText().trimmed();
    // Each geometry of a placemark looks for it.
    return reference.size() <= KRInputLimits::referenceCharacters ? reference : QString();
}

KRKmlLook KRKmlStyleTable::readLook(KRXmlStream &stream)
{
    if (stream.isAt("StyleMap"))
        return readStyleMap(stream);
    if (stream.isAt("CascadingStyle"))
        return readCascadingStyle(stream);
    return {QString(), KRKmlStyle::read(stream)};
}

std::optional<KRKmlStyle> KRKmlStyleTable::resolved(const KRKmlLook &look) const
{
    QVarLengthArray<const KRKmlLook *, KRInputLimits::styleChain> chain;
    for (const KRKmlLook *next = find(look.reference); next && chain.size() < KRInputLimits::styleChain;
         next = find(next->reference))
        chain.append(next);
    if (chain.isEmpty() && look.style.saysNothing())
        return std::nullopt;

    KRKmlStyle style;
    while (!chain.isEmpty()) {
        style.override(chain.last()->style);
        chain.removeLast();
    }
    style.override(look.style);
    return style;
}

const KRKmlLook *KRKmlStyleTable::find(const QString &reference) const
{
    if (reference.isEmpty())
        return nullptr;
    // "#id", "document.kml#id" and, as some programs write it, "id" alone.
    const auto found = m_looks.constFind(reference.mid(reference.lastIndexOf(QLatin1Char('#')) + 1));
    return found == m_looks.constEnd() ? nullptr : &*found;
}
