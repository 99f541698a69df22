#pragma once

#include <QString>

class QIODevice;

/**
 * Refuses pictures that a decoder would take far more time or memory for than for their pixels, before it begins.
 */
namespace KRPictureGuard {

/// Why the picture is not to be decoded, empty where nothing speaks against it; also for what is no picture.
/// @p device can seek, and is at its beginning before and afterwards. For @p jpegSamples see KRJpegScans.
QString problemOf(QIODevice *device, qint64 jpegSamples);

} // namespace KRPictureGuard
