#pragma once

#include "KRBaseMapCountry.h"
#include "KRBaseMapPath.h"
#include "KRTopoJson.h"

#include <KRCore/KRSingleton.h>

#include <QVector>

/**
 * Land, coasts and borders of the world at 1:50 million, as embedded into the programs.
 *
 * Decoded once, when somebody first asks for the instance; that takes some tens of milliseconds. Everything is const
 * from then on and may be read from any thread.
 */
class KRBaseMapData : public KRSingleton<KRBaseMapData>
{
public:
    KRBaseMapData();

    /// Rings of the land without borders in it, to be filled together: holes lie inside as rings of their own.
    const QVector<KRBaseMapPath> &land() const { return m_land; }
    /// Lines between land and sea; cuts along the date line are not among them.
    const QVector<KRBaseMapPath> &coasts() const { return m_coasts; }
    /// Lines between two countries, each once.
    const QVector<KRBaseMapPath> &borders() const { return m_borders; }
    const QVector<KRBaseMapCountry> &countries() const { return m_countries; }

private:
    void readLand(const KRTopoJson &topology);
    void readLines(const KRTopoJson &topology, const QVector<int> &countriesAtArc);
    void readCountries(const KRTopoJson &topology, const QVector<KRTopoJson::Feature> &features,
                       const QVector<int> &countriesAtArc);

    QVector<KRBaseMapPath> m_land;
    QVector<KRBaseMapPath> m_coasts;
    QVector<KRBaseMapPath> m_borders;
    QVector<KRBaseMapCountry> m_countries;
};
