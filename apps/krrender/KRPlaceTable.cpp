#include "KRPlaceTable.h"

#include "KRSamplePlaces.h"
#include "KRTextTable.h"

QString KRPlaceTable::toText()
{
    QList<QStringList> rows{{tr("Name"), tr("Breite"), tr("Länge")}};
    const QVector<KRBaseMapPlace> places = KRSamplePlaces::all();
    for (const KRBaseMapPlace &place : places) {
        rows.append({place.name, KRTextTable::degrees(place.position.latitude()),
                     KRTextTable::degrees(place.position.longitude())});
    }
    return KRTextTable::aligned(rows, {1, 2});
}
