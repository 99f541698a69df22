#include "KRGroundChoice.h"

#include <KRBaseMapGround.h>
#include <KRTileGround.h>

#include <QFileInfo>
#include <QUrl>

KRGroundChoice KRGroundChoice::tiles(const QString &source, const QString &credit)
{
    KRGroundChoice choice;
    choice.m_kind = Tiles;
    choice.m_source = source.trimmed();
    choice.m_credit = credit.simplified();
    return choice;
}

KRGroundChoice KRGroundChoice::noMap()
{
    KRGroundChoice choice;
    choice.m_kind = NoMap;
    return choice;
}

bool KRGroundChoice::operator==(const KRGroundChoice &other) const
{
    return m_kind == other.m_kind && m_source == other.m_source && m_credit == other.m_credit;
}

QString KRGroundChoice::name() const
{
    switch (m_kind) {
    case BaseMap:
        return tr("Eingebaute Karte");
    case NoMap:
        return tr("Keine Karte");
    case Tiles:
        break;
    }
    const QString host = QUrl(m_source).host();
    if (!host.isEmpty())
        return host;
    // Of a path with places for the tiles, that before them.
    const QString path = m_source.left(m_source.indexOf(QLatin1String("/{")));
    const QString fileName = QFileInfo(path).fileName();
    return fileName.isEmpty() ? path : fileName;
}

std::unique_ptr<KRMapGround> KRGroundChoice::createGround() const
{
    if (m_kind == NoMap)
        return nullptr;
    if (m_kind == BaseMap)
        return std::make_unique<KRBaseMapGround>();
    auto ground = std::make_unique<KRTileGround>(m_source);
    if (!m_credit.isEmpty())
        ground->setCredit(m_credit);
    return ground;
}
