#include "KRGroundSettings.h"

KRGroundSettings::KRGroundSettings()
    : m_kind(QStringLiteral("map/kind"), KRGroundChoice::BaseMap),
      m_recentTiles(QStringLiteral("map/recentTiles"), QStringList())
{
    load(m_kind);
    load(m_recentTiles);
}

KRGroundChoice KRGroundSettings::choice() const
{
    const QVector<KRGroundChoice> recent = recentTiles();
    if (m_kind.value() == KRGroundChoice::Tiles && !recent.isEmpty())
        return recent.first();
    return m_kind.value() == KRGroundChoice::NoMap ? KRGroundChoice::noMap() : KRGroundChoice();
}

void KRGroundSettings::setChoice(const KRGroundChoice &choice)
{
    m_kind.setValue(choice.kind());
    save(m_kind);
    if (choice.kind() != KRGroundChoice::Tiles)
        return;
    QStringList texts{choice.source(), choice.credit()};
    const QVector<KRGroundChoice> recent = recentTiles();
    for (const KRGroundChoice &other : recent) {
        if (other.source() != choice.source() && texts.size() < 2 * maximumRecentTiles)
            texts << other.source() << other.credit();
    }
    m_recentTiles.setValue(texts);
    save(m_recentTiles);
}

QVector<KRGroundChoice> KRGroundSettings::recentTiles() const
{
    QVector<KRGroundChoice> recent;
    const QStringList texts = m_recentTiles.value();
    for (int i = 0; i + 1 < texts.size(); i += 2)
        recent << KRGroundChoice::tiles(texts.at(i), texts.at(i + 1));
    return recent;
}

void KRGroundSettings::clearRecentTiles()
{
    m_recentTiles.setValue(QStringList());
    save(m_recentTiles);
}
