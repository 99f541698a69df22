#include "KRPictureGuard.h"

#include "KRJpegScans.h"
#include "KRPngChunks.h"
#include "KRTiffTiles.h"

QString KRPictureGuard::problemOf(QIODevice *device)
{
    for (const auto problem : {KRJpegScans::problemOf, KRPngChunks::problemOf, KRTiffTiles::problemOf}) {
        const QString text = problem(device);
        if (!text.isEmpty())
            return text;
    }
    return QString();
}
