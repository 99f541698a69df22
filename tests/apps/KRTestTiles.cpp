#include "KRTestTiles.h"

#include "KRTestFile.h"

#include <QBuffer>
#include <QImage>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <QtMath>

#include <cmath>
#include <functional>

namespace {

/// SQLite's connections have names; each lives as long as this call.
void withDatabase(const QString &path, const std::function<void(QSqlDatabase &)> &work)
{
    const QString name = QStringLiteral("KRTestTiles");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(path);
        if (!database.open())
            qFatal("cannot open %s", qPrintable(path));
        work(database);
    }
    QSqlDatabase::removeDatabase(name);
}

void execute(QSqlQuery &query)
{
    if (!query.exec())
        qFatal("%s", qPrintable(query.lastError().text()));
}

} // namespace

QColor KRTestTiles::color(const KRTileKey &key)
{
    return QColor(40 + key.zoom * 12, (30 + key.x * 61) % 256, (90 + key.y * 83) % 256);
}

int KRTestTiles::zoomOf(const QColor &pixel, double latitude, double longitude, int highestZoom)
{
    for (int zoom = 0; zoom <= highestZoom; ++zoom) {
        if (pixel == color(keyAt(zoom, latitude, longitude)))
            return zoom;
    }
    return -1;
}

KRTileKey KRTestTiles::keyAt(int zoom, double latitude, double longitude)
{
    // Spherical Mercator as tile services number it, worked out with the hyperbolic form.
    const double count = std::pow(2.0, zoom);
    const double turned = std::fmod(std::fmod(longitude + 180.0, 360.0) + 360.0, 360.0);
    const double y = (1.0 - std::asinh(std::tan(qDegreesToRadians(latitude))) / M_PI) / 2.0;
    return {zoom, int(std::floor(turned / 360.0 * count)), int(std::floor(y * count))};
}

QByteArray KRTestTiles::picture(const KRTileKey &key, int side, const char *format)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(color(key));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 100);
    return bytes;
}

KRTileKeyList KRTestTiles::pyramid(int lowestZoom, int highestZoom)
{
    KRTileKeyList keys;
    for (int zoom = lowestZoom; zoom <= highestZoom; ++zoom) {
        for (int x = 0; x < 1 << zoom; ++x) {
            for (int y = 0; y < 1 << zoom; ++y)
                keys.append({zoom, x, y});
        }
    }
    return keys;
}

void KRTestTiles::writeFile(const QString &path, const QByteArray &bytes)
{
    KRTestFile::write(path, bytes);
}

void KRTestTiles::writeFolder(const QString &folder, const KRTileKeyList &keys, int side)
{
    for (const KRTileKey &key : keys)
        writeFile(QStringLiteral("%1/%2/%3/%4.png").arg(folder).arg(key.zoom).arg(key.x).arg(key.y),
                  picture(key, side));
}

void KRTestTiles::writeMbtiles(const QString &path, const KRTileKeyList &keys, const QHash<QString, QString> &metadata,
                               int side)
{
    runSql(path, {QStringLiteral("CREATE TABLE metadata (name text, value text)"),
                  QStringLiteral("CREATE TABLE tiles (zoom_level integer, tile_column integer, tile_row integer, "
                                 "tile_data blob)")});
    withDatabase(path, [&](QSqlDatabase &database) {
        database.transaction();
        QSqlQuery query(database);
        query.prepare(QStringLiteral("INSERT INTO metadata VALUES (?, ?)"));
        for (auto entry = metadata.begin(); entry != metadata.end(); ++entry) {
            query.addBindValue(entry.key());
            query.addBindValue(entry.value());
            execute(query);
        }
        query.prepare(QStringLiteral("INSERT INTO tiles VALUES (?, ?, ?, ?)"));
        for (const KRTileKey &key : keys) {
            query.addBindValue(key.zoom);
            query.addBindValue(key.x);
            query.addBindValue((1 << key.zoom) - 1 - key.y);
            query.addBindValue(picture(key, side));
            execute(query);
        }
        database.commit();
    });
}

void KRTestTiles::runSql(const QString &path, const QStringList &statements)
{
    withDatabase(path, [&](QSqlDatabase &database) {
        for (const QString &statement : statements) {
            QSqlQuery query(database);
            query.prepare(statement);
            execute(query);
        }
    });
}
