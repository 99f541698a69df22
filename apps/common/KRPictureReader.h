#pragma once

#include <QCoreApplication>

class KRErrorHistory;
class QFileInfo;
class QImage;

/**
 * Reads pictures of unknown origin, as far as KRInputLimits allow.
 *
 * Only formats made of pixels: others, such as SVG, tell how to draw, and some such programs never end.
 */
class KRPictureReader
{
    Q_DECLARE_TR_FUNCTIONS(KRPictureReader)

public:
    /// Null when there is no such picture; the reason is reported then.
    static QImage read(const QFileInfo &file, KRErrorHistory *history);
};
