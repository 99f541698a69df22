#include "KRImportReport.h"

#include <QStringList>

#include <iterator>

namespace {

struct KindTexts {
    const char *key;
    const char *singular; // German
    const char *plural;
};

/// By the number of the kind.
constexpr KindTexts kindTexts[] = {
    {"trackWithoutPosition", QT_TRANSLATE_NOOP("KRImportReport", "Strecke ohne lesbare Position"),
     QT_TRANSLATE_NOOP("KRImportReport", "Strecken ohne lesbare Position")},
    {"routeWithoutPosition", QT_TRANSLATE_NOOP("KRImportReport", "Route ohne lesbare Position"),
     QT_TRANSLATE_NOOP("KRImportReport", "Routen ohne lesbare Position")},
    {"wayPointWithoutPosition", QT_TRANSLATE_NOOP("KRImportReport", "Wegpunkt ohne lesbare Position"),
     QT_TRANSLATE_NOOP("KRImportReport", "Wegpunkte ohne lesbare Position")},
    {"placemarkWithoutGeometry", QT_TRANSLATE_NOOP("KRImportReport", "Ortsmarke ohne Geometrie"),
     QT_TRANSLATE_NOOP("KRImportReport", "Ortsmarken ohne Geometrie")},
    {"placemarkWithoutPosition", QT_TRANSLATE_NOOP("KRImportReport", "Ortsmarke ohne lesbare Position"),
     QT_TRANSLATE_NOOP("KRImportReport", "Ortsmarken ohne lesbare Position")},
    {"geometryWithoutPosition", QT_TRANSLATE_NOOP("KRImportReport", "Geometrie ohne lesbare Position"),
     QT_TRANSLATE_NOOP("KRImportReport", "Geometrien ohne lesbare Position")},
    {"unreadablePosition", QT_TRANSLATE_NOOP("KRImportReport", "unlesbare Position"),
     QT_TRANSLATE_NOOP("KRImportReport", "unlesbare Positionen")},
    {"model", QT_TRANSLATE_NOOP("KRImportReport", "Modell"), QT_TRANSLATE_NOOP("KRImportReport", "Modelle")},
    {"groundOverlay", QT_TRANSLATE_NOOP("KRImportReport", "Bodenüberlagerung"),
     QT_TRANSLATE_NOOP("KRImportReport", "Bodenüberlagerungen")},
    {"screenOverlay", QT_TRANSLATE_NOOP("KRImportReport", "Bildschirmüberlagerung"),
     QT_TRANSLATE_NOOP("KRImportReport", "Bildschirmüberlagerungen")},
    {"photoOverlay", QT_TRANSLATE_NOOP("KRImportReport", "Fotoüberlagerung"),
     QT_TRANSLATE_NOOP("KRImportReport", "Fotoüberlagerungen")},
    {"tour", QT_TRANSLATE_NOOP("KRImportReport", "Kamerafahrt"), QT_TRANSLATE_NOOP("KRImportReport", "Kamerafahrten")},
    {"networkLink", QT_TRANSLATE_NOOP("KRImportReport", "Netzwerkverweis"),
     QT_TRANSLATE_NOOP("KRImportReport", "Netzwerkverweise")},
    {"otherDocument", QT_TRANSLATE_NOOP("KRImportReport", "weiteres KML-Dokument"),
     QT_TRANSLATE_NOOP("KRImportReport", "weitere KML-Dokumente")},
};
constexpr int longestName = 1000; // characters
static_assert(std::size(kindTexts) == KRImportReport::OtherDocument + 1);

} // namespace

QString KRImportReport::key(Kind kind)
{
    return QLatin1String(kindTexts[kind].key);
}

void KRImportReport::add(Kind kind, int line, const QString &name, int count)
{
    m_counts[kind] += count;
    if (m_items.size() < maximumItems)
        m_items.append({kind, line, name.left(longestName).simplified(), count});
}

KRImportReport &KRImportReport::operator+=(const KRImportReport &other)
{
    for (auto counted = other.m_counts.cbegin(); counted != other.m_counts.cend(); ++counted)
        m_counts[counted.key()] += counted.value();
    m_items += other.m_items;
    return *this;
}

QString KRImportReport::summary() const
{
    QStringList parts;
    for (auto counted = m_counts.cbegin(); counted != m_counts.cend(); ++counted)
        parts.append(describe(counted.key(), counted.value()));
    return parts.isEmpty() ? QString() : tr("%1 nicht gezeichnet").arg(parts.join(QStringLiteral(", ")));
}

QString KRImportReport::describe(const Item &item)
{
    const QString what = describe(item.kind, item.count);
    return item.name.isEmpty() ? what : tr("%1 „%2“").arg(what, item.name);
}

QString KRImportReport::describe(Kind kind, int count)
{
    const KindTexts &texts = kindTexts[kind];
    return QStringLiteral("%1 %2").arg(QString::number(count), tr(count == 1 ? texts.singular : texts.plural));
}
