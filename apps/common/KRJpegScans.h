#pragma once

#include <QCoreApplication>

class QIODevice;

/**
 * Refuses JPEGs with more scans than KRInputLimits allow: a decoder goes over the whole picture for each of them, one
 * that changes nothing takes a few bytes, and between two of them everything is kept.
 */
class KRJpegScans
{
    Q_DECLARE_TR_FUNCTIONS(KRJpegScans)

public:
    /// Why the picture is not to be decoded, empty where it may be; also for what is no JPEG. @p device can seek, and
    /// is at its beginning before and afterwards. @p mostSamples are pixels, for each component of each scan.
    static QString problemOf(QIODevice *device, qint64 mostSamples);
};
