#pragma once

#include <QCoreApplication>
#include <QString>

#include <memory>

class KRMapGround;

/**
 * Which map the tracks are to lie on: the embedded one, none, or tiles from somewhere.
 */
class KRGroundChoice
{
    Q_DECLARE_TR_FUNCTIONS(KRGroundChoice)

public:
    enum Kind : int {
        BaseMap = 0,
        NoMap = 1,
        Tiles = 2,
    };

    /// The embedded map.
    KRGroundChoice() = default;
    /// @p source as KRTileSource::open() takes it; an empty @p credit leaves it to the source.
    static KRGroundChoice tiles(const QString &source, const QString &credit);
    static KRGroundChoice noMap();

    Kind kind() const { return m_kind; }
    QString source() const { return m_source; }
    QString credit() const { return m_credit; }

    bool operator==(const KRGroundChoice &other) const;
    bool operator!=(const KRGroundChoice &other) const { return !(*this == other); }

    /// Short, for menus: the name of the file or folder, or of the server.
    QString name() const;

    /// Null for no map. Tiles that cannot be opened give paper, and the ground says why.
    std::unique_ptr<KRMapGround> createGround() const;

private:
    Kind m_kind = BaseMap;
    QString m_source;
    QString m_credit;
};
