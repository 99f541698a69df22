#pragma once

#include <QMetaType>
#include <QVector>

/**
 * Names one map tile: of the 2^zoom columns and rows into which its level cuts the Mercator square, column x from the
 * west and row y from the north.
 *
 * Valid for levels 0 ... 24 and columns and rows within the level. By default not valid.
 */
struct KRTileKey {
    static constexpr int largestZoom = 24;

    int zoom = -1;
    int x = 0;
    int y = 0;

    bool isValid() const;
    /// The row counted from the south, as some services have it.
    int rowFromSouth() const { return (1 << zoom) - 1 - y; }
    /// The tile that holds this one, so many levels above; not valid above level 0.
    KRTileKey ancestor(int levels) const;

    bool operator==(const KRTileKey &other) const { return zoom == other.zoom && x == other.x && y == other.y; }
    bool operator!=(const KRTileKey &other) const { return !(*this == other); }
};

uint qHash(const KRTileKey &key, uint seed = 0) noexcept;

using KRTileKeyList = QVector<KRTileKey>;

Q_DECLARE_TYPEINFO(KRTileKey, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(KRTileKey)
