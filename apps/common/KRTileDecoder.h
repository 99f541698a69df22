#pragma once

#include <QCoreApplication>
#include <QImage>

/**
 * Makes pictures of the bytes of tiles, which come from anywhere.
 */
class KRTileDecoder
{
    Q_DECLARE_TR_FUNCTIONS(KRTileDecoder)

public:
    static constexpr int largestSide = 512; ///< pixels; larger ones are reduced to it

    /// PNG, JPEG or WebP, as a premultiplied square. Null with the reason in @p problem when that is not possible.
    static QImage decode(const QByteArray &bytes, QString *problem);
};
