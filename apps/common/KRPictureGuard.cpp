#include "KRPictureGuard.h"

#include "KRJpegScans.h"
#include "KRPngChunks.h"

QString KRPictureGuard::problemOf(QIODevice *device)
{
    const QString problemOfScans = KRJpegScans::problemOf(device);
    return problemOfScans.isEmpty() ? KRPngChunks::problemOf(device) : problemOfScans;
}
