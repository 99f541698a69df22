#pragma once

#include <QByteArray>
#include <QString>

class QImage;

/**
 * Turns pictures into the bytes of picture files.
 */
class KRPictureFile
{
public:
    /// The format that the suffix stands for ("png", "jpeg", "webp"), empty for any other.
    static QByteArray formatOf(const QString &fileName);

    /// Encodes in a format of formatOf(). Formats without transparency get a white ground. Null when it fails.
    static QByteArray encode(const QImage &picture, const QByteArray &format);
};
