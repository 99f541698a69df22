#pragma once

#include <QCoreApplication>

class QIODevice;

/**
 * Refuses TIFFs with tiles of more pixels than KRInputLimits allow for a picture: a decoder asks for the memory of a
 * tile, however few of its pixels belong to the picture.
 */
class KRTiffTiles
{
    Q_DECLARE_TR_FUNCTIONS(KRTiffTiles)

public:
    /// Why the picture is not to be decoded, empty where it may be; also for what is no TIFF. @p device can seek, and
    /// is at its beginning before and afterwards.
    static QString problemOf(QIODevice *device);
};
