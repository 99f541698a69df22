#pragma once

#include <QCoreApplication>

class QIODevice;

/**
 * Refuses JPEGs with more scans than KRInputLimits allow: a decoder goes over the whole picture for each of them, and
 * one that changes nothing takes a few bytes.
 */
class KRJpegScans
{
    Q_DECLARE_TR_FUNCTIONS(KRJpegScans)

public:
    /// Why the picture is not to be decoded, empty where it may be; also for what is no JPEG. @p device can seek, and
    /// is at its beginning before and afterwards.
    static QString problemOf(QIODevice *device);
};
