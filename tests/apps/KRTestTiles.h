#pragma once

#include "KRTileKey.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QString>

/// Tiles of one colour each, which tells their names apart, in all the forms in which a source may have them.
namespace KRTestTiles {

QColor color(const KRTileKey &key);
/// The level of the tile that has such a pixel; -1 when it belongs to none of @p highestZoom and above.
int zoomOf(const QColor &pixel, double latitude, double longitude, int highestZoom);
KRTileKey keyAt(int zoom, double latitude, double longitude);

/// @p format as QImageWriter takes it.
QByteArray picture(const KRTileKey &key, int side = 256, const char *format = "png");

/// All tiles of the levels.
KRTileKeyList pyramid(int lowestZoom, int highestZoom);

void writeFile(const QString &path, const QByteArray &bytes);
/// Into <folder>/<level>/<column>/<row>.png.
void writeFolder(const QString &folder, const KRTileKeyList &keys, int side = 256);
void writeMbtiles(const QString &path, const KRTileKeyList &keys, const QHash<QString, QString> &metadata = {},
                  int side = 256);
/// Runs statements on a new or an existing database.
void runSql(const QString &path, const QStringList &statements);

} // namespace KRTestTiles
