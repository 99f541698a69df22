#pragma once

#include "KRBaseMapPlace.h"

#include <QVector>

/**
 * The sample places of the library as hosts use them: to name on maps, and to be meant by their names.
 */
class KRSamplePlaces
{
public:
    static QVector<KRBaseMapPlace> all();

    /**
     * What a user means by a text: a sample place by its name, in any case, or a position in decimal degrees
     * ("N53.14 E8.21") or in degrees, minutes and seconds ("53,8,12N; 8,12,36E"). The name of a mere position is
     * the text. The position is not valid when the text means nothing.
     */
    static KRBaseMapPlace find(const QString &text);
};
