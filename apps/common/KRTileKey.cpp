#include "KRTileKey.h"

#include <QHash>

bool KRTileKey::isValid() const
{
    if (zoom < 0 || zoom > largestZoom)
        return false;
    const int count = 1 << zoom;
    return x >= 0 && x < count && y >= 0 && y < count;
}

KRTileKey KRTileKey::ancestor(int levels) const
{
    return levels <= zoom ? KRTileKey{zoom - levels, x >> levels, y >> levels} : KRTileKey();
}

uint qHash(const KRTileKey &key, uint seed) noexcept
{
    const quint64 column = quint64(quint32(key.x)) << 32;
    return uint(::qHash(column | quint32(key.y), seed)) ^ uint(key.zoom);
}
