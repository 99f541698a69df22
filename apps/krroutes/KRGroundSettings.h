#pragma once

#include "KRGroundChoice.h"

#include <KRCore/KRConfigItem.h>
#include <KRCore/KRSettings.h>

#include <QStringList>
#include <QVector>

/**
 * The map that the viewer shows, and the tiles it has shown, kept between two runs.
 *
 * An object holds what is stored at the moment when it is made. Setters save at once. GUI thread only.
 */
class KRGroundSettings : private KRSettings
{
public:
    static constexpr int maximumRecentTiles = 8;

    KRGroundSettings();

    KRGroundChoice choice() const;
    /// Tiles also become the first of the recent ones.
    void setChoice(const KRGroundChoice &choice);

    /// The last ones first, each source once.
    QVector<KRGroundChoice> recentTiles() const;
    void clearRecentTiles();

private:
    KRConfigItem<int> m_kind;
    KRConfigItem<QStringList> m_recentTiles; ///< source and credit in turns; the first ones are those shown
};
