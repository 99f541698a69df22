#pragma once

#include <QCoreApplication>

class QIODevice;

/**
 * Refuses PNGs that hold more beside their pixels than KRInputLimits allow: a decoder unpacks each text, to up to a
 * thousand times its size, and keeps it.
 */
class KRPngChunks
{
    Q_DECLARE_TR_FUNCTIONS(KRPngChunks)

public:
    /// Why the picture is not to be decoded, empty where it may be; also for what is no PNG. @p device can seek, and
    /// is at its beginning before and afterwards.
    static QString problemOf(QIODevice *device);

    /// The PNG without what its pixels do not need: texts, profiles, further pictures. What is no PNG stays as it is.
    static QByteArray withoutNeedless(const QByteArray &bytes);
};
