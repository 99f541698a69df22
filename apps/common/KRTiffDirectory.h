#pragma once

#include <QCoreApplication>

class QIODevice;

/**
 * Refuses TIFFs whose directory tells of more than KRInputLimits allow.
 *
 * A decoder asks for the memory of a whole tile or strip with all its samples, however few of them become part of the
 * picture, and reads the values of all entries, known or not, many of which may lie at the same place of the file.
 */
class KRTiffDirectory
{
    Q_DECLARE_TR_FUNCTIONS(KRTiffDirectory)

public:
    /// Why the picture is not to be decoded, empty where it may be; also for what is no TIFF. @p device can seek, and
    /// is at its beginning before and afterwards.
    static QString problemOf(QIODevice *device);
};
