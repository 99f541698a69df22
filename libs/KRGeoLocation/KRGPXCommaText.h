#pragma once

#include "KRGeoLocationExport.h"

#include <QString>
#include <QStringView>

/// What the comma text of one point says, see KRGPXTrackPoint::decodeKml() and toKml().
struct KRGEOLOCATION_EXPORT KRGPXCommaText {
    double latitude = 0.0; ///< decimal degrees
    double longitude = 0.0;
    int elevation = 0; ///< whole metres
    qint64 milliseconds = 0; ///< since 1970, or KRGPXTime::noTime

    /// The white space of ASCII alone: a no-break space belongs to the number next to it.
    static bool isSeparator(QChar character)
    {
        const ushort unicode = character.unicode();
        return unicode == ' ' || (unicode >= '\t' && unicode <= '\r');
    }
    /// How many comma texts there are, with separators between them.
    static int count(QStringView texts);

    /// Takes the time for seconds, although appendTo() writes milliseconds.
    static KRGPXCommaText decode(QStringView text);

    /// Degrees with at most ten decimals, and a point in any case: "12."
    void appendTo(QString *text) const;
    /// The text of angles that are texts already.
    static QString join(const QString &longitude, const QString &latitude, int elevation, qint64 milliseconds);
};
