#include "KRExchangeFile.h"

#include "KRGpxWriter.h"
#include "KRKmlWriter.h"

#include <KRCore/KRZIP.h>

#include <QFileInfo>

QByteArray KRExchangeFile::formatOf(const QString &fileName)
{
    const QByteArray suffix = QFileInfo(fileName).suffix().toLower().toLatin1();
    return formats().contains(suffix) ? suffix : QByteArray();
}

QByteArray KRExchangeFile::encode(const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const QString &name)
{
    if (format == "gpx")
        return KRGpxWriter::write(tracks);
    const QByteArray kml = KRKmlWriter::write(tracks, name);
    return format == "kmz" ? KRZIP::pack(QStringLiteral("doc.kml"), kml) : kml;
}
