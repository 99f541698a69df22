#include "KRPictureGuard.h"

#include "KRJpegScans.h"
#include "KRPngChunks.h"
#include "KRTiffDirectory.h"

QString KRPictureGuard::problemOf(QIODevice *device, qint64 jpegSamples)
{
    QString problem = KRJpegScans::problemOf(device, jpegSamples);
    if (problem.isEmpty())
        problem = KRPngChunks::problemOf(device);
    return problem.isEmpty() ? KRTiffDirectory::problemOf(device) : problem;
}
