#pragma once

#include "KRBaseMapPath.h"

#include <QString>
#include <QVector>

/// A country of the base map, as far as its name is to be drawn.
struct KRBaseMapCountry {
    QString englishName; ///< in full
    QString germanName; ///< in full
    /// One for each connected piece of land; holes are left out.
    QVector<KRBaseMapPath> outlines;
    /// True when no other country touches it.
    bool isIsland = true;
};
